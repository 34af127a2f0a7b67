// SPDX-License-Identifier: MIT
#include "display/pairs.h"

#include "display/contrast.h"

#include <algorithm>
#include <initializer_list>
#include <tuple>

namespace {

constexpr double kText = 4.5, kShape = 3;

struct meeting {
    ks_pen ink, ground;
    double least;
};

constexpr meeting kMeetings[] = {
    {KS_PEN_TEXT, KS_PEN_BG_LOW, kText},
    {KS_PEN_TEXT, KS_PEN_BG_MED, kText},
    {KS_PEN_TEXT, KS_PEN_BG_HIGH, kText},
    {KS_PEN_TEXT, KS_PEN_BG_EDIT, kText},
    {KS_PEN_TEXT, KS_PEN_BG_READ, kText},
    {KS_PEN_TEXT, KS_PEN_BG_LIST, kText},
    {KS_PEN_TEXT, KS_PEN_BG_BUTTON, kText},
    {KS_PEN_TEXT, KS_PEN_BG_SELECTED, kText},
    {KS_PEN_TEXT, KS_PEN_PAINT, kText},
    {KS_PEN_TEXT_FG_MARKED, KS_PEN_TEXT_BG_MARKED, kText},
    {KS_PEN_TEXT_BG_CURSOR, KS_PEN_TEXT_FG_CURSOR, kText},
    {KS_PEN_MARK, KS_PEN_BG_LOW, kShape},
    {KS_PEN_MARK, KS_PEN_BG_HIGH, kShape},
    {KS_PEN_MARK, KS_PEN_BG_EDIT, kShape},
    {KS_PEN_MARK, KS_PEN_BG_LIST, kShape},
    {KS_PEN_MARK, KS_PEN_BG_BUTTON, kShape},
};

// The pen of these that stands out most, with its contrast.
pen_pair BestOf(const Worn& worn, std::initializer_list<ks_pen> pens, ks_pen ground) {
    const QColor below = worn.Ground(ground);
    pen_pair best{*pens.begin(), ground, 0, kShape};
    for (const ks_pen pen : pens)
        if (const double contrast = Contrast(Over(worn.Pen(pen), below), below); contrast > best.contrast)
            best = {pen, ground, contrast, kShape};
    return best;
}

}  // namespace

std::vector<pen_pair> MeasurePairs(const Worn& worn) {
    std::vector<pen_pair> pairs;
    for (const meeting& m : kMeetings) {
        const QColor ground = worn.Ground(m.ground);
        pairs.push_back({m.ink, m.ground, Contrast(Over(worn.Pen(m.ink), ground), ground), m.least});
    }
    // Paint lies on the High level, where titles are.
    pairs.push_back(BestOf(worn, {KS_PEN_PAINT, KS_PEN_PAINTDARK, KS_PEN_PAINTSHINE}, KS_PEN_BG_HIGH));
    for (int level = KS_PEN_BG_LOW; level <= KS_PEN_BG_SELECTED; ++level)
        pairs.push_back(BestOf(worn, {KS_PEN_DARK, KS_PEN_SHINE, KS_PEN_HALFDARK, KS_PEN_HALFSHINE},
                               static_cast<ks_pen>(level)));
    std::ranges::sort(pairs, {}, [](const pen_pair& pair) {
        return std::tuple(pair.contrast / pair.least, pair.ink, pair.ground);
    });
    return pairs;
}
