// SPDX-License-Identifier: MIT
#include "toolkit/KSLook.h"

#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSCycle.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSPopFont.h"
#include "toolkit/KSSpinBox.h"
#include "toolkit/default_fonts.h"
#include "toolkit/ks_palettes.h"
#include "toolkit/settings_values.h"

#include <algorithm>

namespace {

KSLook current;

template <class Slot> std::optional<Slot> SlotOf(const auto& editors, const auto* editor) {
    const auto found = std::ranges::find(editors, editor);
    return found == editors.end() ? std::nullopt : std::optional(static_cast<Slot>(found - editors.begin()));
}

}  // namespace

KSLook* const ks_current_look = &current;

void KSLook::file_values::Take(const ks_settings_line& line) {
    const std::optional<ks_setting> setting = ks_find_setting(line);
    if (!setting || scheme.Take(*setting, line))
        return;
    const std::optional<long> number = ks_parse_number(line.Value());
    if (!number)
        return;
    if (setting->kind == ks_setting_kind::kBubblehelpUsed)
        timing.bubble_help = *number != 0;
    else if (setting->kind == ks_setting_kind::kBubblehelpTime)
        timing.bubble_wait = static_cast<float>(*number);
    else if (setting->kind == ks_setting_kind::kMouseHoldTime)
        timing.mouse_hold = static_cast<float>(*number);
}

void KSLook::Read() {
    file_values values;
    ks_read_settings_lines([&](const ks_settings_line& line) { values.Take(line); });
    const std::scoped_lock lock(_mutex);
    _file = std::move(values);
}

void KSLook::Tie(ks_pen pen, KSColorField* editor) {
    _pens[static_cast<std::size_t>(pen)] = editor;
    editor->SetColor(ks_palettes[kDefaultPalette][static_cast<std::size_t>(pen)], false, false);
}

void KSLook::TieBitmap(ks_pen level, KSPopFile* editor) {
    _bitmaps[static_cast<std::size_t>(level)] = editor;
}

void KSLook::Tie(ks_font font, KSPopFont* editor) {
    _fonts[font] = editor;
    editor->SetValue(&ks_default_font(font), false);
}

void KSLook::TieLook(KSCycle* editor) {
    _look = editor;
}

void KSLook::TieBubbleHelp(KSCheckBox* is_used, KSSpinBox* wait) {
    _bubble_help = is_used;
    _bubble_wait = wait;
}

void KSLook::TieMouseHold(KSSpinBox* editor) {
    _mouse_hold = editor;
}

void KSLook::Untie() {
    _pens.fill(nullptr);
    _bitmaps.fill(nullptr);
    _fonts.fill(nullptr);
    _look = nullptr;
    _bubble_help = nullptr;
    _bubble_wait = _mouse_hold = nullptr;
}

void KSLook::Edit(const ks_scheme& scheme) {
    for (std::size_t i = 0; i < scheme.pens.size(); ++i)
        if (_pens[i] && scheme.pens[i])
            _pens[i]->EditColor(*scheme.pens[i]);
    for (std::size_t i = 0; i < scheme.bitmaps.size(); ++i)
        if (_bitmaps[i] && scheme.bitmaps[i])
            _bitmaps[i]->EditText(*scheme.bitmaps[i]);
    for (std::size_t i = 0; i < scheme.fonts.size(); ++i)
        if (_fonts[i] && scheme.fonts[i])
            _fonts[i]->EditValue(*scheme.fonts[i]);
    if (_look && scheme.is_nymbrel)
        _look->EditSelection(*scheme.is_nymbrel);
}

std::optional<ks_pen> KSLook::PenOf(const KSColorField* editor) const {
    return SlotOf<ks_pen>(_pens, editor);
}

std::optional<ks_pen> KSLook::LevelOf(const KSPopFile* editor) const {
    return SlotOf<ks_pen>(_bitmaps, editor);
}

std::optional<ks_font> KSLook::FontOf(const KSPopFont* editor) const {
    return SlotOf<ks_font>(_fonts, editor);
}

ks_look KSLook::Copy() const {
    file_values file;
    {
        const std::scoped_lock lock(_mutex);
        file = _file;
    }
    const ks_scheme& stored = file.scheme;
    ks_look look = file.timing;
    for (std::size_t i = 0; i < look.pens.size(); ++i)
        look.pens[i] =
            _pens[i] ? _pens[i]->Color() : stored.pens[i].value_or(ks_palettes[kDefaultPalette][i]);
    for (std::size_t i = 0; i < look.bitmaps.size(); ++i)
        look.bitmaps[i] = _bitmaps[i] ? _bitmaps[i]->Path() : stored.bitmaps[i].value_or("");
    // The toolkit's own fonts are looked up when somebody first asks for them.
    for (std::size_t i = 0; i < look.fonts.size(); ++i)
        look.fonts[i] = _fonts[i]         ? _fonts[i]->Font()
                        : stored.fonts[i] ? *stored.fonts[i]
                                          : ks_default_font(static_cast<ks_font>(i));
    look.is_nymbrel = _look ? _look->CurrentSelection() == 1 : stored.is_nymbrel.value_or(false);
    if (_bubble_help)
        look.bubble_help = _bubble_help->Value();
    if (_bubble_wait)
        look.bubble_wait = _bubble_wait->Value();
    if (_mouse_hold)
        look.mouse_hold = _mouse_hold->Value();
    return look;
}
