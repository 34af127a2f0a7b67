// SPDX-License-Identifier: MIT
// What the lines of the settings file say: the key of every setting, and the values as text.
#pragma once

#include "hdr/ks_color.h"
#include "kits/BFont.h"
#include "toolkit/ks_pen.h"
#include "toolkit/settings_lines.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

constexpr int kPenCount = 24;        // the last one, KS_PEN_NONE, has no colour
constexpr int kBackgroundCount = 9;  // pens 0 to 8: those with a bitmap
constexpr int kFontCount = 5;

enum class ks_setting_kind {
    kLook,
    kBeOSConform,
    kLanguage,
    kBubblehelpUsed,
    kBubblehelpTime,
    kMouseHoldTime,
    kPen,
    kBitmap,
    kFont,
};

// One setting; `id` is the pen of a colour or a bitmap, or the font.
struct ks_setting {
    ks_setting_kind kind;
    std::int32_t id = 0;

    friend bool operator==(const ks_setting&, const ks_setting&) = default;
};

// A pen's or a font's key.
struct ks_setting_row {
    const char* key;
    std::int32_t id;
};

// In the order of the ids. Each ends with a row whose key is null.
extern const ks_setting_row color_settings[kPenCount + 1];
extern const ks_setting_row font_settings[kFontCount + 1];

// Returns every setting that can have a value, in the order of the file.
const std::vector<ks_setting>& ks_all_settings();

// Returns the key of a setting's line.
std::string ks_setting_key(ks_setting setting);
// Returns the setting that the line's key names; any pen may have a bitmap's key.
std::optional<ks_setting> ks_find_setting(const ks_settings_line& line);
// Returns the line "KEY = value" with its line feed.
std::string ks_format_setting(ks_setting setting, std::string_view value);
// Returns a pen's line, behind that of its bitmap if there is one.
std::string ks_format_pen(std::int32_t pen, ks_color color, std::string_view bitmap);

// Returns whether the line's value can be had: a bitmap has to be a file that can be opened.
bool ks_setting_can_be_read(const ks_setting& setting, const ks_settings_line& line);

// Reads a decimal number as scanf's "%ld" does. A number beyond the range of long becomes the nearest one
// in it.
std::optional<long> ks_parse_number(const std::string& text);
// Returns the first word of the text, which may be empty.
std::string ks_parse_word(std::string_view text);

// Reads up to four numbers with single commas between them, of which the low 8 bits count. Missing ones
// are 0.
ks_color ks_parse_color(const std::string& text);
std::string ks_format_color(ks_color color);

// Reads "family,style,size" from what follows a line's key; nothing when a field is missing. Empty fields
// are skipped, as strtok() skips them. The size is read as strtod() does in the "C" locale; a finite one
// beyond float's range becomes the nearest float.
std::optional<BFont> ks_parse_font(std::string rest);
// Writes the size as printf's "%g" does in the "C" locale.
std::string ks_format_font(const BFont& font);

// Returns whether a family or a style comes back whole from a font's line: it fits a line, has no comma in
// it and is short enough for a BFont.
bool ks_fits_font_field(std::string_view name);
