// SPDX-License-Identifier: MIT
#include "display/canvas.h"

#include <algorithm>
#include <cmath>

Canvas::Canvas(QPainter& painter)
    : _painter(painter),
      _to_screen(painter.deviceTransform()),
      _scale(_to_screen.m11()),
      _line(std::max(1, static_cast<int>(_scale))) {
    painter.save();
    // What the screen adds to the painter's own transformation is taken back.
    painter.setWorldTransform(painter.worldTransform() * _to_screen.inverted());
    painter.setRenderHint(QPainter::Antialiasing, false);
}

QRect Canvas::Map(const QRect& rect) const {
    const QRectF mapped = _to_screen.mapRect(QRectF(rect));
    const auto round = [](double edge) { return static_cast<int>(std::lround(edge)); };
    return QRect(QPoint(round(mapped.left()), round(mapped.top())),
                 QPoint(round(mapped.right()) - 1, round(mapped.bottom()) - 1));
}

int Canvas::Pixels(int distance) const {
    return distance == 0 ? 0 : std::max(1, static_cast<int>(std::lround(distance * _scale)));
}

QRect Canvas::Inside(const QRect& rect, int lines) const {
    const int d = lines * _line;
    return rect.adjusted(d, d, -d, -d);
}

void Canvas::Box(const QRect& rect, const QColor& color, bool cut) {
    const int k = cut ? _line : 0;
    const QRect inner = Inside(rect);
    Fill(QRect(rect.left() + k, rect.top(), rect.width() - 2 * k, _line), color);
    Fill(QRect(rect.left() + k, inner.bottom() + 1, rect.width() - 2 * k, _line), color);
    Fill(QRect(rect.left(), inner.top(), _line, inner.height()), color);
    Fill(QRect(inner.right() + 1, inner.top(), _line, inner.height()), color);
}

void Canvas::Bevel(const QRect& rect, const QColor& top_left, const QColor& bottom_right) {
    const QRect inner = Inside(rect);
    Fill(QRect(rect.left(), rect.top(), rect.width() - _line, _line), top_left);
    Fill(QRect(rect.left(), inner.top(), _line, inner.height()), top_left);
    Fill(QRect(rect.left(), inner.bottom() + 1, rect.width(), _line), bottom_right);
    Fill(QRect(inner.right() + 1, rect.top(), _line, rect.height() - _line), bottom_right);
}
