// SPDX-License-Identifier: MIT
#include "toolkit/settings_lines.h"

#include "kits/storage.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace {

constexpr const char* kSeparators = " =";
constexpr std::size_t kPieceLength = 1023;
constexpr std::size_t kKeyRoom = 63;  // for the longest key, its "_BMP", " = " and the line feed

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Reserves room for `length` bytes without changing the file's size; false when there is none. Files that
// cannot reserve any are left to the writing itself.
bool Reserve(int descriptor, std::size_t length) {
    while (fallocate(descriptor, FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(length)) != 0)
        if (errno != EINTR)
            return errno != ENOSPC && errno != EDQUOT;
    return true;
}

// The text goes out in one call: readers see old and new mixed for a moment only.
bool WriteAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = write(descriptor, text.data(), text.size());
        if (count > 0)
            text.remove_prefix(static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            return false;
    }
    return true;
}

// Cuts off what is left of a longer text. Pipes and devices have no length to cut: EINVAL.
bool Cut(int descriptor, std::size_t length) {
    while (ftruncate(descriptor, static_cast<off_t>(length)) != 0)
        if (errno != EINTR)
            return errno == EINVAL;
    return true;
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

bool ks_read_settings_lines(const std::function<void(const ks_settings_line&)>& handle) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(ks_open_regular_file(kSettingsPath),
                                                               std::fclose);
    if (!file)
        return false;
    char buffer[kPieceLength + 1];
    while (std::fgets(buffer, sizeof buffer, file.get())) {
        const std::string_view piece(buffer);
        const std::size_t start = std::min(piece.find_first_not_of(kSeparators), piece.size());
        const std::size_t end = piece.find_first_of(kSeparators, start);
        if (end == std::string_view::npos || end + 1 == piece.size())
            continue;
        handle({std::string(piece.substr(start, end - start)), std::string(piece.substr(end + 1))});
    }
    return true;
}

// SIGTERM and SIGINT are blocked in every thread while the application runs (QuitSignals), so neither ends
// the program between the writing and the cutting.
bool ks_write_settings_file(std::string_view text) {
    const int descriptor =
        open(ks_resolve_path(kSettingsPath).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
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
