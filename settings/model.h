// SPDX-License-Identifier: MIT
// The settings model: what the program edits is what its editors hold.
//
// There is no other store: setting a value means setting its editor, reading it means asking the editor. The
// references are null until the window is built and never cleared; the window's tree owns the editors.
// `_language` belongs to the application's thread; the editors may be used from any.
#pragma once

#include "hdr/ks_color.h"
#include "settings/strings.h"
#include "toolkit/ks_pen.h"

#include <cstdint>

class KSCheckBox;
class KSColorField;
class KSControl;
class KSCycle;
class KSListView;
class KSPopFile;
class KSPopFont;
class KSSpinBox;

namespace config {

enum palette : int { kDefaultPalette, kBeOSConformPalette };

// A value of the settings file by its key; `id` is the index of its editor, `label` the text beside it.
struct setting_row {
    const char* key;
    std::int32_t id;
    string_id label;
};

struct color_row : setting_row {
    ks_color palettes[2];  // indexed by `palette`
};

constexpr int kPenCount = 24;        // the last one, KS_PEN_NONE, has no editor
constexpr int kBackgroundCount = 9;  // pens 0 to 8: those with a bitmap
constexpr int kFontCount = 5;

// Each ends with a row whose key is null.
extern const color_row color_settings[kPenCount + 1];
extern const setting_row font_settings[kFontCount + 1];

extern KSColorField* _colors[kPenCount + 1];
extern KSPopFile* _backgrounds[kBackgroundCount];
extern KSPopFont* _fonts[kFontCount];
extern KSCheckBox* _bubblehelp;
extern KSSpinBox* _bubbletime;
extern KSSpinBox* _mousetime;
extern KSCheckBox* _beos_size;
extern KSCycle* _look;
extern KSListView* _llist;

// The four editor groups, in the order of the categories.
extern KSControl* ch_pen;
extern KSControl* ch_background;
extern KSControl* ch_font;
extern KSControl* ch_dimen;

// The built-in language, and the chosen one: that constant or the text of the selected item of `_llist`.
inline constexpr char kEnglish[] = "english";
extern const char* _language;

// Puts the default of every value into its editor. The look and the fonts stay as they were built.
void ApplyDefaults();

// Sets every colour field from a palette.
void ApplyPalette(palette which);

}  // namespace config
