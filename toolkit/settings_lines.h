// SPDX-License-Identifier: MIT
// The grammar of the toolkit's settings file, line by line; what the values mean is the caller's.
#pragma once

#include <functional>
#include <string>

// Where the platform keeps the file and the catalogs.
constexpr const char* kSettingsPath = "/boot/home/config/settings/Nymbrel_settings";
constexpr const char* kCatalogsPath = "/boot/home/config/settings/Kestrune/Catalogs";

// One line: its key and what follows the one separator that ended the key.
struct ks_settings_line {
    std::string key;
    std::string rest;
    // `rest` without leading spaces and "=" and without trailing spaces and line feeds.
    std::string Value() const;
    // Whether the line's key is `key`, whatever the case of its letters.
    bool Is(const std::string& key) const;
};

// Reads the file in pieces of at most 1023 characters, one line each at most, and calls `handle` for every
// piece that has a key and something behind it. Returns false when the file cannot be opened.
bool ks_read_settings_lines(const std::function<void(const ks_settings_line&)>& handle);
