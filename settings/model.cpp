// SPDX-License-Identifier: MIT
#include "settings/model.h"

#include "kits/storage.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSSpinBox.h"

#include <algorithm>

namespace config {

// The two cursor pens are labelled the other way round than their keys say: the toolkit uses them so.
constexpr pen_row pen_rows[] = {
    // pen, label, default palette, BeOS-conform palette
    {KS_PEN_BG_LOW, kStringLowLevel, {{188, 188, 188}, {210, 210, 210}}},
    {KS_PEN_BG_MED, kStringMediumLevel, {{199, 199, 199}, {210, 210, 210}}},
    {KS_PEN_BG_HIGH, kStringHighLevel, {{211, 211, 211}, {210, 210, 210}}},
    {KS_PEN_BG_EDIT, kStringEditAreas, {{233, 233, 233}, {255, 255, 255}}},
    {KS_PEN_BG_READ, kStringReadAreas, {{188, 188, 188}, {255, 255, 255}}},
    {KS_PEN_BG_LIST, kStringListviews, {{233, 233, 233}, {255, 255, 255}}},
    {KS_PEN_BG_BUTTON, kStringButtons, {{222, 222, 222}, {230, 230, 230}}},
    {KS_PEN_BG_SLIDER, kStringSliders, {{144, 144, 166}, {200, 200, 200}}},
    {KS_PEN_BG_SELECTED, kStringSelectedMenuitems, {{144, 144, 166}, {140, 140, 140}}},
    {KS_PEN_TEXT, kStringDefaultText, {{0, 0, 0}, {0, 0, 0}}},
    {KS_PEN_DISABLEDTEXT, kStringDisabledText, {{128, 128, 128}, {150, 150, 150}}},
    {KS_PEN_TEXT_BG_CURSOR, kStringCursorForeground, {{166, 166, 188}, {140, 140, 140}}},
    {KS_PEN_TEXT_FG_CURSOR, kStringCursorBackground, {{0, 0, 0}, {0, 0, 0}}},
    {KS_PEN_TEXT_FG_MARKED, kStringMarkedForeground, {{0, 0, 0}, {0, 0, 0}}},
    {KS_PEN_TEXT_BG_MARKED, kStringMarkedBackground, {{188, 166, 166}, {140, 140, 140}}},
    {KS_PEN_SHINE, kStringShiningEdges, {{255, 255, 255}, {255, 255, 255}}},
    {KS_PEN_DARK, kStringDarkEdges, {{64, 64, 64}, {80, 80, 80}}},
    {KS_PEN_HALFSHINE, kStringHalfshiningEdges, {{233, 233, 233}, {230, 230, 230}}},
    {KS_PEN_HALFDARK, kStringHalfdarkEdges, {{144, 144, 144}, {140, 140, 140}}},
    {KS_PEN_MARK, kStringMarkedWidgets, {{200, 0, 0}, {0, 0, 200}}},
    {KS_PEN_PAINTSHINE, kStringPaintShiningEdges, {{150, 200, 255}, {150, 200, 255}}},
    {KS_PEN_PAINT, kStringPaintContainer, {{77, 151, 255}, {77, 151, 255}}},
    {KS_PEN_PAINTDARK, kStringPaintDarkEdges, {{32, 100, 200}, {32, 100, 200}}},
};

static_assert(std::ranges::all_of(pen_rows, [](const pen_row& row) { return &row == &pen_rows[row.pen]; }));

constexpr text font_labels[] = {kStringNormalFont, kStringFixedwidthFont, kStringTitleFont, kStringSmallFont,
                                kStringLargeFont};

KSColorField* _colors[kPenCount + 1];
KSPopFile* _backgrounds[kBackgroundCount];
KSPopFont* _fonts[kFontCount];
KSCheckBox* _bubblehelp;
KSSpinBox* _bubbletime;
KSSpinBox* _mousetime;
KSCheckBox* _beos_size;
KSCycle* _look;
KSListView* _llist;
KSControl* ch_pen;
KSControl* ch_background;
KSControl* ch_font;
KSControl* ch_dimen;
const char* _language = kEnglish;

void ApplyDefaults() {
    const KSAutolock at_once(_llist);
    const BPath no_bitmap;
    for (KSPopFile* background : _backgrounds)
        background->SetText(&no_bitmap, true);
    ApplyPalette(kDefaultPalette);
    _bubblehelp->SetValue(true);
    _beos_size->SetValue(true);
    _bubbletime->SetValue(2000000);
    _mousetime->SetValue(30000);
    _language = kEnglish;
    _llist->Select(0, false);
}

void ApplyPalette(palette which) {
    const KSAutolock at_once(_llist);
    for (const pen_row& row : pen_rows)
        _colors[row.pen]->SetColor(row.palettes[which], false, false);
}

}  // namespace config
