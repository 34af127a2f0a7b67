// SPDX-License-Identifier: MIT
// Lays pictures out on a sheet.
#include "examples/sheet.h"

#include "examples/adapters/png_file.h"
#include "examples/font.h"
#include "merge/ks_compose.h"

#include <algorithm>
#include <cstdio>
#include <exception>

namespace {

constexpr long kMargin = 20;
constexpr long kGap = 16;
constexpr long kTitle = 3 * kTextHeight + 18;
constexpr long kLabel = 2 * kTextHeight + 14;

KSRect<long> sheet_frame(long columns, long rows, long width, long height) {
    return {0, 0, 2 * kMargin + columns * width + (columns - 1) * kGap - 1,
            2 * kMargin + kTitle + rows * (height + kLabel) - 1};
}

// Fills a rectangle with squares of two light greys.
void draw_chequers(KSRaster& raster, KSRect<long> area) {
    constexpr long kSquare = 8;
    raster.SetDrawingMode(kMergeCopy);
    for (long y = area.top; y <= area.bottom; y += kSquare)
        for (long x = area.left; x <= area.right; x += kSquare) {
            const bool dark = ((x - area.left) / kSquare + (y - area.top) / kSquare) % 2 != 0;
            raster.SetHighColor(dark ? ks_color{204, 204, 204} : ks_color{236, 236, 236});
            raster.FillRect(x, y, std::min(x + kSquare - 1, area.right),
                            std::min(y + kSquare - 1, area.bottom));
        }
}

}  // namespace

std::uint32_t* row_of(const KSRaster& raster, long y) {
    auto* bytes =
        static_cast<unsigned char*>(raster.Bits()) + (y - raster.Frame().top) * raster.BytesPerRow();
    return reinterpret_cast<std::uint32_t*>(bytes);
}

Sheet::Sheet(std::string_view title, long columns, long rows, long width, long height)
    : _columns(columns), _width(width), _height(height), _raster(sheet_frame(columns, rows, width, height)) {
    _raster.SetHighColor(kPaper);
    _raster.FillRect(_raster.Frame());
    draw_text(_raster, kMargin, kMargin, title, kInk, 3);
}

void Sheet::Add(const KSRaster& picture, std::string_view label) {
    const long left = kMargin + _used % _columns * (_width + kGap);
    const long top = kMargin + kTitle + _used / _columns * (_height + kLabel);
    ++_used;
    KSRaster cell({left, top, left + _width - 1, top + _height - 1});
    draw_chequers(cell, cell.Frame());
    ks_compose(cell, picture.Pixels().MovedTo({left, top}));
    ks_compose(_raster, cell, kMergeCopy);
    draw_text(_raster, left, top + _height + 6, label, kInk, 2);
}

int write_sheet(const Sheet& sheet, int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: %s FILE.png\n", arguments[0]);
        return 2;
    }
    try {
        write_png(sheet.Raster(), arguments[1]);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
