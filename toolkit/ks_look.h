// SPDX-License-Identifier: MIT
// A look: what the settings file says of how the toolkit's programs are drawn and timed.
#pragma once

#include "hdr/ks_color.h"
#include "kits/BFont.h"

#include <array>
#include <string>

enum ks_font : int {
    KS_FONT_NORMAL,
    KS_FONT_FIXED,
    KS_FONT_TITLE,
    KS_FONT_SMALL,
    KS_FONT_LARGE,
};

// What the settings file calls the two looks.
inline constexpr const char* kLookLabels[] = {"BeOS", "Nymbrel"};

struct ks_look {
    static constexpr std::size_t kPens = 23;   // KS_PEN_NONE has no colour
    static constexpr std::size_t kLevels = 9;  // the background pens: those with a bitmap
    static constexpr std::size_t kFonts = 5;

    std::array<ks_color, kPens> pens;          // indexed by ks_pen
    std::array<std::string, kLevels> bitmaps;  // paths; empty where a level has none
    std::array<BFont, kFonts> fonts;           // indexed by ks_font
    bool is_nymbrel = false;                   // else the BeOS look
    bool bubble_help = true;
    float bubble_wait = 2000000;  // microseconds before a bubble help is shown
    float mouse_hold = 30000;     // microseconds between the repeats of a held arrow

    friend bool operator==(const ks_look&, const ks_look&) = default;
};
