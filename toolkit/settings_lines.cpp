// SPDX-License-Identifier: MIT
#include "toolkit/settings_lines.h"

#include "kits/QuitSignals.h"
#include "kits/retry.h"
#include "kits/storage.h"

#include <algorithm>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr const char* kSeparators = " =";
constexpr const char* kBlanks = " =\t\r\n";
constexpr std::size_t kPieceLength = 1023;
constexpr std::size_t kKeyRoom = 63;  // for the longest key, its "_BMP", " = " and the line feed

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Reserves room for `length` bytes without changing the file's size; false when there is none. Files that
// cannot reserve any are left to the writing itself.
bool Reserve(int descriptor, std::size_t length) {
    const auto reserve = [&] {
        return fallocate(descriptor, FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(length));
    };
    return ks_retried(reserve) == 0 || (errno != ENOSPC && errno != EDQUOT);
}

// The text goes out in one call: readers see old and new mixed for a moment only.
bool WriteAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = ks_retried([&] { return write(descriptor, text.data(), text.size()); });
        if (count <= 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

// Cuts off what is left of a longer text. Pipes and devices have no length to cut: EINVAL.
bool Cut(int descriptor, std::size_t length) {
    return ks_retried([&] { return ftruncate(descriptor, static_cast<off_t>(length)); }) == 0 ||
           errno == EINVAL;
}

// Returns the length of the piece that `text` begins with.
std::size_t PieceLength(std::string_view text) {
    const std::size_t end = text.substr(0, kPieceLength).find('\n');
    return end == std::string_view::npos ? std::min(text.size(), kPieceLength) : end + 1;
}

std::string_view UpToNul(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

}  // namespace

std::string ks_settings_line::Value() const {
    const std::size_t start = rest.find_first_not_of(kSeparators);
    if (start == std::string::npos)
        return {};
    const std::size_t last = rest.find_last_not_of(" \n");
    return last == std::string::npos || last < start ? std::string() : rest.substr(start, last - start + 1);
}

// Not strcasecmp(): keys do not change their case with the user's locale.
bool ks_settings_line::Is(std::string_view other) const {
    return std::equal(key.begin(), key.end(), other.begin(), other.end(),
                      [](char a, char b) { return Lower(a) == Lower(b); });
}

std::optional<ks_settings_line> ks_settings_piece::Line() const {
    const std::string_view read = UpToNul(text);
    const std::size_t start = std::min(read.find_first_not_of(kSeparators), read.size());
    const std::size_t end = read.find_first_of(kSeparators, start);
    if (end == std::string_view::npos || end + 1 == read.size())
        return std::nullopt;
    return ks_settings_line{std::string(read.substr(start, end - start)), std::string(read.substr(end + 1))};
}

bool ks_settings_piece::IsBlank() const {
    return UpToNul(text).find_first_not_of(kBlanks) == std::string_view::npos;
}

void ks_read_settings_pieces(std::string_view text,
                             const std::function<void(const ks_settings_piece&)>& handle) {
    bool is_tail = false;
    for (std::size_t number = 1; !text.empty();) {
        const std::string_view piece = text.substr(0, PieceLength(text));
        handle({piece, number, is_tail});
        is_tail = !piece.ends_with('\n');
        number += !is_tail;
        text.remove_prefix(piece.size());
    }
}

std::size_t ks_read_settings_lines(std::string_view text,
                                   const std::function<void(const ks_settings_line&)>& handle) {
    std::size_t others = 0;
    ks_read_settings_pieces(text, [&](const ks_settings_piece& piece) {
        if (const std::optional<ks_settings_line> line = piece.Line())
            handle(*line);
        else
            others += !piece.IsBlank();
    });
    return others;
}

bool ks_read_settings_lines(const std::function<void(const ks_settings_line&)>& handle) {
    const std::optional<std::string> text = ks_read_regular_file(kSettingsPath, kLongestSettingsFile);
    if (text)
        ks_read_settings_lines(*text, handle);
    return text.has_value();
}

bool ks_write_settings_file(const std::string& path, std::string_view text) {
    const std::string where = ks_resolve_path(path);
    const WholeWrite from_here_to_the_end;
    const int descriptor =
        ks_retried([&] { return open(where.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666); });
    if (descriptor < 0)
        return false;
    const bool is_written =
        Reserve(descriptor, text.size()) && WriteAll(descriptor, text) && Cut(descriptor, text.size());
    return close(descriptor) == 0 && is_written;
}

bool ks_fits_settings_line(std::string_view value) {
    constexpr std::string_view forbidden("\n\0", 2);
    return !value.empty() && value.size() <= kPieceLength - kKeyRoom &&
           value.find_first_of(forbidden) == std::string_view::npos && value.front() != ' ' &&
           value.front() != '=' && value.back() != ' ';
}
