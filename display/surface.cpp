// SPDX-License-Identifier: MIT
#include "display/surface.h"

#include "display/draw.h"
#include "display/pen_style.h"

#include <QPainter>
#include <QString>
#include <QWidget>

Surface::Surface(const QWidget& widget, QPainter* painter)
    : _painter(painter), _metrics(widget.fontMetrics()) {}

void Surface::SetHighPen(ks_pen pen) {
    _pen = pen;
}

KSPoint<long> Surface::StringSize(const char* text, long length, long* ascent) {
    if (ascent)
        *ascent = _metrics.ascent();
    return {_metrics.horizontalAdvance(QString::fromUtf8(text, length)), _metrics.height()};
}

void Surface::DrawString(const char* text, long length, KSPoint<long> where) {
    if (!_painter)
        return;
    const Worn& worn = PenStyle::Instance().Wearing();
    _painter->setPen(worn.On(_pen, worn.Ground(_level)));
    _painter->drawText(QPoint(static_cast<int>(where.x), static_cast<int>(where.y)),
                       QString::fromUtf8(text, length));
}

void Surface::FillRect(KSRect<long> rect) {
    if (!_painter || !rect.IsValid())
        return;
    const Worn& worn = PenStyle::Instance().Wearing();
    const QRect area(QPoint(static_cast<int>(rect.left), static_cast<int>(rect.top)),
                     QPoint(static_cast<int>(rect.right), static_cast<int>(rect.bottom)));
    // The list's level is there already, under all items.
    if (_pen == KS_PEN_BG_SELECTED)
        draw::Selection(*_painter, worn, area);
    else if (_pen != KS_PEN_BG_LIST)
        _painter->fillRect(area, worn.Pen(_pen));
    if (_pen <= KS_PEN_BG_SELECTED)
        _level = _pen;
}
