// SPDX-License-Identifier: MIT
// A page as a scanner sees it, before and after NoiseRemover: despeckle FILE.png
#include "bitmaptools/KSBitmapTools.h"
#include "examples/font.h"
#include "examples/sheet.h"

#include <cstdint>
#include <memory>
#include <random>
#include <vector>

namespace {

constexpr long kWidth = 440, kHeight = 330;
constexpr ks_color kPage{246, 242, 230}, kPrint{40, 38, 44};

// One byte a pixel: 0 paper, 1 ink.
using Page = std::vector<std::uint8_t>;

// A printed page with a heading, lines of text and a figure.
Page printed_page() {
    KSRaster raster({0, 0, kWidth - 1, kHeight - 1});
    draw_text(raster, 24, 20, "On specks and scans", kPrint, 3);
    const char* const lines[] = {
        "A scanner sees more than was printed:",    "dust on the glass, grain of the paper.",
        "A speck is a pixel that has no neighbour", "of its value and few like it around. It",
        "takes the value of what lies beside it.",  "Letters stay: their pixels have company."};
    for (long i = 0; i < 6; ++i)
        draw_text(raster, 24, 62 + 20 * i, lines[i], kPrint, 2);
    raster.StrokeRect(24, 196, 415, 308);
    raster.FillEllipse(44, 208, 134, 298);
    raster.FillTriangle({220, 206}, {276, 298}, {164, 298});
    for (long i = 0; i < 90; i += 6)
        raster.FillRect(306, 208 + i, 394, 210 + i);
    Page page;
    for (long y = 0; y < kHeight; ++y)
        for (long x = 0; x < kWidth; ++x)
            page.push_back(row_of(raster, y)[x] != 0);
    return page;
}

// Turns about one pixel in seventy over.
void add_specks(Page& page) {
    std::mt19937 random(20);
    for (std::uint8_t& pixel : page)
        if (random() % 70 == 0)
            pixel = !pixel;
}

std::unique_ptr<KSRaster> shown(const Page& page) {
    auto raster = std::make_unique<KSRaster>(KSRect<long>(0, 0, kWidth - 1, kHeight - 1));
    for (long y = 0; y < kHeight; ++y)
        for (long x = 0; x < kWidth; ++x)
            row_of(*raster, y)[x] =
                ks_pixel_word(page[static_cast<std::size_t>(y * kWidth + x)] ? kPrint : kPage);
    return raster;
}

}  // namespace

int main(int count, char** arguments) {
    Page page = printed_page();
    add_specks(page);
    Sheet sheet("NoiseRemover: specks go, letters stay", 2, 1, kWidth, kHeight);
    sheet.Add(*shown(page), "scanned");
    KSBitmapTools::NoiseRemover(page.data(), kWidth, kHeight, 2, 255);
    sheet.Add(*shown(page), "cleaned (radius 2, threshold 255)");
    return write_sheet(sheet, count, arguments);
}
