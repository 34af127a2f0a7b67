// SPDX-License-Identifier: MIT
// The editors of the settings model without a window.
#pragma once

#include "settings/languages.h"
#include "settings/model.h"
#include "tests/reference/settings_reader.h"
#include "tests/support/home.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSCycle.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSPopFont.h"
#include "toolkit/KSSpinBox.h"

#include <memory>

// Fills the references of the model with new editors. FillLanguageList reads the catalogs directory.
class Editors {
public:
    Editors() : _container({0, 0, 495, 300}, "view") {
        auto* root = new KSControl(nullptr, 0);
        for (int pen = 0; pen < KS_PEN_NONE; ++pen)
            config::_colors[pen] = Add(root, new KSColorField(nullptr, 0));
        for (KSPopFile*& background : config::_backgrounds)
            background = Add(root, new KSPopFile(nullptr, 0));
        for (KSPopFont*& font : config::_fonts)
            font = Add(root, new KSPopFont(nullptr, 0));
        config::_bubblehelp = Add(root, new KSCheckBox(nullptr, 0));
        config::_beos_size = Add(root, new KSCheckBox(nullptr, 0));
        config::_bubbletime = AddSpinBox(root, 500000, 10000000);
        config::_mousetime = AddSpinBox(root, 10000, 50000);
        config::_look = Add(root, new KSCycle(nullptr, 0));
        config::_look->AddLabel("BeOS");
        config::_look->AddLabel("Nymbrel");
        config::FillLanguageList();
        Add(root, config::_llist);
        _container.SetContent(root);
    }

    KSContainer& Container() { return _container; }

private:
    template <class Control> static Control* Add(KSControl* parent, Control* child) {
        parent->AddChild(child, nullptr);
        return child;
    }
    static KSSpinBox* AddSpinBox(KSControl* parent, float minimum, float maximum) {
        auto* box = Add(parent, new KSSpinBox(nullptr, 0));
        box->SetMinValue(minimum);
        box->SetMaxValue(maximum);
        return box;
    }

    KSContainer _container;
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
