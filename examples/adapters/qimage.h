// SPDX-License-Identifier: MIT
// Rasters and Qt's images.
#pragma once

#include "raster/KSRaster.h"

#include <QImage>
#include <cstring>
#include <memory>

// Returns an image that shows the raster's own pixels, without a copy: what either draws, both hold, unless
// another QImage shares the view. A QImage that is shared copies the pixels before it is drawn on, so draw on
// the raster then. The format is ARGB32, whose colour is straight like the raster's. The image is valid as
// long as the raster lives.
inline QImage view_as_qimage(KSRaster& raster) {
    return QImage(static_cast<uchar*>(raster.Bits()), static_cast<int>(raster.Width()),
                  static_cast<int>(raster.Height()), raster.BytesPerRow(), QImage::Format_ARGB32);
}

// Returns a raster with its top-left pixel at (0, 0) and the pixels of an image of any format, premultiplied
// ones included; null for a null image.
inline std::unique_ptr<KSRaster> copy_from_qimage(const QImage& image) {
    if (image.isNull())
        return nullptr;
    const QImage straight = image.convertToFormat(QImage::Format_ARGB32);
    auto raster = std::make_unique<KSRaster>(KSRect<long>(0, 0, image.width() - 1, image.height() - 1));
    auto* rows = static_cast<unsigned char*>(raster->Bits());
    const auto row_bytes = static_cast<std::size_t>(raster->BytesPerRow());
    for (int y = 0; y < image.height(); ++y)
        std::memcpy(rows + static_cast<std::size_t>(y) * row_bytes, straight.constScanLine(y), row_bytes);
    return raster;
}
