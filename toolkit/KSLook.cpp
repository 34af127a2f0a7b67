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

void TakeNumber(float& value, const std::string& text) {
    if (const std::optional<long> number = ks_parse_number(text))
        value = static_cast<float>(*number);
}

template <class Slot> std::optional<Slot> SlotOf(const auto& editors, const auto* editor) {
    const auto found = std::ranges::find(editors, editor);
    return found == editors.end() ? std::nullopt : std::optional(static_cast<Slot>(found - editors.begin()));
}

}  // namespace

KSLook* const ks_current_look = &current;

KSLook::file_values::file_values() {
    look.pens = ks_palettes[kDefaultPalette];
}

void KSLook::file_values::Take(const ks_settings_line& line) {
    const std::optional<ks_setting> setting = ks_find_setting(line);
    if (!setting)
        return;
    const auto id = static_cast<std::size_t>(setting->id);
    switch (setting->kind) {
    case ks_setting_kind::kLook:
        if (const std::string label = ks_parse_word(line.Value()); label == kLookLabels[0] || label == kLookLabels[1])
            look.is_nymbrel = label == kLookLabels[1];
        return;
    case ks_setting_kind::kBubblehelpUsed:
        if (const std::optional<long> number = ks_parse_number(line.Value()))
            look.bubble_help = *number != 0;
        return;
    case ks_setting_kind::kBubblehelpTime:
        return TakeNumber(look.bubble_wait, line.Value());
    case ks_setting_kind::kMouseHoldTime:
        return TakeNumber(look.mouse_hold, line.Value());
    case ks_setting_kind::kPen:
        if (id < ks_look::kPens)
            look.pens[id] = ks_parse_color(line.Value());
        return;
    case ks_setting_kind::kBitmap:
        if (id < ks_look::kLevels)
            look.bitmaps[id] = line.Value();
        return;
    case ks_setting_kind::kFont:
        if (const std::optional<BFont> font = ks_parse_font(line.rest))
            fonts[id] = font;
        return;
    case ks_setting_kind::kBeOSConform:
    case ks_setting_kind::kLanguage:
        return;
    }
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
    ks_look& look = file.look;
    for (std::size_t i = 0; i < look.pens.size(); ++i)
        if (_pens[i])
            look.pens[i] = _pens[i]->Color();
    for (std::size_t i = 0; i < look.bitmaps.size(); ++i)
        if (_bitmaps[i])
            look.bitmaps[i] = _bitmaps[i]->Path();
    for (std::size_t i = 0; i < look.fonts.size(); ++i)
        look.fonts[i] = _fonts[i]       ? _fonts[i]->Font()
                        : file.fonts[i] ? *file.fonts[i]
                                        : ks_default_font(static_cast<ks_font>(i));
    if (_look)
        look.is_nymbrel = _look->CurrentSelection() == 1;
    if (_bubble_help)
        look.bubble_help = _bubble_help->Value();
    if (_bubble_wait)
        look.bubble_wait = _bubble_wait->Value();
    if (_mouse_hold)
        look.mouse_hold = _mouse_hold->Value();
    return look;
}
