// SPDX-License-Identifier: MIT
// What a settings file means, worked out on the whole text with patterns.
#include "tests/reference/settings_reader.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <map>
#include <optional>
#include <regex>

namespace reference {
namespace {

struct pen {
    const char* key;
    unsigned standard, conform;  // 0xRRGGBB
};

constexpr pen kPens[] = {
    {"KS_PEN_BG_LOW", 0xBCBCBC, 0xD2D2D2},         {"KS_PEN_BG_MED", 0xC7C7C7, 0xD2D2D2},
    {"KS_PEN_BG_HIGH", 0xD3D3D3, 0xD2D2D2},        {"KS_PEN_BG_EDIT", 0xE9E9E9, 0xFFFFFF},
    {"KS_PEN_BG_READ", 0xBCBCBC, 0xFFFFFF},        {"KS_PEN_BG_LIST", 0xE9E9E9, 0xFFFFFF},
    {"KS_PEN_BG_BUTTON", 0xDEDEDE, 0xE6E6E6},      {"KS_PEN_BG_SLIDER", 0x9090A6, 0xC8C8C8},
    {"KS_PEN_BG_SELECTED", 0x9090A6, 0x8C8C8C},    {"KS_PEN_TEXT", 0x000000, 0x000000},
    {"KS_PEN_DISABLEDTEXT", 0x808080, 0x969696},   {"KS_PEN_TEXT_BG_CURSOR", 0xA6A6BC, 0x8C8C8C},
    {"KS_PEN_TEXT_FG_CURSOR", 0x000000, 0x000000}, {"KS_PEN_TEXT_FG_MARKED", 0x000000, 0x000000},
    {"KS_PEN_TEXT_BG_MARKED", 0xBCA6A6, 0x8C8C8C}, {"KS_PEN_SHINE", 0xFFFFFF, 0xFFFFFF},
    {"KS_PEN_DARK", 0x404040, 0x505050},           {"KS_PEN_HALFSHINE", 0xE9E9E9, 0xE6E6E6},
    {"KS_PEN_HALFDARK", 0x909090, 0x8C8C8C},       {"KS_PEN_MARK", 0xC80000, 0x0000C8},
    {"KS_PEN_PAINTSHINE", 0x96C8FF, 0x96C8FF},     {"KS_PEN_PAINT", 0x4D97FF, 0x4D97FF},
    {"KS_PEN_PAINTDARK", 0x2064C8, 0x2064C8},
};
static_assert(std::size(kPens) == 23);

constexpr const char* kFonts[] = {"KS_FONT_NORMAL", "KS_FONT_FIXED", "KS_FONT_TITLE", "KS_FONT_SMALL",
                                  "KS_FONT_LARGE"};

std::string upper(std::string text) {
    for (char& c : text)
        if (c >= 'a' && c <= 'z')
            c -= 'a' - 'A';
    return text;
}

// Returns `digits`, with an optional sign, as the nearest number of long's range.
long saturated(const std::string& digits) {
    const bool negative = digits[0] == '-';
    __int128 value = 0;
    for (char c : digits)
        if (c >= '0' && c <= '9')
            value = std::min<__int128>(value * 10 + (c - '0'), static_cast<__int128>(1) << 100);
    if (negative)
        value = -value;
    return static_cast<long>(std::clamp<__int128>(value, LONG_MIN, LONG_MAX));
}

std::optional<long> leading_number(const std::string& text) {
    static const std::regex pattern("^[ \\t\\n\\v\\f\\r]*([-+]?[0-9]+)");
    std::smatch match;
    if (!std::regex_search(text, match, pattern))
        return std::nullopt;
    return saturated(match[1]);
}

color leading_color(std::string text) {
    static const std::regex pattern("^[ \\t\\n\\v\\f\\r]*([-+]?[0-9]+)(,?)");
    color result{};
    for (int& component : result) {
        std::smatch match;
        if (!std::regex_search(text, match, pattern))
            break;
        component = static_cast<int>(static_cast<unsigned long>(saturated(match[1])) % 256);
        const bool more = match[2].length() == 1;
        text = match.suffix();
        if (!more)
            break;
    }
    return result;
}

std::string trimmed(const std::string& rest) {
    static const std::regex ends("^[ =]+|[ \\n]+$");
    return std::regex_replace(rest, ends, "");
}

// At most 63 bytes, and no part of a character.
std::string name_of(const std::string& text) {
    std::size_t length = std::min<std::size_t>(text.size(), 63);
    while (length < text.size() && length > 0 && (text[length] & 0xC0) == 0x80)
        --length;
    return text.substr(0, length);
}

std::optional<font> font_of(const std::string& rest) {
    static const std::regex field("[^,\\n]+");
    std::vector<std::string> fields;
    for (std::sregex_iterator match(rest.begin(), rest.end(), field), end; match != end; ++match)
        fields.push_back(match->str());
    if (fields.size() < 3)
        return std::nullopt;
    static const std::regex size_pattern(
        "^[ \\t\\n\\v\\f\\r]*([-+]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][-+]?[0-9]+)?)");
    std::smatch size;
    const bool has_size = std::regex_search(fields[2], size, size_pattern);
    return font{name_of(std::regex_replace(fields[0], std::regex("^[ =]+"), "")), name_of(fields[1]),
                has_size ? std::stof(size[1]) : 0};
}

}  // namespace

settings::settings(const font& initial_font) {
    fonts.fill(initial_font);
    reset_colors(*this, false);
}

void reset_colors(settings& values, bool beos_conform) {
    for (std::size_t i = 0; i < values.pens.size(); ++i) {
        const unsigned word = beos_conform ? kPens[i].conform : kPens[i].standard;
        values.pens[i] = {static_cast<int>(word >> 16), static_cast<int>(word >> 8 & 255),
                          static_cast<int>(word & 255), 255};
    }
}

void read(settings& values, const std::string& bytes, const std::vector<std::string>& languages,
          const std::function<bool(const std::string&)>& readable) {
    std::map<std::string, std::function<void(const std::string&)>> actions;
    actions["LOOK"] = [&](const std::string& rest) {
        static const std::regex word("[^ \\t\\n\\v\\f\\r]+");
        const std::string value = trimmed(rest);
        std::smatch match;
        if (std::regex_search(value, match, word) && (match.str() == "BeOS" || match.str() == "Nymbrel"))
            values.look = match.str();
    };
    const auto on_off = [&](bool& value) {
        return [&value](const std::string& rest) {
            if (const auto number = leading_number(trimmed(rest)))
                value = *number != 0;
        };
    };
    const auto time = [&](long& value, long least, long most) {
        return [&value, least, most](const std::string& rest) {
            if (const auto number = leading_number(trimmed(rest)))
                value = std::clamp(*number, least, most);
        };
    };
    actions["BEOS"] = on_off(values.beos_conform);
    actions["BUBBLEHELPUSED"] = on_off(values.bubble_help);
    actions["BUBBLEHELPTIME"] = time(values.bubble_time, 500000, 10000000);
    actions["MOUSEHOLDTIME"] = time(values.mouse_time, 10000, 50000);
    actions["LANGUAGE"] = [&](const std::string& rest) {
        if (std::ranges::count(languages, trimmed(rest)))
            values.language = trimmed(rest);
    };
    for (std::size_t i = 0; i < values.pens.size(); ++i)
        actions[kPens[i].key] = [&, i](const std::string& rest) {
            values.pens[i] = leading_color(trimmed(rest));
        };
    for (std::size_t i = 0; i < values.bitmaps.size(); ++i)
        actions[std::string(kPens[i].key) + "_BMP"] = [&, i](const std::string& rest) {
            if (readable(trimmed(rest)))
                values.bitmaps[i] = trimmed(rest);
        };
    for (std::size_t i = 0; i < values.fonts.size(); ++i)
        actions[kFonts[i]] = [&, i](const std::string& rest) {
            values.fonts[i] = font_of(rest).value_or(values.fonts[i]);
        };

    for (std::size_t start = 0; start < bytes.size();) {
        const std::size_t feed = bytes.find('\n', start);
        const std::size_t length =
            std::min<std::size_t>(feed == std::string::npos ? bytes.size() - start : feed - start + 1, 1023);
        const std::string piece(bytes.substr(start, length).c_str());
        start += length;
        static const std::regex line("^[ =]*([^ =]+)[ =]([\\s\\S]+)$");
        std::smatch match;
        if (!std::regex_match(piece, match, line))
            continue;
        if (const auto action = actions.find(upper(match[1])); action != actions.end())
            action->second(match[2]);
    }
}

std::string write(const settings& values) {
    const auto number = [](long value) { return std::to_string(value); };
    std::string text = "LOOK = " + values.look + "\nBEOS = " + number(values.beos_conform) +
                       "\nLANGUAGE = " + values.language +
                       "\nBUBBLEHELPUSED = " + number(values.bubble_help) +
                       "\nBUBBLEHELPTIME = " + number(values.bubble_time) +
                       "\nMOUSEHOLDTIME = " + number(values.mouse_time) + "\n";
    for (std::size_t i = 0; i < values.pens.size(); ++i) {
        if (i < values.bitmaps.size() && !values.bitmaps[i].empty())
            text += std::string(kPens[i].key) + "_BMP = " + values.bitmaps[i] + "\n";
        const color& c = values.pens[i];
        text += std::string(kPens[i].key) + " = " + number(c[0]) + "," + number(c[1]) + "," + number(c[2]) +
                "," + number(c[3]) + "\n";
    }
    for (std::size_t i = 0; i < values.fonts.size(); ++i) {
        char size[32];
        std::snprintf(size, sizeof size, "%g", static_cast<double>(values.fonts[i].size));
        text += std::string(kFonts[i]) + " = " + values.fonts[i].family + "," + values.fonts[i].style + "," +
                size + "\n";
    }
    return text;
}

}  // namespace reference
