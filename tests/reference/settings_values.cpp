// SPDX-License-Identifier: MIT
#include "tests/reference/settings_values.h"

#include <sstream>

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

std::string write(const settings& values) {
    std::ostringstream text;
    text << "LOOK = " << values.look << "\nBEOS = " << values.beos_conform
         << "\nLANGUAGE = " << values.language << "\nBUBBLEHELPUSED = " << values.bubble_help
         << "\nBUBBLEHELPTIME = " << values.bubble_time << "\nMOUSEHOLDTIME = " << values.mouse_time << '\n';
    for (std::size_t i = 0; i < values.pens.size(); ++i) {
        if (i < values.bitmaps.size() && !values.bitmaps[i].empty())
            text << kPens[i].key << "_BMP = " << values.bitmaps[i] << '\n';
        const color& c = values.pens[i];
        text << kPens[i].key << " = " << c[0] << ',' << c[1] << ',' << c[2] << ',' << c[3] << '\n';
    }
    for (std::size_t i = 0; i < values.fonts.size(); ++i) {
        const font& f = values.fonts[i];
        text << kFonts[i] << " = " << f.family << ',' << f.style << ',' << f.size << '\n';  // as "%g" does
    }
    return text.str();
}

}  // namespace reference
