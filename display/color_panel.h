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
    // Qt's way to pick from the screen makes the colour opaque: this keeps the alpha while it is under way.
    void KeepAlpha(const QColor& color);
    // Takes a colour of the screen, which has no alpha.
    void Take(QColor color);

    int _alpha;
    ColorLine* _line;
};
