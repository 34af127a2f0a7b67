// SPDX-License-Identifier: MIT
// Draws the program's picture, a fan of colour cards, and writes it as a TGA file: make_picture FILE
//
// Drawn at eight times its size with the imaging library, then halved three times.
#include "raster/KSRaster.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <memory>
#include <numbers>
#include <vector>

namespace {

constexpr long kWidth = 140, kHeight = 100;
constexpr long kOversampling = 8;
constexpr KSPoint<double> kPivot(70, 79);

// A box on a card, in pixels of the picture: x across the card from its middle, y along it from the pivot.
struct card_box {
    double left, bottom, right, top, corner_radius;
};

// Draws in the coordinates of a card that is turned about the pivot.
class Card {
public:
    Card(KSRaster& canvas, double degrees) : _canvas(canvas), _angle(degrees * std::numbers::pi / 180) {}

    void Fill(const card_box& box, ks_color color, KSPoint<double> shift = {}) {
        std::vector<KSPoint<long>> outline;
        const double r = box.corner_radius;
        AddCorner(outline, box.right - r, box.top - r, r, 0, shift);
        AddCorner(outline, box.left + r, box.top - r, r, 90, shift);
        AddCorner(outline, box.left + r, box.bottom + r, r, 180, shift);
        AddCorner(outline, box.right - r, box.bottom + r, r, 270, shift);
        _canvas.SetHighColor(color);
        _canvas.FillPolygon(outline.data(), static_cast<long>(outline.size()));
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
        const double px = kPivot.x + shift.x + x * std::cos(_angle) + y * std::sin(_angle);
        const double py = kPivot.y + shift.y + x * std::sin(_angle) - y * std::cos(_angle);
        return {std::lround(px * kOversampling), std::lround(py * kOversampling)};
    }

    KSRaster& _canvas;
    double _angle;
};

ks_color mixed(ks_color color, int other, double share) {
    const auto mix = [&](int component) {
        return static_cast<std::uint8_t>(std::lround(component + (other - component) * share));
    };
    return {mix(color.red), mix(color.green), mix(color.blue)};
}

void draw_card(KSRaster& canvas, double degrees, ks_color color) {
    constexpr card_box kPaper = {-12, -9, 12, 68, 4};
    constexpr double kShadowEnd = 4;  // the shadows of all cards would add up where they meet
    Card card(canvas, degrees);
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

void draw_rivet(KSRaster& canvas) {
    const auto disc = [&](double dx, double dy, double radius, ks_color color) {
        const auto at = [](double value) { return std::lround(value * kOversampling); };
        canvas.SetHighColor(color);
        canvas.FillEllipse(at(kPivot.x + dx - radius), at(kPivot.y + dy - radius), at(kPivot.x + dx + radius),
                           at(kPivot.y + dy + radius));
    };
    disc(0, 0, 4.6, {120, 124, 134});
    disc(0, 0, 3.9, {198, 202, 210});
    disc(-0.8, -0.9, 2.2, {232, 235, 240});
}

std::unique_ptr<KSRaster> draw() {
    constexpr ks_color kColors[] = {{196, 62, 66},  {232, 132, 52}, {240, 196, 68}, {104, 172, 84},
                                    {54, 164, 168}, {77, 140, 236}, {136, 98, 190}};
    auto picture = std::make_unique<KSRaster>(
        KSRect<long>(0, 0, kWidth * kOversampling - 1, kHeight * kOversampling - 1));
    picture->SetDrawingMode(kMergeNormal);
    double degrees = -60;
    for (const ks_color& color : kColors) {
        draw_card(*picture, degrees, color);
        degrees += 20;
    }
    draw_rivet(*picture);
    for (long scale = kOversampling / 2; scale >= 1; scale /= 2)
        picture.reset(picture->CreateScaled(KSRect<long>(0, 0, kWidth * scale - 1, kHeight * scale - 1), true,
                                            kRasterInMemory));
    return picture;
}

using Pixel = std::array<unsigned char, 4>;  // blue, green, red, alpha: the order in a TGA file

Pixel file_pixel(std::uint32_t word) {
    const auto byte = [&](int shift) { return static_cast<unsigned char>(word >> shift); };
    return {byte(0), byte(8), byte(16), byte(24)};
}

// Appends one row as packets of up to 128 pixels: a run of one colour, or pixels as they are.
void pack_row(std::vector<unsigned char>& file, const std::vector<Pixel>& row) {
    const auto append = [&](const Pixel& pixel) { file.insert(file.end(), pixel.begin(), pixel.end()); };
    for (std::size_t start = 0; start < row.size();) {
        const std::size_t limit = std::min(row.size(), start + 128);
        std::size_t end = start + 1;
        while (end < limit && row[end] == row[start])
            ++end;
        if (end - start > 1) {
            file.push_back(static_cast<unsigned char>(127 + end - start));
            append(row[start]);
        } else {
            while (end < limit && (end + 1 == limit || row[end] != row[end + 1]))
                ++end;
            file.push_back(static_cast<unsigned char>(end - start - 1));
            std::for_each(row.begin() + static_cast<long>(start), row.begin() + static_cast<long>(end),
                          append);
        }
        start = end;
    }
}

// Truevision TGA of type 10: packed true colour, here with 8 bits of alpha, top row first.
std::vector<unsigned char> packed_tga(const KSRaster& picture) {
    std::vector<unsigned char> file = {0, 0, 10, 0, 0, 0, 0, 0, 0, 0, 0, 0, kWidth, 0, kHeight, 0, 32, 0x28};
    const auto* words = static_cast<const std::uint32_t*>(picture.Bits());
    for (long y = 0; y < kHeight; ++y) {
        std::vector<Pixel> row;
        for (long x = 0; x < kWidth; ++x)
            row.push_back(file_pixel(words[y * kWidth + x]));
        pack_row(file, row);
    }
    return file;
}

}  // namespace

int main(int argument_count, char** arguments) {
    std::FILE* file = argument_count == 2 ? std::fopen(arguments[1], "wb") : nullptr;
    if (!file) {
        std::fprintf(stderr, "usage: make_picture FILE\n");
        return 1;
    }
    const std::vector<unsigned char> bytes = packed_tga(*draw());
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return std::fclose(file) == 0 && written ? 0 : 1;
}
