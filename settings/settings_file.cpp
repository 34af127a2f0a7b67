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

std::string LookLabel() {
    char label[64];
    _look->GetLabel(_look->CurrentSelection(), label);
    return label;
}

// Each of these returns whether the editor has taken the value.

bool ReadLook(const std::string& value) {
    const std::string label = ks_parse_word(value);
    _look->SelectLabel(label.c_str());
    return label == LookLabel();
}

bool ReadCheckBox(KSCheckBox* box, const std::string& value) {
    const std::optional<long> number = ks_parse_number(value);
    if (number)
        box->SetValue(*number != 0);
    return number.has_value();
}

bool ReadTime(KSSpinBox* box, const std::string& value) {
    const std::optional<long> number = ks_parse_number(value);
    box->SetValue(static_cast<float>(number.value_or(WholeNumber(box->Value()))));
    return number.has_value();
}

bool ReadLanguage(const std::string& value) {
    for (long index = 0; index < _llist->CountItems(); ++index) {
        const char* name = static_cast<const KSStringItem*>(_llist->ItemAt(index))->String();
        if (value == name) {
            _llist->Select(index, false);
            _language = name;
            return true;
        }
    }
    return false;
}

bool ReadColor(std::int32_t pen, const std::string& value) {
    if (KSColorField* field = _colors[pen])
        field->SetColor(ks_parse_color(value), false, false);
    return _colors[pen] != nullptr;
}

bool ReadBitmap(std::int32_t pen, const std::string& path) {
    if (pen < kBackgroundCount)
        _backgrounds[pen]->SetText(path.c_str(), false);
    return pen < kBackgroundCount;
}

bool ReadFont(std::int32_t font, const std::string& rest) {
    const std::optional<BFont> value = ks_parse_font(rest);
    if (value)
        _fonts[font]->SetValue(&*value, false);
    return value.has_value();
}

bool ReadValue(const ks_setting& setting, const ks_settings_line& line) {
    switch (setting.kind) {
    case ks_setting_kind::kLook:
        return ReadLook(line.Value());
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
    return false;
}

std::string FormatSettings() {
    const KSAutolock one_moment(_llist);
    std::string text;
    for (const ks_setting& setting : ks_all_settings()) {
        const std::string value = SettingValue(setting);
        if (setting.kind != ks_setting_kind::kBitmap || !value.empty())
            text += ks_format_setting(setting, value);
    }
    return text;
}

}  // namespace

bool ReadSetting(const ks_setting& setting, const ks_settings_line& line) {
    return ks_setting_can_be_read(setting, line) && ReadValue(setting, line);
}

std::string SettingValue(const ks_setting& setting) {
    switch (setting.kind) {
    case ks_setting_kind::kLook:
        return LookLabel();
    case ks_setting_kind::kBeOSConform:
        return std::to_string(_beos_size->Value());
    case ks_setting_kind::kLanguage:
        return _language;
    case ks_setting_kind::kBubblehelpUsed:
        return std::to_string(_bubblehelp->Value());
    case ks_setting_kind::kBubblehelpTime:
        return std::to_string(WholeNumber(_bubbletime->Value()));
    case ks_setting_kind::kMouseHoldTime:
        return std::to_string(WholeNumber(_mousetime->Value()));
    case ks_setting_kind::kPen:
        return ks_format_color(_colors[setting.id]->Color());
    case ks_setting_kind::kBitmap:
        return _backgrounds[setting.id]->Path();
    case ks_setting_kind::kFont:
        return ks_format_font(_fonts[setting.id]->Font());
    }
    return {};
}

void ReadSettings() {
    const bool was_read = ks_read_settings_lines([](const ks_settings_line& line) {
        if (const std::optional<ks_setting> setting = ks_find_setting(line))
            ReadSetting(*setting, line);
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
