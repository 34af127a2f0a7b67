// SPDX-License-Identifier: MIT
#include "display/surface.h"

#include "display/look.h"

#include <QPainter>
#include <QString>
#include <QWidget>

Surface::Surface(const QWidget& widget, QPainter* painter)
    : _widget(widget), _painter(painter), _metrics(widget.fontMetrics()) {
    SetHighPen(KS_PEN_TEXT);
}

void Surface::SetHighPen(ks_pen pen) {
    _color = look::Pen(pen, _widget.palette());
}

KSPoint<long> Surface::StringSize(const char* text, long length, long* ascent) {
    if (ascent)
        *ascent = _metrics.ascent();
    return {_metrics.horizontalAdvance(QString::fromUtf8(text, length)), _metrics.height()};
}

void Surface::DrawString(const char* text, long length, KSPoint<long> where) {
    if (!_painter)
        return;
    _painter->setPen(_color);
    _painter->drawText(QPoint(static_cast<int>(where.x), static_cast<int>(where.y)),
                       QString::fromUtf8(text, length));
}

void Surface::FillRect(KSRect<long> rect) {
    if (_painter && rect.IsValid())
        _painter->fillRect(static_cast<int>(rect.left), static_cast<int>(rect.top),
                           static_cast<int>(rect.PixelWidth()), static_cast<int>(rect.PixelHeight()), _color);
}
