// SPDX-License-Identifier: MIT
// Every primitive, patterns, and what modes do with overlapping shapes: shapes FILE.png
#include "examples/sheet.h"
#include "merge/ks_compose.h"

#include <cmath>

namespace {

constexpr long kSize = 190;

using Draw = void (*)(KSRaster&);

struct Panel {
    const char* label;
    Draw draw;
};

constexpr ks_color kBlue{43, 92, 170}, kRed{206, 70, 58}, kYellow{240, 188, 60}, kGreen{52, 140, 96};

void fill_rects(KSRaster& raster) {
    const ks_color colours[] = {kBlue, kGreen, kYellow, kRed};
    for (long i = 0; i < 4; ++i) {
        raster.SetHighColor(colours[i]);
        raster.FillRect(20 + 40 * i, 150 - 35 * i, 49 + 40 * i, 169);
    }
}

void stroke_rects(KSRaster& raster) {
    raster.SetHighColor(kBlue);
    for (long i = 0; i < 80; i += 8)
        raster.StrokeRect(15 + i, 15 + i, 174 - i, 174 - i);
}

void lines(KSRaster& raster) {
    for (long i = 0; i <= 160; i += 10) {
        raster.SetHighColor(kRed);
        raster.StrokeLine(15, 15 + i, 15 + i, 175);
        raster.SetHighColor(kBlue);
        raster.StrokeLine(175, 175 - i, 175 - i, 15);
    }
}

void points(KSRaster& raster) {
    for (long i = 0; i < 1000; ++i) {
        const double angle = static_cast<double>(i) * 2.399963229728653;
        const double radius = 2.5 * std::sqrt(static_cast<double>(i));
        const long x = 95 + std::lround(radius * std::cos(angle)),
                   y = 95 + std::lround(radius * std::sin(angle));
        raster.SetHighColor(i % 3 == 0 ? kRed : i % 3 == 1 ? kBlue : kGreen);
        for (const KSPoint<long> dot : {KSPoint<long>(x, y), {x + 1, y}, {x, y + 1}, {x + 1, y + 1}})
            raster.PutPixel(dot);
    }
}

void stroke_ellipses(KSRaster& raster) {
    for (long i = 0; i < 80; i += 8) {
        raster.SetHighColor(kGreen);
        raster.StrokeEllipse(15 + i, 15, 175 - i, 175);
        raster.SetHighColor(kBlue);
        raster.StrokeEllipse(15, 15 + i, 175, 175 - i);
    }
}

void fill_ellipses(KSRaster& raster) {
    const ks_color colours[] = {kRed, kYellow, kGreen, kBlue};
    for (long i = 0; i < 4; ++i) {
        raster.SetHighColor(colours[i]);
        raster.FillEllipse(15 + 20 * i, 15 + 10 * i, 175 - 20 * i, 175 - 30 * i);
    }
}

void polygons(KSRaster& raster) {
    const ks_color colours[] = {kBlue, kGreen, kYellow, kRed};
    for (long ring = 0; ring < 4; ++ring) {
        KSPoint<long> corners[6];
        const double radius = 82 - 20 * static_cast<double>(ring);
        for (int i = 0; i < 6; ++i) {
            const double angle = (i + 0.5 * static_cast<double>(ring)) * 1.0471975511965976;
            corners[i] = {95 + std::lround(radius * std::cos(angle)),
                          95 + std::lround(radius * std::sin(angle))};
        }
        raster.SetHighColor(colours[ring]);
        raster.FillPolygon(corners, 6);
    }
}

void triangles(KSRaster& raster) {
    const ks_color colours[] = {kBlue, kRed, kYellow};
    for (long row = 0; row < 4; ++row)
        for (long i = 0; i <= row; ++i) {
            const long x = 95 - 20 * row + 40 * i, y = 17 + 40 * row;
            raster.SetHighColor(colours[(row + i) % 3]);
            raster.FillTriangle({x, y}, {x + 19, y + 38}, {x - 19, y + 38});
        }
}

void patterns(KSRaster& raster) {
    static const unsigned char kPatterns[][8] = {
        {0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55}, {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80},
        {0xFF, 0x80, 0x80, 0x80, 0xFF, 0x08, 0x08, 0x08}, {0x00, 0x66, 0xFF, 0xFF, 0x7E, 0x3C, 0x18, 0x00},
        {0x18, 0x24, 0x42, 0x81, 0x81, 0x42, 0x24, 0x18}, {0x99, 0xCC, 0x66, 0x33, 0x99, 0xCC, 0x66, 0x33},
    };
    for (long i = 0; i < 6; ++i) {
        raster.SetPattern(kPatterns[i]);
        raster.SetHighColor(i % 2 ? kRed : kBlue);
        raster.SetLowColor(i % 2 ? ks_color{250, 222, 190} : ks_color{208, 224, 244});
        raster.FillRect(16 + i % 2 * 84, 14 + i / 2 * 56, 89 + i % 2 * 84, 63 + i / 2 * 56);
    }
    raster.SetPattern(nullptr);
}

// Three discs that overlap, in one mode, on a ground.
void discs(KSRaster& raster, ks_color ground, ks_composition_mode mode, const ks_color (&colours)[3]) {
    raster.SetHighColor(ground);
    raster.FillRect(raster.Frame());
    const KSPoint<long> centres[] = {{95, 70}, {70, 115}, {120, 115}};
    for (int i = 0; i < 3; ++i) {
        KSRaster disc(raster.Frame());
        disc.SetHighColor(colours[i]);
        disc.FillEllipse(centres[i].x - 55, centres[i].y - 55, centres[i].x + 55, centres[i].y + 55);
        ks_compose(raster, disc, mode);
    }
}

void added(KSRaster& raster) {
    discs(raster, {16, 18, 24}, kMergeAdd, {{235, 40, 40}, {30, 200, 60}, {40, 70, 240}});
}

void multiplied(KSRaster& raster) {
    discs(raster, {255, 255, 255}, kMergeMultiply, {{0, 190, 230}, {235, 60, 160}, {255, 225, 30}});
}

void erased(KSRaster& raster) {
    raster.SetHighColor(kBlue);
    raster.FillRect(raster.Frame());
    raster.SetDrawingMode(kMergeErase);
    for (long i = 0; i < 8; ++i) {
        raster.SetHighColor(0, 0, 0, 32 + 31 * i);
        raster.FillRect(15 + 20 * i, 25, 34 + 20 * i, 165);
    }
}

constexpr Panel kPanels[] = {
    {"FillRect", fill_rects},
    {"StrokeRect", stroke_rects},
    {"StrokeLine", lines},
    {"PutPixel", points},
    {"StrokeEllipse", stroke_ellipses},
    {"FillEllipse", fill_ellipses},
    {"FillPolygon", polygons},
    {"FillTriangle", triangles},
    {"SetPattern", patterns},
    {"Add", added},
    {"Multiply", multiplied},
    {"Erase", erased},
};

}  // namespace

int main(int count, char** arguments) {
    Sheet sheet("Shapes, patterns and modes", 4, 3, kSize, kSize);
    for (const Panel& panel : kPanels) {
        KSRaster raster({0, 0, kSize - 1, kSize - 1});
        raster.SetHighColor(255, 255, 255, 255);
        raster.FillRect(raster.Frame());
        panel.draw(raster);
        sheet.Add(raster, panel.label);
    }
    return write_sheet(sheet, count, arguments);
}
