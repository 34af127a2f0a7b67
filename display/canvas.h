// SPDX-License-Identifier: MIT
// Lines and areas in whole pixels of the screen, at any scale.
#pragma once

#include <QColor>
#include <QPainter>
#include <QRect>

// Draws with a painter in pixels of the screen while it lives. At a fractional scale a line of one pixel of
// the window would be lost or blurred; here it is a whole number of the screen's.
class Canvas {
public:
    explicit Canvas(QPainter& painter);
    ~Canvas() { _painter.restore(); }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    // The painter's rectangle in pixels of the screen, its edges rounded to whole ones.
    QRect Map(const QRect& rect) const;
    // As many pixels of the screen as make `distance` pixels of the window; 1 at least, unless that is 0.
    int Pixels(int distance) const;
    double Scale() const { return _scale; }
    QPainter& Painter() { return _painter; }

    // `rect` made smaller by so many lines on each side.
    QRect Inside(const QRect& rect, int lines = 1) const;

    void Fill(const QRect& rect, const QBrush& brush) { _painter.fillRect(rect, brush); }
    // A frame of one line; `cut` leaves out the corners.
    void Box(const QRect& rect, const QColor& color, bool cut = false);
    // A frame of one line, in one colour above and at the left, in another below and at the right.
    void Bevel(const QRect& rect, const QColor& top_left, const QColor& bottom_right);

private:
    QPainter& _painter;
    QTransform _to_screen;
    double _scale;
    int _line;
};
