// SPDX-License-Identifier: MIT
#include "settings/model.h"

#include "kits/storage.h"
#include "settings/languages.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSCycle.h"
#include "toolkit/KSHistory.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSLook.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSPopFont.h"
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

namespace {

KSSpinBox* NewSpinBox(float minimum, float maximum, float step) {
    auto* box = new KSSpinBox(nullptr, 0);
    box->SetMinValue(minimum);
    box->SetMaxValue(maximum);
    box->SetStep(step);
    return box;
}

}  // namespace

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

void MakeEditors() {
    for (int pen = 0; pen < KS_PEN_NONE; ++pen)
        _colors[pen] = new KSColorField(nullptr, 0);
    for (KSPopFile*& background : _backgrounds)
        background = new KSPopFile(nullptr, 0);
    for (KSPopFont*& font : _fonts)
        font = new KSPopFont(nullptr, 0);
    _bubblehelp = new KSCheckBox(nullptr, 0);
    _bubbletime = NewSpinBox(500000, 10000000, 100000);
    _mousetime = NewSpinBox(10000, 50000, 1000);
    _beos_size = new KSCheckBox(nullptr, 0);
    // The labels are what the settings file stores: they are the same in every language.
    _look = new KSCycle(nullptr, 0);
    for (const char* label : kLookLabels)
        _look->AddLabel(label);
    FillLanguageList();
}

KSControl* EditorOf(const ks_setting& setting) {
    switch (setting.kind) {
    case ks_setting_kind::kLook:
        return _look;
    case ks_setting_kind::kBeOSConform:
        return _beos_size;
    case ks_setting_kind::kLanguage:
        return _llist;
    case ks_setting_kind::kBubblehelpUsed:
        return _bubblehelp;
    case ks_setting_kind::kBubblehelpTime:
        return _bubbletime;
    case ks_setting_kind::kMouseHoldTime:
        return _mousetime;
    case ks_setting_kind::kPen:
        return _colors[setting.id];
    case ks_setting_kind::kBitmap:
        return setting.id < kBackgroundCount ? _backgrounds[setting.id] : nullptr;
    case ks_setting_kind::kFont:
        return _fonts[setting.id];
    }
    return nullptr;
}

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
