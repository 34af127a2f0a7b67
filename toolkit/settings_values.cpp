// SPDX-License-Identifier: MIT
#include "toolkit/settings_values.h"

#include "kits/storage.h"

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <locale.h>
#include <utility>

const ks_setting_row color_settings[] = {
    {"KS_PEN_BG_LOW", KS_PEN_BG_LOW},
    {"KS_PEN_BG_MED", KS_PEN_BG_MED},
    {"KS_PEN_BG_HIGH", KS_PEN_BG_HIGH},
    {"KS_PEN_BG_EDIT", KS_PEN_BG_EDIT},
    {"KS_PEN_BG_READ", KS_PEN_BG_READ},
    {"KS_PEN_BG_LIST", KS_PEN_BG_LIST},
    {"KS_PEN_BG_BUTTON", KS_PEN_BG_BUTTON},
    {"KS_PEN_BG_SLIDER", KS_PEN_BG_SLIDER},
    {"KS_PEN_BG_SELECTED", KS_PEN_BG_SELECTED},
    {"KS_PEN_TEXT", KS_PEN_TEXT},
    {"KS_PEN_DISABLEDTEXT", KS_PEN_DISABLEDTEXT},
    {"KS_PEN_TEXT_BG_CURSOR", KS_PEN_TEXT_BG_CURSOR},
    {"KS_PEN_TEXT_FG_CURSOR", KS_PEN_TEXT_FG_CURSOR},
    {"KS_PEN_TEXT_FG_MARKED", KS_PEN_TEXT_FG_MARKED},
    {"KS_PEN_TEXT_BG_MARKED", KS_PEN_TEXT_BG_MARKED},
    {"KS_PEN_SHINE", KS_PEN_SHINE},
    {"KS_PEN_DARK", KS_PEN_DARK},
    {"KS_PEN_HALFSHINE", KS_PEN_HALFSHINE},
    {"KS_PEN_HALFDARK", KS_PEN_HALFDARK},
    {"KS_PEN_MARK", KS_PEN_MARK},
    {"KS_PEN_PAINTSHINE", KS_PEN_PAINTSHINE},
    {"KS_PEN_PAINT", KS_PEN_PAINT},
    {"KS_PEN_PAINTDARK", KS_PEN_PAINTDARK},
    {"KS_PEN_NONE", KS_PEN_NONE},
    {nullptr, 25},
};

const ks_setting_row font_settings[] = {
    {"KS_FONT_NORMAL", 0}, {"KS_FONT_FIXED", 1}, {"KS_FONT_TITLE", 2},
    {"KS_FONT_SMALL", 3},  {"KS_FONT_LARGE", 4}, {nullptr, 5},
};

namespace {

// Indexed by the kind.
constexpr const char* kOptionKeys[] = {"LOOK",           "BEOS",           "LANGUAGE",
                                       "BUBBLEHELPUSED", "BUBBLEHELPTIME", "MOUSEHOLDTIME"};
static_assert(std::size(kOptionKeys) == static_cast<std::size_t>(ks_setting_kind::kPen));
constexpr std::string_view kBitmapSuffix = "_BMP";

// Returns the kind of a line whose key is a pen's or its bitmap's, and the line with the pen's key.
std::pair<ks_setting_kind, ks_settings_line> PenLine(const ks_settings_line& line) {
    const std::size_t suffix = line.key.size() - std::min(line.key.size(), kBitmapSuffix.size());
    if (!(ks_settings_line{line.key.substr(suffix), ""}).Is(kBitmapSuffix))
        return {ks_setting_kind::kPen, {line.key, ""}};
    return {ks_setting_kind::kBitmap, {line.key.substr(0, suffix), ""}};
}

// Reads a number at `text` and moves `text` behind it.
std::optional<long> ReadNumber(const char*& text) {
    char* end;
    const long number = std::strtol(text, &end, 10);
    if (end == text)
        return std::nullopt;
    text = end;
    return number;
}

float ParseSize(const char* text) {
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    const double size = strtod_l(text, nullptr, plain);
    return static_cast<float>(std::isfinite(size) ? std::clamp<double>(size, -FLT_MAX, FLT_MAX) : size);
}

}  // namespace

const std::vector<ks_setting>& ks_all_settings() {
    static const std::vector<ks_setting> all = [] {
        std::vector<ks_setting> settings;
        for (std::size_t kind = 0; kind < std::size(kOptionKeys); ++kind)
            settings.push_back({static_cast<ks_setting_kind>(kind)});
        for (std::int32_t pen = 0; pen < KS_PEN_NONE; ++pen) {
            if (pen < kBackgroundCount)
                settings.push_back({ks_setting_kind::kBitmap, pen});
            settings.push_back({ks_setting_kind::kPen, pen});
        }
        for (std::int32_t font = 0; font < kFontCount; ++font)
            settings.push_back({ks_setting_kind::kFont, font});
        return settings;
    }();
    return all;
}

std::string ks_setting_key(ks_setting setting) {
    switch (setting.kind) {
    case ks_setting_kind::kPen:
        return color_settings[setting.id].key;
    case ks_setting_kind::kBitmap:
        return std::string(color_settings[setting.id].key).append(kBitmapSuffix);
    case ks_setting_kind::kFont:
        return font_settings[setting.id].key;
    default:
        return kOptionKeys[static_cast<std::size_t>(setting.kind)];
    }
}

std::optional<ks_setting> ks_find_setting(const ks_settings_line& line) {
    for (std::size_t kind = 0; kind < std::size(kOptionKeys); ++kind)
        if (line.Is(kOptionKeys[kind]))
            return ks_setting{static_cast<ks_setting_kind>(kind)};
    const auto [kind, pen] = PenLine(line);
    for (const ks_setting_row* row = color_settings; row->key; ++row)
        if (pen.Is(row->key))
            return ks_setting{kind, row->id};
    for (const ks_setting_row* row = font_settings; row->key; ++row)
        if (line.Is(row->key))
            return ks_setting{ks_setting_kind::kFont, row->id};
    return std::nullopt;
}

std::string ks_format_setting(ks_setting setting, std::string_view value) {
    return ks_setting_key(setting).append(" = ").append(value).append("\n");
}

std::string ks_format_pen(std::int32_t pen, ks_color color, std::string_view bitmap) {
    std::string text;
    if (!bitmap.empty())
        text = ks_format_setting({ks_setting_kind::kBitmap, pen}, bitmap);
    return text + ks_format_setting({ks_setting_kind::kPen, pen}, ks_format_color(color));
}

bool ks_setting_can_be_read(const ks_setting& setting, const ks_settings_line& line) {
    BFile file;
    return setting.kind != ks_setting_kind::kBitmap || file.SetTo(line.Value().c_str(), B_READ_ONLY) == B_OK;
}

std::optional<long> ks_parse_number(const std::string& text) {
    const char* start = text.c_str();
    return ReadNumber(start);
}

std::string ks_parse_word(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\n\v\f\r";
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return std::string(text.substr(0, text.find_first_of(kBlanks)));
}

ks_color ks_parse_color(const std::string& text) {
    long component[4] = {};
    const char* position = text.c_str();
    for (long& value : component) {
        const std::optional<long> number = ReadNumber(position);
        if (!number)
            break;
        value = *number;
        if (*position++ != ',')
            break;
    }
    const auto low_bits = [&](int index) { return static_cast<std::uint8_t>(component[index]); };
    return {low_bits(0), low_bits(1), low_bits(2), low_bits(3)};
}

std::string ks_format_color(ks_color color) {
    return std::to_string(color.red) + ',' + std::to_string(color.green) + ',' + std::to_string(color.blue) +
           ',' + std::to_string(color.alpha);
}

std::optional<BFont> ks_parse_font(std::string rest) {
    char* position = nullptr;
    const char* family = strtok_r(rest.data(), ",\n", &position);
    const char* style = strtok_r(nullptr, ",\n", &position);
    const char* size = strtok_r(nullptr, ",\n", &position);
    if (!size)
        return std::nullopt;
    BFont font;
    font.SetFamilyAndStyle(family + std::strspn(family, " ="), style);
    font.SetSize(ParseSize(size));
    return font;
}

std::string ks_format_font(const BFont& font) {
    char size[32];
    const auto end = std::to_chars(size, size + sizeof size, static_cast<double>(font.Size()),
                                   std::chars_format::general, 6);
    return font.Family() + ',' + font.Style() + ',' + std::string(size, end.ptr);
}

bool ks_fits_font_field(std::string_view name) {
    return ks_fits_settings_line(name) && name.find(',') == std::string_view::npos &&
           name.size() < sizeof(font_family);
}
