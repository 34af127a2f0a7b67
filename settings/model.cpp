// SPDX-License-Identifier: MIT
#include "settings/model.h"

#include "kits/storage.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSHistory.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSLook.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSSpinBox.h"

#include <iterator>

namespace config {

// Indexed by the pen. The two cursor pens are labelled the other way round than their keys say: the toolkit
// uses them so.
constexpr text pen_labels[] = {
    kStringLowLevel,          kStringMediumLevel,      kStringHighLevel,        kStringEditAreas,
    kStringReadAreas,         kStringListviews,        kStringButtons,          kStringSliders,
    kStringSelectedMenuitems, kStringDefaultText,      kStringDisabledText,     kStringCursorForeground,
    kStringCursorBackground,  kStringMarkedForeground, kStringMarkedBackground, kStringShiningEdges,
    kStringDarkEdges,         kStringHalfshiningEdges, kStringHalfdarkEdges,    kStringMarkedWidgets,
    kStringPaintShiningEdges, kStringPaintContainer,   kStringPaintDarkEdges,
};

static_assert(std::size(pen_labels) == KS_PEN_NONE);

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

void TieEditors() {
    for (int pen = 0; pen < KS_PEN_NONE; ++pen)
        ks_current_look->Tie(static_cast<ks_pen>(pen), _colors[pen]);
    for (int level = 0; level < kBackgroundCount; ++level)
        ks_current_look->TieBitmap(static_cast<ks_pen>(level), _backgrounds[level]);
    for (int font = 0; font < kFontCount; ++font)
        ks_current_look->Tie(static_cast<ks_font>(font), _fonts[font]);
    ks_current_look->TieLook(_look);
    ks_current_look->TieBubbleHelp(_bubblehelp, _bubbletime);
    ks_current_look->TieMouseHold(_mousetime);
}

void ApplyDefaults() {
    const KSAutolock at_once(_llist);
    const BPath no_bitmap;
    for (KSPopFile* background : _backgrounds)
        background->SetText(&no_bitmap, true);
    for (std::size_t pen = 0; pen < KS_PEN_NONE; ++pen)
        _colors[pen]->SetColor(ks_palettes[kDefaultPalette][pen], false, false);
    _bubblehelp->SetValue(true);
    _beos_size->SetValue(true);
    _bubbletime->SetValue(2000000);
    _mousetime->SetValue(30000);
    _language = kEnglish;
    _llist->Select(0, false);
}

void ApplyPalette(ks_palette which) {
    const KSHistory::Step step(*_llist);
    for (std::size_t pen = 0; pen < KS_PEN_NONE; ++pen)
        _colors[pen]->EditColor(ks_palettes[which][pen]);
}

}  // namespace config
