// SPDX-License-Identifier: MIT
// Scaled, rotated and transformed copies, plain above bilinear: copies FILE.png
#include "examples/font.h"
#include "examples/sheet.h"
#include "merge/ks_compose.h"

#include <memory>

namespace {

constexpr long kSize = 200;

// A small badge of 48 x 48 pixels, transparent outside its disc.
std::unique_ptr<KSRaster> badge() {
    auto raster = std::make_unique<KSRaster>(KSRect<long>(0, 0, 47, 47));
    raster->SetHighColor(24, 60, 120, 255);
    raster->FillEllipse(0, 0, 46, 46);
    raster->SetHighColor(236, 240, 246, 255);
    raster->FillEllipse(4, 4, 42, 42);
    raster->SetHighColor(206, 70, 58, 255);
    raster->FillTriangle({23, 7}, {38, 34}, {8, 34});
    raster->SetHighColor(24, 60, 120, 255);
    raster->FillRect(10, 36, 36, 38);
    draw_text(*raster, 18, 21, "KS", {255, 255, 255}, 1);
    return raster;
}

// Returns the part of a raster that a cell shows, from (left, top) of its plane on.
std::unique_ptr<KSRaster> cut(const KSRaster& raster, long left, long top) {
    auto part = std::make_unique<KSRaster>(KSRect<long>(left, top, left + kSize - 1, top + kSize - 1));
    ks_compose(*part, raster, kMergeCopy);
    return part;
}

std::unique_ptr<KSRaster> enlarged(bool bilinear) {
    return std::unique_ptr<KSRaster>(
        badge()->CreateScaled({0, 0, kSize - 1, kSize - 1}, bilinear, kRasterInMemory));
}

std::unique_ptr<KSRaster> rotated(bool bilinear) {
    const KSPoint<double> corners[] = {{30, 30}, {169, 30}, {169, 169}, {30, 169}};
    const std::unique_ptr<KSRaster> copy(
        badge()->CreateScaled(corners[0], corners[1], corners[2], corners[3], bilinear, 0.5, {100, 100}));
    return cut(*copy, 0, 0);
}

std::unique_ptr<KSRaster> transformed(bool bilinear) {
    const std::unique_ptr<KSRaster> copy(
        badge()->CreateScaled({30, 20}, {188, 52}, {150, 186}, {8, 150}, bilinear, 0, {0, 0}));
    return cut(*copy, 0, 0);
}

// A test card made smaller: fine lines and rings show what each way of sampling keeps.
std::unique_ptr<KSRaster> reduced(bool bilinear) {
    KSRaster card({0, 0, 299, 299});
    card.SetHighColor(255, 255, 255, 255);
    card.FillRect(card.Frame());
    card.SetHighColor(38, 42, 50, 255);
    for (long radius = 4; radius < 148; radius += 5)
        card.StrokeEllipse(150 - radius, 150 - radius, 150 + radius, 150 + radius);
    for (long i = 0; i < 300; i += 15)
        card.StrokeLine(0, i, 299, 299 - i);
    return std::unique_ptr<KSRaster>(
        card.CreateScaled({0, 0, kSize - 1, kSize - 1}, bilinear, kRasterInMemory));
}

using Copy = std::unique_ptr<KSRaster> (*)(bool bilinear);

struct Column {
    const char* label;
    Copy copy;
};

constexpr Column kColumns[] = {
    {"enlarged", enlarged}, {"reduced", reduced}, {"rotated", rotated}, {"transformed", transformed}};

}  // namespace

int main(int count, char** arguments) {
    Sheet sheet("Copies: plain above, bilinear below", 4, 2, kSize, kSize);
    for (const bool bilinear : {false, true})
        for (const Column& column : kColumns)
            sheet.Add(*column.copy(bilinear),
                      std::string(column.label) + (bilinear ? ", bilinear" : ", plain"));
    return write_sheet(sheet, count, arguments);
}
