// SPDX-License-Identifier: MIT
// Rasters and QImages show the same pixels.
#include "examples/adapters/qimage.h"

#include <gtest/gtest.h>

namespace {

TEST(QImageAdapter, ShowsTheRastersOwnPixels) {
    KSRaster raster({5, 5, 12, 8});
    QImage view = view_as_qimage(raster);
    raster.SetHighColor(10, 20, 30, 40);
    raster.PutPixel(6, 7);
    EXPECT_EQ(qRgba(10, 20, 30, 40), view.pixel(1, 2));
    view.setPixel(2, 3, qRgba(1, 2, 3, 4));
    EXPECT_EQ(0x04010203u, static_cast<const std::uint32_t*>(raster.Bits())[3 * 8 + 2]);
}

TEST(QImageAdapter, CopiesImagesOfAnyFormat) {
    QImage image(3, 2, QImage::Format_ARGB32);
    image.fill(qRgb(9, 8, 7));
    // Three bytes a pixel leave a gap behind each row.
    for (const auto format : {QImage::Format_ARGB32, QImage::Format_RGBA8888, QImage::Format_RGB888}) {
        const auto raster = copy_from_qimage(image.convertToFormat(format));
        EXPECT_EQ(0xFF090807u, static_cast<const std::uint32_t*>(raster->Bits())[5]) << format;
    }
    image.fill(qRgba(200, 100, 50, 128));
    const auto raster = copy_from_qimage(image.convertToFormat(QImage::Format_ARGB32_Premultiplied));
    const std::uint32_t pixel = static_cast<const std::uint32_t*>(raster->Bits())[5];
    EXPECT_EQ(128u, pixel >> 24);
    EXPECT_NEAR(200, static_cast<int>(pixel >> 16 & 255), 1);
    EXPECT_EQ(nullptr, copy_from_qimage(QImage()));
}

}  // namespace
