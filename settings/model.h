// SPDX-License-Identifier: MIT
// The settings model: what the program edits is what its editors hold.
//
// There is no other store: to set a value is to set its editor, to read it is to ask the editor. The
// references are null until the window is built and are never cleared; the window's tree owns the editors.
// `_language` belongs to the application's thread; the editors may be used from any.
#pragma once

#include "hdr/ks_color.h"
#include "settings/strings.h"
#include "toolkit/ks_palettes.h"
#include "toolkit/settings_values.h"

class KSCheckBox;
class KSColorField;
class KSControl;
class KSCycle;
class KSListView;
class KSPopFile;
class KSPopFont;
class KSSpinBox;

namespace config {

// Indexed by the pen; KS_PEN_NONE has no editor.
extern const text pen_labels[KS_PEN_NONE];
extern const text font_labels[kFontCount];

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

// Makes all editors, with their bounds, and fills the references but for the groups. The caller puts the
// editors into a tree, which owns them from then on.
void MakeEditors();

// Returns the editor of a setting; null where there is none.
KSControl* EditorOf(const ks_setting& setting);

// Ties the editors to their values of the look, so that the program wears what is edited. Called once, when
// all editors are there and no window shows them.
void TieEditors();

// Puts the default of every value into its editor. The look and the fonts stay as they were built.
void ApplyDefaults();

// Sets every colour field from a palette, as the user does, in one step: it is settled when it is stored.
void ApplyPalette(ks_palette which);

}  // namespace config
