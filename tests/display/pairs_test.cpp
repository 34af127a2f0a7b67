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
class Pairs : public ::testing::Test {
protected:
    void SetUp() override { _server.Prepare(false); }

private:
    ScopedVariable _platform{"QT_QPA_PLATFORM", "offscreen"};
    DisplayServer _server;
};

TEST_F(Pairs, OfBothPalettesAreReadableAndASetOfOneColorIsNot) {
    for (const auto& palette : ks_palettes) {
        ks_look look;
        look.pens = palette;
        for (const pen_pair& pair : MeasurePairs(Worn(look, {}, Worn::Ink::kTrue)))
            EXPECT_FALSE(pair.IsHard()) << pair.ink << " on " << pair.ground << ": " << pair.contrast;
        look.pens.fill(ks_color(90, 90, 90));
        for (const pen_pair& pair : MeasurePairs(Worn(look, {}, Worn::Ink::kTrue)))
            EXPECT_TRUE(pair.IsHard() && pair.contrast == 1) << pair.ink << " on " << pair.ground;
    }
}

TEST_F(Pairs, StartWithTheWorst) {
    ks_look look;
    look.pens = ks_palettes[kDefaultPalette];
    look.pens[KS_PEN_MARK] = ks_color(233, 233, 230);
    look.pens[KS_PEN_PAINT] = ks_color(0, 0, 90);  // text on it misses most of what it needs
    const auto pairs = MeasurePairs(Worn(look, {}, Worn::Ink::kTrue));
    EXPECT_EQ(std::pair(pairs[0].ink, pairs[0].ground), std::pair(KS_PEN_TEXT, KS_PEN_PAINT));
    EXPECT_EQ(pairs[1].ink, KS_PEN_MARK);
    EXPECT_TRUE(std::ranges::is_sorted(pairs, {}, [](const auto& p) { return p.contrast / p.least; }));
}

// The grey of each lightness is known without the colour space: no grey nearer to the start may pass.
TEST(NearestReadable, IsTheNearestGreyThatPasses) {
    for (const int ground : {0, 60, 119, 128, 200, 255})
        for (const int start : {0, 50, 118, 130, 190, 255})
            for (const double least : {3.0, 4.5, 7.0}) {
                const QColor below(ground, ground, ground), from(start, start, start);
                const QColor found = NearestReadable(from, below, least);
                const double reached = Contrast(found, below);
                const auto lightness = [](const QColor& color) { return std::cbrt(Luminance(color)); };
                const double moved = std::abs(lightness(found) - lightness(from));
                double best = 0;
                for (int grey = 0; grey < 256; ++grey) {
                    const QColor other(grey, grey, grey);
                    best = std::max(best, Contrast(other, below));
                    EXPECT_TRUE(Contrast(other, below) < least ||
                                std::abs(lightness(other) - lightness(from)) > moved - 0.008)
                        << start << " on " << ground << ": " << found.red() << ", nearer " << grey;
                }
                EXPECT_TRUE(reached >= least || (best < least && found == InkFor(below)))
                    << start << " on " << ground << ": " << reached;
            }
}

TEST(NearestReadable, KeepsTheHueAndWhatPasses) {
    const QColor red(200, 0, 0), white(255, 255, 255);
    EXPECT_EQ(NearestReadable(red, white, 4.5), red);
    const QColor pale = NearestReadable(QColor(255, 150, 150), white, 4.5);
    EXPECT_GE(Contrast(pale, white), 4.5);
    EXPECT_LT(std::abs(pale.green() - pale.blue()), 16);
    EXPECT_GT(pale.red(), pale.green() + 60);
}

}  // namespace
