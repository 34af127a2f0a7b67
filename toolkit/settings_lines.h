// SPDX-License-Identifier: MIT
// The grammar of the toolkit's settings file, line by line; what the values mean is the caller's.
#pragma once

#include <functional>
#include <string>
#include <string_view>

// Where the platform keeps the file and the catalogs.
constexpr const char* kSettingsPath = "/boot/home/config/settings/Nymbrel_settings";
constexpr const char* kCatalogsPath = "/boot/home/config/settings/Kestrune/Catalogs";

// One line: its key and what follows the one separator that ended the key.
struct ks_settings_line {
    std::string key;
    std::string rest;
    // `rest` without leading spaces and "=" and without trailing spaces and line feeds.
    std::string Value() const;
    // Whether the line's key is `other`, whatever the case of its ASCII letters.
    bool Is(std::string_view other) const;
};

// Reads the file in pieces of at most 1023 characters, one line each at most, and calls `handle` for every
// piece that has a key and something behind it; a NUL byte ends its piece. Returns false, without waiting,
// when there is no regular file that can be opened.
bool ks_read_settings_lines(const std::function<void(const ks_settings_line&)>& handle);

// Returns whether a value that is written behind a key comes back whole: it is not empty, has no line feed or
// NUL in it, no space or "=" at its start, no space at its end, and leaves room for the key in a piece.
bool ks_fits_settings_line(std::string_view value);
