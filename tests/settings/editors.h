// SPDX-License-Identifier: MIT
// The editors of the settings model without a window.
#pragma once

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

// Fills the references of the model with new editors. FillLanguageList reads the catalogs directory.
class Editors {
public:
    Editors() {
        for (int pen = 0; pen < KS_PEN_NONE; ++pen)
            Add(config::_colors[pen]);
        for (KSPopFile*& background : config::_backgrounds)
            Add(background);
        for (KSPopFont*& font : config::_fonts)
            Add(font);
        Add(config::_bubblehelp);
        Add(config::_beos_size);
        Add(config::_bubbletime);
        config::_bubbletime->SetMaxValue(10000000);
        config::_bubbletime->SetMinValue(500000);
        Add(config::_mousetime);
        config::_mousetime->SetMaxValue(50000);
        config::_mousetime->SetMinValue(10000);
        Add(config::_look);
        for (const char* look : {"BeOS", "Nymbrel"})
            config::_look->AddLabel(look);
        config::FillLanguageList();
        _root->AddChild(config::_llist, nullptr);
        _container.SetContent(_root);
    }

    KSContainer& Container() { return _container; }

private:
    template <class Control> void Add(Control*& editor) {
        editor = new Control(nullptr, 0);
        _root->AddChild(editor, nullptr);
    }

    KSContainer _container{{0, 0, 495, 300}, "view"};
    KSControl* _root = new KSControl(nullptr, 0);
};

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
