// SPDX-License-Identifier: MIT
// How long texts are shown: cut, with the whole of them in a tip.
#pragma once

#include <QString>

constexpr qsizetype kLongestLine = 60;  // characters

// Returns `text` on one line of at most kLongestLine characters; a longer one ends in an ellipsis. A text
// that `may_break` and that a blank divides into two such lines stays whole.
QString ShownText(const QString& text, bool may_break = false);

// Returns the tip for a text of which `shown` is shown: nothing where that is the whole.
QString TipFor(const QString& text, const QString& shown);

// Returns the first `length` characters of a longer text and an ellipsis in place of the last.
QString CutText(const QString& text, qsizetype length);
