// SPDX-License-Identifier: MIT
// The colour dialog: Qt's, with a line for digits and names that knows alpha, and with the desktop's way to
// pick from the screen where Qt has none.
#pragma once

#include <QColorDialog>

class ColorLine;

class ColorPanel : public QColorDialog {
public:
    ColorPanel(const QColor& start, QWidget* parent);

private:
    void ReplaceColorName();
    void OfferScreen();

    ColorLine* _line;
};
