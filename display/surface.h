// SPDX-License-Identifier: MIT
// List items measure and draw themselves with a surface.
#pragma once

#include "toolkit/KSToolKit.h"

#include <QColor>
#include <QFontMetrics>

class QPainter;
class QWidget;

class Surface : public KSSurface {
public:
    // Draws with `painter` in its coordinates; without one it only measures. Font and palette are `widget`'s.
    explicit Surface(const QWidget& widget, QPainter* painter = nullptr);

    void SetHighPen(ks_pen pen) override;
    KSPoint<long> StringSize(const char* text, long length, long* ascent) override;
    void DrawString(const char* text, long length, KSPoint<long> where) override;
    void FillRect(KSRect<long> rect) override;

private:
    const QWidget& _widget;
    QPainter* _painter;
    QFontMetrics _metrics;
    QColor _color;
};

// Sets a control's surface for a scope, under the window's lock.
class SurfaceScope {
public:
    SurfaceScope(KSToolKit& control, Surface& surface) : _control(control) { control.SetSurface(&surface); }
    ~SurfaceScope() { _control.SetSurface(nullptr); }
    SurfaceScope(const SurfaceScope&) = delete;
    SurfaceScope& operator=(const SurfaceScope&) = delete;

private:
    KSToolKit& _control;
};
