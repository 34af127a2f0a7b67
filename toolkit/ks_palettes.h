// SPDX-License-Identifier: MIT
// The two palettes of the toolkit.
#pragma once

#include "toolkit/ks_look.h"

enum ks_palette : int { kDefaultPalette, kBeOSConformPalette };

// Indexed by the palette and the pen.
inline constexpr std::array<ks_color, ks_look::kPens> ks_palettes[] = {
    {{
        {188, 188, 188},  // KS_PEN_BG_LOW
        {199, 199, 199},  // KS_PEN_BG_MED
        {211, 211, 211},  // KS_PEN_BG_HIGH
        {233, 233, 233},  // KS_PEN_BG_EDIT
        {188, 188, 188},  // KS_PEN_BG_READ
        {233, 233, 233},  // KS_PEN_BG_LIST
        {222, 222, 222},  // KS_PEN_BG_BUTTON
        {144, 144, 166},  // KS_PEN_BG_SLIDER
        {144, 144, 166},  // KS_PEN_BG_SELECTED
        {0, 0, 0},  // KS_PEN_TEXT
        {128, 128, 128},  // KS_PEN_DISABLEDTEXT
        {166, 166, 188},  // KS_PEN_TEXT_BG_CURSOR
        {0, 0, 0},  // KS_PEN_TEXT_FG_CURSOR
        {0, 0, 0},  // KS_PEN_TEXT_FG_MARKED
        {188, 166, 166},  // KS_PEN_TEXT_BG_MARKED
        {255, 255, 255},  // KS_PEN_SHINE
        {64, 64, 64},  // KS_PEN_DARK
        {233, 233, 233},  // KS_PEN_HALFSHINE
        {144, 144, 144},  // KS_PEN_HALFDARK
        {200, 0, 0},  // KS_PEN_MARK
        {150, 200, 255},  // KS_PEN_PAINTSHINE
        {77, 151, 255},  // KS_PEN_PAINT
        {32, 100, 200},  // KS_PEN_PAINTDARK
    }},
    {{
        {210, 210, 210},  // KS_PEN_BG_LOW
        {210, 210, 210},  // KS_PEN_BG_MED
        {210, 210, 210},  // KS_PEN_BG_HIGH
        {255, 255, 255},  // KS_PEN_BG_EDIT
        {255, 255, 255},  // KS_PEN_BG_READ
        {255, 255, 255},  // KS_PEN_BG_LIST
        {230, 230, 230},  // KS_PEN_BG_BUTTON
        {200, 200, 200},  // KS_PEN_BG_SLIDER
        {140, 140, 140},  // KS_PEN_BG_SELECTED
        {0, 0, 0},  // KS_PEN_TEXT
        {150, 150, 150},  // KS_PEN_DISABLEDTEXT
        {140, 140, 140},  // KS_PEN_TEXT_BG_CURSOR
        {0, 0, 0},  // KS_PEN_TEXT_FG_CURSOR
        {0, 0, 0},  // KS_PEN_TEXT_FG_MARKED
        {140, 140, 140},  // KS_PEN_TEXT_BG_MARKED
        {255, 255, 255},  // KS_PEN_SHINE
        {80, 80, 80},  // KS_PEN_DARK
        {230, 230, 230},  // KS_PEN_HALFSHINE
        {140, 140, 140},  // KS_PEN_HALFDARK
        {0, 0, 200},  // KS_PEN_MARK
        {150, 200, 255},  // KS_PEN_PAINTSHINE
        {77, 151, 255},  // KS_PEN_PAINT
        {32, 100, 200},  // KS_PEN_PAINTDARK
    }},
};
