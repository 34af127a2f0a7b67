// SPDX-License-Identifier: MIT
// Enter, in a line that text has been typed into, takes the text over. Only the next Enter goes on to the
// default button.
#pragma once

class QLineEdit;
class QWidget;

// `keys` is the widget that has the keyboard while `line` is typed into: the line itself or its spin box.
void LetEnterTakeTypedText(QLineEdit* line, QWidget* keys);
