// SPDX-License-Identifier: MIT
#include "display/look.h"

#include <QMargins>
#include <QSize>
#include <QWidget>

#include <cmath>

double look::BoundedPoints(double points, double least, double most) {
    return std::fmin(std::fmax(points, least), most);
}

QMargins look::FrameMargins() {
    return {kGap, kGap - 3, kGap, kGap - 2};
}

QSize look::SampleSize(const QWidget& widget) {
    const int height = widget.fontMetrics().height() + 8;
    return {height * 5 / 2, height};
}
