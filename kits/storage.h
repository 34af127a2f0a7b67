// SPDX-License-Identifier: MIT
// Files and directories, and where the platform's fixed paths lie here. What fails for a moment is tried
// again (kits/retry.h).
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

using status_t = int;
constexpr status_t B_OK = 0;
constexpr status_t B_ERROR = -1;
constexpr unsigned B_READ_ONLY = 0;
constexpr std::size_t B_FILE_NAME_LENGTH = 256;

// Returns where a path of the platform lies. "/boot/home/config/settings/X" lies at
// ${XDG_CONFIG_HOME:-$HOME/.config}/X, unless the directory /boot/home exists. A variable that holds no
// absolute path is ignored. Every other path, or this one without either variable, is returned as it is.
std::string ks_resolve_path(const std::string& path);

// Creates the directory in which settings lie ("/boot/home/config/settings"), with its parents, if it is
// missing; it never creates /boot/home. Failures are silent.
void ks_create_settings_directory();

// Returns whether there is an entry at a platform path, be it a link that leads nowhere.
bool ks_entry_exists(const std::string& path);

// Returns the first `most` bytes of the regular file at a platform path; nothing when one of them cannot be
// read. Never waits.
std::optional<std::string> ks_read_regular_file(const std::string& path, std::size_t most);

class BPath {
public:
    BPath() = default;
    explicit BPath(const char* path) : _path(path ? path : "") {}
    const char* Path() const { return _path.c_str(); }

private:
    std::string _path;
};

class BFile {
public:
    // Opens the file at a platform path; `mode` is B_READ_ONLY. Returns B_OK when it could be opened and is
    // not a directory. Never waits, whatever kind of file it is. Unset, SetTo and the destructor close the
    // file.
    status_t SetTo(const char* path, unsigned mode);
    void Unset();
    BFile() = default;
    ~BFile() { Unset(); }
    BFile(const BFile&) = delete;
    BFile& operator=(const BFile&) = delete;

private:
    int _descriptor = -1;
};

class BEntry {
public:
    // Copies the entry's name of at most 255 bytes into `buffer` of B_FILE_NAME_LENGTH bytes.
    status_t GetName(char* buffer) const;

private:
    friend class BDirectory;
    std::string _name;
};

class BDirectory {
public:
    BDirectory();
    ~BDirectory();
    BDirectory(const BDirectory&) = delete;
    BDirectory& operator=(const BDirectory&) = delete;

    // Opens the directory at a platform path; returns B_ERROR when it cannot be read.
    status_t SetTo(const char* path);
    status_t Rewind();
    // Gives the next entry in the directory's order, without "." and "..". Never follows links, whatever
    // `traverse` says. Returns B_ERROR after the last entry.
    status_t GetNextEntry(BEntry* entry, bool traverse = false);

private:
    struct Stream;
    std::unique_ptr<Stream> _stream;
};
