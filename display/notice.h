// SPDX-License-Identifier: MIT
// Dialogs that say or ask something in a sentence. They are opened, not waited for.
#pragma once

#include <functional>

class QString;
class QWidget;

// Says what went wrong, in front of the window of `parent`.
void Say(QWidget* parent, const QString& sentence);

// Asks a question. Calls `consent` when the button labelled `yes` is pressed.
void Ask(QWidget* parent, const QString& question, const QString& yes, std::function<void()> consent);

// Says which program this is, and where its settings lie.
void TellAbout(QWidget* window);
