// SPDX-License-Identifier: MIT
// Draws a fan of colour cards: the program's picture as a TGA file, or its icon as a PNG file of SIZE x SIZE
// pixels.
//
// Drawn at eight times its size with the imaging library, then halved three times.
#include "raster/KSRaster.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <numbers>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#define STB_IMAGE_WRITE_STATIC
#define STB_IMAGE_WRITE_IMPLEMENTATION
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_image_write.h>
#pragma GCC diagnostic pop

namespace {

constexpr long kOversampling = 8;

// A picture's size in pixels, where on it the cards are joined, and how many pixels a unit of the cards has.
struct sheet {
    long width, height;
    KSPoint<double> pivot;
    double unit;
};

constexpr sheet kPicture = {140, 100, {70, 79}, 1};

// The fan lies as in nymbrel-config.svg.
constexpr sheet icon_sheet(long size) {
    const double unit = static_cast<double>(size) / 128;
    return {size, size, {64 * unit, 92 * unit}, unit};
}

// A drawing of a sheet, oversampled.
struct canvas {
    const sheet& size;
    KSRaster raster;

    explicit canvas(const sheet& sheet)
        : size(sheet), raster({0, 0, sheet.width * kOversampling - 1, sheet.height * kOversampling - 1}) {
        raster.SetDrawingMode(kMergeNormal);
    }

    // The pixel that lies so many units right of the pivot and below it.
    KSPoint<long> At(double x, double y) const {
        return {std::lround((size.pivot.x + x * size.unit) * kOversampling),
                std::lround((size.pivot.y + y * size.unit) * kOversampling)};
    }
};

// A box on a card, in units: x across the card from its middle, y along it from the pivot.
struct card_box {
    double left, bottom, right, top, corner_radius;
};

// Draws in the coordinates of a card that is turned about the pivot.
class Card {
public:
    Card(canvas& target, double degrees) : _canvas(target), _angle(degrees * std::numbers::pi / 180) {}

    void Fill(const card_box& box, ks_color color, KSPoint<double> shift = {}) {
        std::vector<KSPoint<long>> outline;
        const double r = box.corner_radius;
        AddCorner(outline, box.right - r, box.top - r, r, 0, shift);
        AddCorner(outline, box.left + r, box.top - r, r, 90, shift);
        AddCorner(outline, box.left + r, box.bottom + r, r, 180, shift);
        AddCorner(outline, box.right - r, box.bottom + r, r, 270, shift);
        _canvas.raster.SetHighColor(color);
        _canvas.raster.FillPolygon(outline.data(), static_cast<long>(outline.size()));
    }

private:
    void AddCorner(std::vector<KSPoint<long>>& outline, double x, double y, double radius, int first_degree,
                   KSPoint<double> shift) const {
        for (int degree = first_degree; degree <= first_degree + 90; degree += 10) {
            const double a = degree * std::numbers::pi / 180;
            outline.push_back(OnCanvas(x + radius * std::cos(a), y + radius * std::sin(a), shift));
        }
    }

    KSPoint<long> OnCanvas(double x, double y, KSPoint<double> shift) const {
        return _canvas.At(shift.x + x * std::cos(_angle) + y * std::sin(_angle),
                          shift.y + x * std::sin(_angle) - y * std::cos(_angle));
    }

    canvas& _canvas;
    double _angle;
};

ks_color mixed(ks_color color, int other, double share) {
    const auto mix = [&](int component) {
        return static_cast<std::uint8_t>(std::lround(component + (other - component) * share));
    };
    return {mix(color.red), mix(color.green), mix(color.blue)};
}

void draw_card(canvas& target, double degrees, ks_color color) {
    constexpr card_box kPaper = {-12, -9, 12, 68, 4};
    constexpr double kShadowEnd = 4;  // the shadows of all cards would add up where they meet
    Card card(target, degrees);
    for (int softness = 4; softness >= 1; --softness) {
        const double grow = softness * 0.6;
        card.Fill({kPaper.left - grow, kShadowEnd, kPaper.right + grow, kPaper.top + grow, 4 + grow},
                  {20, 24, 40, 14}, {0.6, 1.4});
    }
    card.Fill(kPaper, {190, 192, 198});
    card.Fill({kPaper.left + 0.6, kPaper.bottom + 0.6, kPaper.right - 0.6, kPaper.top - 0.6, 3.5},
              {252, 252, 250});
    card.Fill({-9, 52, 9, 65, 2}, mixed(color, 255, 0.45));
    card.Fill({-9, 37.5, 9, 50.5, 2}, color);
    card.Fill({-9, 23, 9, 36, 2}, mixed(color, 0, 0.25));
    card.Fill({-6, 17.5, 6, 19, 0.7}, {178, 180, 188});
    card.Fill({-6, 14, 2, 15.5, 0.7}, {206, 208, 214});
}

void draw_rivet(canvas& target) {
    const auto disc = [&](double dx, double dy, double radius, ks_color color) {
        const KSPoint<long> from = target.At(dx - radius, dy - radius),
                            to = target.At(dx + radius, dy + radius);
        target.raster.SetHighColor(color);
        target.raster.FillEllipse(from.x, from.y, to.x, to.y);
    };
    disc(0, 0, 4.6, {120, 124, 134});
    disc(0, 0, 3.9, {198, 202, 210});
    disc(-0.8, -0.9, 2.2, {232, 235, 240});
}

KSRaster draw(const sheet& size) {
    constexpr ks_color kColors[] = {{196, 62, 66},  {232, 132, 52}, {240, 196, 68}, {104, 172, 84},
                                    {54, 164, 168}, {77, 140, 236}, {136, 98, 190}};
    canvas target(size);
    double degrees = -60;
    for (const ks_color& color : kColors) {
        draw_card(target, degrees, color);
        degrees += 20;
    }
    draw_rivet(target);
    for (long scale = kOversampling / 2; scale >= 1; scale /= 2) {
        const KSRect<long> half(0, 0, size.width * scale - 1, size.height * scale - 1);
        target.raster =
            std::move(*std::unique_ptr<KSRaster>(target.raster.CreateScaled(half, true, kRasterInMemory)));
    }
    return std::move(target.raster);
}

// The pixels in the order of the files' writers: red, green, blue, alpha.
std::vector<unsigned char> bytes_of(const KSRaster& raster) {
    std::vector<unsigned char> bytes;
    for (const std::uint32_t word :
         std::span(raster.Pixels().first, static_cast<std::size_t>(raster.Width() * raster.Height())))
        for (const int shift : {16, 8, 0, 24})
            bytes.push_back(static_cast<unsigned char>(word >> shift));
    return bytes;
}

std::optional<sheet> wanted_sheet(int count, char** arguments) {
    if (count == 2)
        return kPicture;
    if (count != 3)
        return std::nullopt;
    const char* end = arguments[2] + std::strlen(arguments[2]);
    long size = 0;
    const auto [rest, fault] = std::from_chars(arguments[2], end, size);
    if (fault != std::errc() || rest != end || size < 8 || size > 1024)
        return std::nullopt;
    return icon_sheet(size);
}

}  // namespace

int main(int count, char** arguments) {
    const std::optional<sheet> size = wanted_sheet(count, arguments);
    if (!size) {
        std::fprintf(stderr,
                     "usage: make_picture PICTURE.tga\n       make_picture ICON.png SIZE   (8 to 1024)\n");
        return 2;
    }
    const std::vector<unsigned char> bytes = bytes_of(draw(*size));
    const int width = static_cast<int>(size->width), height = static_cast<int>(size->height);
    const bool is_written = count == 2
                                ? stbi_write_tga(arguments[1], width, height, 4, bytes.data())
                                : stbi_write_png(arguments[1], width, height, 4, bytes.data(), width * 4);
    if (!is_written)
        std::fprintf(stderr, "make_picture cannot write %s\n", arguments[1]);
    return is_written ? 0 : 1;
}
