// SPDX-License-Identifier: MIT
// The editors of the settings model without a window, and what they hold.
#pragma once

#include "settings/editors.h"
#include "settings/languages.h"
#include "settings/model.h"
#include "tests/reference/settings_values.h"
#include "tests/support/home.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSCycle.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSPopFont.h"
#include "toolkit/KSSpinBox.h"

#include <string>

using config::Editors;

inline reference::font font_value(const KSPopFont& editor) {
    const BFont font = editor.Font();
    return {font.Family(), font.Style(), font.Size()};
}

// Returns what the editors hold.
inline reference::settings editor_values() {
    using namespace config;
    reference::settings values(font_value(*_fonts[0]));
    char look[64];
    _look->GetLabel(_look->CurrentSelection(), look);
    values.look = look;
    values.beos_conform = _beos_size->Value();
    values.language = static_cast<KSStringItem*>(_llist->ItemAt(_llist->CurrentSelection()))->String();
    EXPECT_EQ(values.language, _language);
    values.bubble_help = _bubblehelp->Value();
    values.bubble_time = static_cast<long>(_bubbletime->Value());
    values.mouse_time = static_cast<long>(_mousetime->Value());
    for (std::size_t i = 0; i < values.pens.size(); ++i) {
        const ks_color color = _colors[i]->Color();
        values.pens[i] = {color.red, color.green, color.blue, color.alpha};
    }
    for (std::size_t i = 0; i < values.bitmaps.size(); ++i)
        values.bitmaps[i] = _backgrounds[i]->Path();
    for (std::size_t i = 0; i < values.fonts.size(); ++i)
        values.fonts[i] = font_value(*_fonts[i]);
    return values;
}

// The settings that a program without a settings file has.
inline reference::settings default_values() {
    return reference::settings(font_value(KSPopFont(nullptr, 0)));
}
