// SPDX-License-Identifier: MIT
#include "toolkit/scheme.h"

#include "kits/storage.h"

namespace {

constexpr std::size_t kLongestScheme = 1 << 20;

}  // namespace

bool ks_scheme::Take(const ks_setting& setting, const ks_settings_line& line) {
    const auto id = static_cast<std::size_t>(setting.id);
    switch (setting.kind) {
    case ks_setting_kind::kLook: {
        const std::string label = ks_parse_word(line.Value());
        const bool is_label = label == kLookLabels[0] || label == kLookLabels[1];
        if (is_label)
            is_nymbrel = label == kLookLabels[1];
        return is_label;
    }
    case ks_setting_kind::kPen:
        if (id < pens.size())
            pens[id] = ks_parse_color(line.Value());
        return id < pens.size();
    case ks_setting_kind::kBitmap:
        if (id < bitmaps.size())
            bitmaps[id] = line.Value();
        return id < bitmaps.size();
    case ks_setting_kind::kFont: {
        const std::optional<BFont> font = ks_parse_font(line.rest);
        if (font)
            fonts[id] = font;
        return font.has_value();
    }
    default:
        return false;
    }
}

void ks_scheme::ClearOtherBitmaps() {
    for (std::size_t level = 0; level < bitmaps.size(); ++level)
        if (pens[level] && !bitmaps[level])
            bitmaps[level] = "";
}

ks_scheme ks_palette_scheme(ks_palette which) {
    ks_scheme scheme;
    for (std::size_t pen = 0; pen < scheme.pens.size(); ++pen)
        scheme.pens[pen] = ks_palettes[which][pen];
    scheme.ClearOtherBitmaps();
    scheme.is_nymbrel = false;
    return scheme;
}

bool ks_is_of_scheme(const ks_setting& setting) {
    using enum ks_setting_kind;
    return setting.kind == kLook || setting.kind == kPen || setting.kind == kBitmap || setting.kind == kFont;
}

std::optional<ks_scheme_file> ks_read_scheme(const std::string& path) {
    const std::optional<std::string> text = ks_read_regular_file(path, kLongestScheme + 1);
    if (!text || text->size() > kLongestScheme)
        return std::nullopt;
    ks_scheme_file file;
    file.faults += ks_read_settings_lines(*text, [&](const ks_settings_line& line) {
        const std::optional<ks_setting> setting = ks_find_setting(line);
        if (setting && !ks_is_of_scheme(*setting))
            return;
        const bool is_taken =
            setting && ks_setting_can_be_read(*setting, line) && file.scheme.Take(*setting, line);
        ++(is_taken ? file.values : file.faults);
    });
    file.scheme.ClearOtherBitmaps();
    return file;
}

std::string ks_format_scheme(const ks_look& look) {
    std::string text = ks_format_setting({ks_setting_kind::kLook}, kLookLabels[look.is_nymbrel]);
    for (std::size_t pen = 0; pen < look.pens.size(); ++pen)
        text += ks_format_pen(static_cast<std::int32_t>(pen), look.pens[pen],
                              pen < look.bitmaps.size() ? look.bitmaps[pen] : "");
    for (std::size_t font = 0; font < look.fonts.size(); ++font)
        text += ks_format_setting({ks_setting_kind::kFont, static_cast<std::int32_t>(font)},
                                  ks_format_font(look.fonts[font]));
    return text;
}
