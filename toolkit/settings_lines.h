// SPDX-License-Identifier: MIT
// The toolkit's settings file: its lines are read one by one and written all at once.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
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

// What is read as one line: at most 1023 characters. A longer line of the text is several pieces.
struct ks_settings_piece {
    std::string_view text;  // with the line feed, if the piece ends in one
    std::size_t number;     // its line's, from 1
    bool is_tail;           // whether the line begins in a piece before this one

    // Returns the piece's key and what follows it, if it has both; a NUL byte ends the piece.
    std::optional<ks_settings_line> Line() const;
    // Whether there is nothing to read in it.
    bool IsBlank() const;
};

// Calls `handle` for every piece of a text.
void ks_read_settings_pieces(std::string_view text,
                             const std::function<void(const ks_settings_piece&)>& handle);

// Calls `handle` for every piece of a text that is a line. Returns how many other pieces there are that are
// not blank.
std::size_t ks_read_settings_lines(std::string_view text,
                                   const std::function<void(const ks_settings_line&)>& handle);

// Longer files are no settings; their rest is not read.
constexpr std::size_t kLongestSettingsFile = 64 << 20;

// Reads the file's text, or the first 64 MiB of it. Returns false without a call of `handle` when there is no
// regular file that can be read. Never waits.
bool ks_read_settings_lines(const std::function<void(const ks_settings_line&)>& handle);

// Writes `text` over the file at a platform path, which keeps its inode and is created where it is missing.
// Returns whether all of it was written. A failure before the first byte, such as a full disk, leaves the
// file as it was; a later one may leave the new text's start before the old text's rest. Never waits for a
// pipe's other end. A quit signal waits for it (kits/QuitSignals.h).
bool ks_write_settings_file(const std::string& path, std::string_view text);

// Returns whether a value that is written behind a key comes back whole: it is not empty, contains no line
// feed and no NUL, starts with neither space nor "=", does not end in a space, and leaves room for the key.
bool ks_fits_settings_line(std::string_view value);
