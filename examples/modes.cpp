// SPDX-License-Identifier: MIT
// All composition modes on the same two images: modes FILE.png
#include "examples/sheet.h"
#include "merge/ks_compose.h"

#include <cmath>
#include <cstdlib>

namespace {

constexpr long kWidth = 200, kHeight = 150;

std::uint32_t word(double red, double green, double blue, double alpha) {
    const auto channel = [](double value) {
        return static_cast<std::uint8_t>(std::lround(std::fmin(std::fmax(value, 0), 255)));
    };
    return ks_pixel_word({channel(red), channel(green), channel(blue), channel(alpha)});
}

// A landscape at dusk: opaque but for a band at its right edge that fades away.
void draw_destination(KSRaster& raster) {
    for (long y = 0; y < kHeight; ++y) {
        const double depth = static_cast<double>(y) / kHeight;
        for (long x = 0; x < kWidth; ++x) {
            const double cover = std::fmin(1, static_cast<double>(kWidth - 1 - x) / 40);
            row_of(raster, y)[x] = word(70 + 185 * depth, 110 + 70 * depth, 190 - 60 * depth, 255 * cover);
        }
    }
    KSRaster hills({0, 0, kWidth - 1, kHeight - 1});
    hills.SetHighColor(255, 236, 170, 255);
    hills.FillEllipse(120, 26, 156, 62);
    const ks_color greens[] = {{88, 112, 120}, {64, 98, 84}, {38, 66, 50}};
    for (long ridge = 0; ridge < 3; ++ridge) {
        hills.SetHighColor(greens[ridge]);
        for (long x = 0; x < kWidth; ++x) {
            const double wave = std::sin(static_cast<double>(x) / (34 - 7 * static_cast<double>(ridge)) +
                                         2.2 * static_cast<double>(ridge));
            hills.FillRect(x, 78 + 22 * ridge - std::lround(12 * wave), x, kHeight - 1);
        }
    }
    // Only where the landscape is: the hills take over its colour, not its alpha.
    for (long y = 0; y < kHeight; ++y)
        for (long x = 0; x < kWidth; ++x) {
            std::uint32_t& pixel = row_of(raster, y)[x];
            const std::uint32_t over = row_of(hills, y)[x];
            if (over >> 24)
                pixel = (pixel & 0xFF000000) | (over & 0xFFFFFF);
        }
}

// A disc of all hues whose inside is opaque and whose rim fades away, beside a stripe of greys.
void draw_source(KSRaster& raster) {
    constexpr double kTurn = 6.283185307179586;
    for (long y = 0; y < kHeight; ++y)
        for (long x = 0; x < kWidth; ++x) {
            const double dx = static_cast<double>(x) - 84, dy = static_cast<double>(y) - 75;
            const double radius = std::hypot(dx, dy), hue = std::atan2(dy, dx) / kTurn * 6 + 3;
            const auto channel = [&](double shift) {
                const double distance = std::fabs(std::fmod(hue + shift, 6) - 3);
                return 255 * std::fmin(std::fmax(distance - 1, 0), 1) * std::fmin(radius / 40, 1) +
                       255 * std::fmax(1 - radius / 40, 0);
            };
            row_of(raster, y)[x] = word(channel(0), channel(4), channel(2), 255 * (70 - radius) / 18);
            const double grey = 2.04 * static_cast<double>(137 - y);
            if (x >= 164 && x < 190 && y >= 12 && y < 138)
                row_of(raster, y)[x] = word(grey, grey, grey, 255);
        }
}

}  // namespace

int main(int count, char** arguments) {
    KSRaster destination({0, 0, kWidth - 1, kHeight - 1}), source({0, 0, kWidth - 1, kHeight - 1});
    draw_destination(destination);
    draw_source(source);
    std::srand(1);  // for Dissolve

    Sheet sheet("The composition modes", 6, 4, kWidth, kHeight);
    sheet.Add(destination, "(destination)");
    sheet.Add(source, "(source)");
    for (std::int32_t mode = 0; mode < kMergeCount; ++mode) {
        KSRaster result({0, 0, kWidth - 1, kHeight - 1});
        result.CopyFrom(&destination);
        ks_compose(result, source, static_cast<ks_composition_mode>(mode));
        sheet.Add(result, KSMerge::composition_label[mode]);
    }
    return write_sheet(sheet, count, arguments);
}
