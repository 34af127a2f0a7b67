// SPDX-License-Identifier: MIT
// The pairs of pens that meet on screen, and the colours that mend them.
#include "display/color_vision.h"
#include "display/contrast.h"
#include "display/pairs.h"
#include "tests/display/shown_program.h"
#include "toolkit/ks_palettes.h"

#include <cmath>

namespace {

// A look has bitmaps, and these need the application object.
TEST(Pairs, OfBothPalettesAreReadableAndTheWorstComesFirst) {
    const ScopedVariable platform("QT_QPA_PLATFORM", "offscreen");
    DisplayServer server;
    server.Prepare(false);
    for (const auto& palette : ks_palettes) {
        ks_look look;
        look.pens = palette;
        for (const pen_pair& pair : MeasurePairs(Worn(look, {}, Worn::Ink::kTrue)))
            EXPECT_FALSE(pair.IsHard()) << pair.ink << " on " << pair.ground << ": " << pair.contrast;
        look.pens[KS_PEN_PAINT] = ks_color(0, 0, 90);
        const pen_pair worst = MeasurePairs(Worn(look, {}, Worn::Ink::kTrue)).front();
        EXPECT_TRUE(worst.IsHard() && worst.ink == KS_PEN_TEXT && worst.ground == KS_PEN_PAINT);
    }
}

// The nearest grey is found by scanning all of them.
TEST(NearestReadable, IsTheNearestGreyThatPasses) {
    const auto lightness = [](const QColor& color) { return std::cbrt(Luminance(color)); };
    for (const int ground : {0, 60, 119, 200, 255})
        for (const int start : {0, 50, 118, 130, 255})
            for (const double least : {3.0, 4.5, 7.0}) {
                const QColor below(ground, ground, ground), from(start, start, start);
                double nearest = 2;
                for (int grey = 0; grey < 256; ++grey)
                    if (const QColor other(grey, grey, grey); Contrast(other, below) >= least)
                        nearest = std::min(nearest, std::abs(lightness(other) - lightness(from)));
                const QColor found = NearestReadable(from, below, least);
                EXPECT_TRUE(nearest > 1 ? found == InkFor(below)
                                        : Contrast(found, below) >= least &&
                                              std::abs(lightness(found) - lightness(from)) < nearest + 0.008)
                    << start << " on " << ground << ": " << found.red();
            }
}

}  // namespace
