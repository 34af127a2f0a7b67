// SPDX-License-Identifier: MIT
#include "shell/values.h"

#include "kits/utf8.h"
#include "settings/model.h"
#include "settings/settings_file.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSLook.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSPopFont.h"
#include "toolkit/KSSpinBox.h"
#include "toolkit/color_digits.h"
#include "toolkit/installed_languages.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

using namespace config;

namespace shell {
namespace {

constexpr std::string_view kBlanks = " \t\r";

std::vector<std::string> LanguageNames() {
    std::vector<std::string> names;
    for (long index = 0; index < _llist->CountItems(); ++index)
        names.emplace_back(static_cast<const KSStringItem*>(_llist->ItemAt(index))->String());
    return names;
}

void AddInstalledLanguages() {
    const std::vector<std::string> known = LanguageNames();
    for (const std::string& name : ks_installed_languages())
        if (std::ranges::find(known, name) == known.end())
            _llist->AddItem(new KSStringItem(name.c_str()), -1, true);
}

std::string WithoutBlanks(std::string_view text) {
    std::string rest(text);
    std::erase_if(rest, [](char c) { return kBlanks.find(c) != kBlanks.npos; });
    return rest;
}

std::string_view Trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// Returns whether two sizes are the same number.
bool IsSameSize(std::string_view written, std::string_view held) {
    double size = 0;
    const auto [end, error] = std::from_chars(written.data(), written.data() + written.size(), size);
    BFont font;
    font.SetSize(static_cast<float>(size));
    return error == std::errc() && end == written.data() + written.size() &&
           ks_format_font(font) == ",," + std::string(held);
}

bool IsSameFont(std::string_view written, std::string_view held) {
    const std::size_t size = written.rfind(','), held_size = held.rfind(',');
    return size != written.npos && written.substr(0, size) == held.substr(0, held_size) &&
           IsSameSize(Trimmed(written.substr(size + 1)), held.substr(held_size + 1));
}

std::string RangeOf(const KSSpinBox& box) {
    return "microseconds, " + std::to_string(static_cast<long>(box.MinValue())) + " to " +
           std::to_string(static_cast<long>(box.MaxValue()));
}

std::string Absolute(const std::string& path) {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute.string();
}

}  // namespace

Values::Values(std::string_view text) {
    AddInstalledLanguages();
    TieEditors();
    ApplyDefaults();
    ks_read_settings_lines(text, [](const ks_settings_line& line) {
        if (const std::optional<ks_setting> setting = ks_find_setting(line))
            ReadSetting(*setting, line);
    });
}

Values::~Values() {
    ks_current_look->Untie();
}

bool Values::Set(const ks_setting& setting, const std::string& value) {
    std::string written = value;
    if (setting.kind == ks_setting_kind::kBitmap) {
        if (value.empty())
            return _backgrounds[setting.id]->EditText(value);
        written = Absolute(value);
    } else if (setting.kind == ks_setting_kind::kPen && value.starts_with('#')) {
        if (const std::optional<ks_color> color = ks_parse_color_digits(value))
            written = ks_format_color(*color);
    }
    return ks_fits_settings_line(written) &&
           ReadSetting(setting, {ks_setting_key(setting), "= " + written}) && Holds(setting, written) &&
           IsOffered(setting);
}

bool Values::Holds(const ks_setting& setting, std::string_view written) const {
    const std::string held = SettingValue(setting);
    switch (setting.kind) {
    case ks_setting_kind::kLanguage:
    case ks_setting_kind::kBitmap:
        return written == held;
    case ks_setting_kind::kLook:
        return Trimmed(written) == held;
    case ks_setting_kind::kFont:
        return IsSameFont(written, held);
    default:
        return WithoutBlanks(written) == held;
    }
}

bool Values::IsOffered(const ks_setting& setting) const {
    if (setting.kind != ks_setting_kind::kFont)
        return true;
    const BFont font = _fonts[setting.id]->Font();
    const double size = static_cast<double>(font.Size());
    const auto is_name = [](const std::string& name) {
        return ks_fits_font_field(name) && ks_utf8_is_valid(name);
    };
    return is_name(font.Family()) && is_name(font.Style()) && size >= kSmallestFontSize &&
           size <= kLargestFontSize;
}

std::string Values::FormOf(const ks_setting& setting) const {
    switch (setting.kind) {
    case ks_setting_kind::kLook:
        return std::string(kLookLabels[0]) + " or " + kLookLabels[1];
    case ks_setting_kind::kBeOSConform:
    case ks_setting_kind::kBubblehelpUsed:
        return "0 or 1";
    case ks_setting_kind::kLanguage: {
        std::string names;
        for (const std::string& name : LanguageNames())
            names += (names.empty() ? "one of " : ", ") + name;
        return names;
    }
    case ks_setting_kind::kBubblehelpTime:
        return RangeOf(*_bubbletime);
    case ks_setting_kind::kMouseHoldTime:
        return RangeOf(*_mousetime);
    case ks_setting_kind::kPen:
        return "red,green,blue,alpha, each 0 to 255";
    case ks_setting_kind::kBitmap:
        return "the path of a file that can be opened, or nothing";
    case ks_setting_kind::kFont:
        return "family,style,size, with a size of " + std::to_string(static_cast<int>(kSmallestFontSize)) +
               " to " + std::to_string(static_cast<int>(kLargestFontSize)) + " points";
    }
    return {};
}

std::optional<ks_setting> FindSetting(const ks_settings_line& line) {
    const std::optional<ks_setting> setting = ks_find_setting(line);
    const std::vector<ks_setting>& all = ks_all_settings();
    return setting && std::ranges::find(all, *setting) != all.end() ? setting : std::nullopt;
}

std::string MeaningOf(const ks_setting& setting) {
    const auto of_group = [](const text& group, const text& label) {
        return std::string(LocalString(group)) + ": " + LocalString(label);
    };
    switch (setting.kind) {
    case ks_setting_kind::kLook:
        return LocalString(kStringLook);
    case ks_setting_kind::kBeOSConform:
        return LocalString(kStringBeOSConform);
    case ks_setting_kind::kLanguage:
        return LocalString(kStringLanguage);
    case ks_setting_kind::kBubblehelpUsed:
        return LocalString(kStringUseBubblehelp);
    case ks_setting_kind::kBubblehelpTime:
        return LocalString(kStringBubblehelpTime);
    case ks_setting_kind::kMouseHoldTime:
        return LocalString(kStringMouseHoldTime);
    case ks_setting_kind::kFont:
        return of_group(kStringFontsCategory, font_labels[setting.id]);
    default:
        return of_group(setting.id < kBackgroundCount ? kStringBackgroundsCategory
                        : setting.id < KS_PEN_SHINE   ? kStringTextPens
                                                      : kStringSystemPens,
                        pen_labels[setting.id]);
    }
}

}  // namespace shell
