// SPDX-License-Identifier: MIT
// Colours as text, and on the clipboard.
#pragma once

#include <QColor>
#include <QString>

#include <memory>
#include <optional>

class QMimeData;

// Returns "#rrggbb", or "#rrggbbaa" for a colour that is not opaque.
QString ColorText(const QColor& color);

// Reads 3, 4, 6 or 8 digits, with or without "#", of which the fourth or the last two are the alpha, or a
// colour's name. Blanks around it do not matter.
std::optional<QColor> ReadColor(const QString& text);

// Returns data that hold a colour both as such and as text.
std::unique_ptr<QMimeData> ColorData(const QColor& color);
// Returns the colour that is dragged or pasted, in either form.
std::optional<QColor> ColorIn(const QMimeData& data);
