// SPDX-License-Identifier: MIT
#include "settings/settings_file.h"

#include "settings/languages.h"
#include "settings/model.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSCycle.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSPopFont.h"
#include "toolkit/KSSpinBox.h"
#include "toolkit/settings_values.h"

#include <bitset>
#include <climits>
#include <cmath>

namespace config {
namespace {

long WholeNumber(float value) {
    // The largest long has no float of its own: the next one up is out of range.
    constexpr float kLimit = -static_cast<float>(LONG_MIN);
    if (std::isnan(value))
        return 0;
    if (value >= kLimit)
        return LONG_MAX;
    return value < -kLimit ? LONG_MIN : static_cast<long>(value);
}

void ReadCheckBox(KSCheckBox* box, const std::string& value) {
    if (const std::optional<long> number = ks_parse_number(value))
        box->SetValue(*number != 0);
}

void ReadTime(KSSpinBox* box, const std::string& value) {
    box->SetValue(static_cast<float>(ks_parse_number(value).value_or(WholeNumber(box->Value()))));
}

void ReadLanguage(const std::string& value) {
    for (long index = 0; index < _llist->CountItems(); ++index) {
        const char* name = static_cast<const KSStringItem*>(_llist->ItemAt(index))->String();
        if (value == name) {
            _llist->Select(index, false);
            _language = name;
            return;
        }
    }
}

void ReadColor(std::int32_t pen, const std::string& value) {
    if (KSColorField* field = _colors[pen])
        field->SetColor(ks_parse_color(value), false, false);
}

void ReadBitmap(std::int32_t pen, const std::string& path) {
    if (pen < kBackgroundCount)
        _backgrounds[pen]->SetText(path.c_str(), false);
}

void ReadFont(std::int32_t font, const std::string& rest) {
    if (const std::optional<BFont> value = ks_parse_font(rest))
        _fonts[font]->SetValue(&*value, false);
}

void ReadValue(const ks_setting& setting, const ks_settings_line& line) {
    switch (setting.kind) {
    case ks_setting_kind::kLook:
        return _look->SelectLabel(ks_parse_word(line.Value()).c_str());
    case ks_setting_kind::kBeOSConform:
        return ReadCheckBox(_beos_size, line.Value());
    case ks_setting_kind::kLanguage:
        return ReadLanguage(line.Value());
    case ks_setting_kind::kBubblehelpUsed:
        return ReadCheckBox(_bubblehelp, line.Value());
    case ks_setting_kind::kBubblehelpTime:
        return ReadTime(_bubbletime, line.Value());
    case ks_setting_kind::kMouseHoldTime:
        return ReadTime(_mousetime, line.Value());
    case ks_setting_kind::kPen:
        return ReadColor(setting.id, line.Value());
    case ks_setting_kind::kBitmap:
        return ReadBitmap(setting.id, line.Value());
    case ks_setting_kind::kFont:
        return ReadFont(setting.id, line.rest);
    }
}

// The editor of the setting; null where there is none.
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

std::string LookLabel() {
    char label[64];
    _look->GetLabel(_look->CurrentSelection(), label);
    return label;
}

std::string FormatOptions() {
    using enum ks_setting_kind;
    return ks_format_setting({kLook}, LookLabel()) +
           ks_format_setting({kBeOSConform}, std::to_string(_beos_size->Value())) +
           ks_format_setting({kLanguage}, _language) +
           ks_format_setting({kBubblehelpUsed}, std::to_string(_bubblehelp->Value())) +
           ks_format_setting({kBubblehelpTime}, std::to_string(WholeNumber(_bubbletime->Value()))) +
           ks_format_setting({kMouseHoldTime}, std::to_string(WholeNumber(_mousetime->Value())));
}

std::string FormatPen(std::int32_t pen) {
    return ks_format_pen(pen, _colors[pen]->Color(),
                         pen < kBackgroundCount ? _backgrounds[pen]->Path() : std::string());
}

std::string FormatSettings() {
    const KSAutolock one_moment(_llist);
    std::string text = FormatOptions();
    for (std::int32_t pen = 0; pen < KS_PEN_NONE; ++pen)
        text += FormatPen(pen);
    for (std::int32_t font = 0; font < kFontCount; ++font)
        text += ks_format_setting({ks_setting_kind::kFont, font}, ks_format_font(_fonts[font]->Font()));
    return text;
}

}  // namespace

void ReadSettings() {
    const bool was_read = ks_read_settings_lines([](const ks_settings_line& line) {
        if (const std::optional<ks_setting> setting = ks_find_setting(line);
            setting && ks_setting_can_be_read(*setting, line))
            ReadValue(*setting, line);
    });
    KSContainer* shown_in = _llist->Container();
    if (was_read && shown_in)
        shown_in->Content()->RedrawSelf();
}

void FollowSettings() {
    std::bitset<kBackgroundCount> has_color, has_bitmap;
    ks_read_settings_lines([&](const ks_settings_line& line) {
        const std::optional<ks_setting> setting = ks_find_setting(line);
        if (!setting)
            return;
        if (setting->id < kBackgroundCount && setting->kind == ks_setting_kind::kPen)
            has_color.set(static_cast<std::size_t>(setting->id));
        if (setting->id < kBackgroundCount && setting->kind == ks_setting_kind::kBitmap)
            has_bitmap.set(static_cast<std::size_t>(setting->id));
        if (KSControl* editor = EditorOf(*setting); editor && ks_setting_can_be_read(*setting, line))
            editor->SettleUnderEdit([&] { ReadValue(*setting, line); });
    });
    for (std::size_t level = 0; level < kBackgroundCount; ++level)
        if (has_color[level] && !has_bitmap[level])
            _backgrounds[level]->SettleUnderEdit([&] { _backgrounds[level]->SetText("", false); });
    TakeSelectedLanguage();
}

bool WriteSettings() {
    return ks_write_settings_file(kSettingsPath, FormatSettings());
}

}  // namespace config
