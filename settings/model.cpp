// SPDX-License-Identifier: MIT
#include "settings/model.h"

#include "kits/storage.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSSpinBox.h"

#include <iterator>

namespace config {

// Indexed by the pen. The two cursor pens are labelled the other way round than their keys say: the toolkit
// uses them so.
constexpr text pen_labels[] = {
    kStringLowLevel,
    kStringMediumLevel,
    kStringHighLevel,
    kStringEditAreas,
    kStringReadAreas,
    kStringListviews,
    kStringButtons,
    kStringSliders,
    kStringSelectedMenuitems,
    kStringDefaultText,
    kStringDisabledText,
    kStringCursorForeground,
    kStringCursorBackground,
    kStringMarkedForeground,
    kStringMarkedBackground,
    kStringShiningEdges,
    kStringDarkEdges,
    kStringHalfshiningEdges,
    kStringHalfdarkEdges,
    kStringMarkedWidgets,
    kStringPaintShiningEdges,
    kStringPaintContainer,
    kStringPaintDarkEdges,
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

void ApplyPalette(ks_palette which) {
    const KSAutolock at_once(_llist);
    for (std::size_t pen = 0; pen < KS_PEN_NONE; ++pen)
        _colors[pen]->SetColor(ks_palettes[which][pen], false, false);
}

}  // namespace config
