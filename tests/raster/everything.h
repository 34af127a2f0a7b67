// SPDX-License-Identifier: MIT
// Calls that a raster takes whatever its pixels and its frame are.
#pragma once

#include "exchange/BBitmap.h"
#include "exchange/KSMessage.h"
#include "raster/KSRaster.h"
#include "tests/raster/shapes.h"

#include <memory>

// Draws, converts, moves and copies.
inline void CallEverything(KSRaster& raster) {
    for (int shape = 0; shape < kShapeCount; shape++)
        Draw(raster, static_cast<Shape>(shape), {{0, 0}, {9, 5}, {0, 9}});
    raster.FillPolygon(nullptr, -3);
    raster.Lock();
    raster.InitEmpty();
    raster.Unlock();
    raster.FillAlpha(7);
    raster.SwapEndian();
    raster.ResetOptmizedFrame();
    raster.Bounds();
    raster.OffsetTo(7, 7);
    raster.OffsetBy(1, 1);

    KSMessage archive, read;
    raster.Archive(&archive);
    read.Unflatten(archive.Flatten());
    KSRaster restored(&read), bitmap({0, 0, 8, 8}, "name", KS_RGBA_COLOR_SPACE, kRasterInBBitmap),
        adopted(new BBitmap(BRect(0, 0, 8, 8), B_RGB32), "name");
    const std::unique_ptr<KSRaster> duplicate(raster.DuplicateRaster()),
        scaled(raster.CreateScaled(rect(0, 0, 3, 20), true, kRasterInMemory)),
        turned(raster.CreateScaled({0, 0}, {9, 1}, {9, 9}, {0, 9}, true, 0.5, {3, 3}));
    restored.CopyFrom(&bitmap);
    adopted.CopyFrom(&raster);
}
