// SPDX-License-Identifier: MIT
// A scheme: what a text of the settings file's grammar says of the pens, the bitmaps, the fonts and the look.
// The other settings are no part of it.
#pragma once

#include "toolkit/ks_look.h"
#include "toolkit/ks_palettes.h"
#include "toolkit/settings_values.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>

// A value that the scheme does not name is empty.
struct ks_scheme {
    std::array<std::optional<ks_color>, ks_look::kPens> pens;
    std::array<std::optional<std::string>, ks_look::kLevels> bitmaps;
    std::array<std::optional<BFont>, ks_look::kFonts> fonts;
    std::optional<bool> is_nymbrel;

    // Takes the value of a line. Returns false where it has none that a scheme holds.
    bool Take(const ks_setting& setting, const ks_settings_line& line);
    // Takes away the bitmaps of the levels whose colour is named without a bitmap, as the settings file does.
    void ClearOtherBitmaps();

    friend bool operator==(const ks_scheme&, const ks_scheme&) = default;
};

// One of the palettes without bitmaps in the BeOS look. It leaves the fonts as they are.
ks_scheme ks_palette_scheme(ks_palette which);

// Returns whether a scheme can hold the setting.
bool ks_is_of_scheme(const ks_setting& setting);

// What a scheme's file says.
struct ks_scheme_file {
    ks_scheme scheme;
    std::size_t values = 0;  // lines whose value was taken
    std::size_t faults = 0;  // lines that are no settings, or have no value that can be taken
};

// Reads a scheme. Returns nothing unless `path` is a regular file of at most 1 MiB that can be read. Bitmaps
// that cannot be opened are left out. Never waits.
std::optional<ks_scheme_file> ks_read_scheme(const std::string& path);

// Returns the lines of a scheme that names every value of the look.
std::string ks_format_scheme(const ks_look& look);
