// SPDX-License-Identifier: MIT
// Rectangles and single pixels.
#include "raster/KSRaster.h"
#include "raster/painter.h"

void KSRaster::FillRect(long left, long top, long right, long bottom) {
    ks_painter(*this).Fill(left, top, right, bottom);
}

void KSRaster::StrokeRect(long left, long top, long right, long bottom) {
    const ks_painter painter(*this);
    painter.Fill(left, top, right, top);
    painter.Fill(left, bottom, right, bottom);
    painter.Fill(left, top, left, bottom);
    painter.Fill(right, top, right, bottom);
}

void KSRaster::PutPixel(long x, long y) {
    ks_painter(*this).Plot(x, y);
}
