// SPDX-License-Identifier: MIT
#include "kits/storage.h"

#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::string_view kHome = "/boot/home";
constexpr std::string_view kSettings = "/boot/home/config/settings";

bool HasPlatformHome() {
    std::error_code error;
    return std::filesystem::is_directory(kHome, error);
}

// Returns the variable's value where it is an absolute path, else the empty text.
std::string DirectoryVariable(const char* name) {
    const char* value = std::getenv(name);
    return value && value[0] == '/' ? value : "";
}

// Returns where a Linux user's settings lie, or the empty text where the environment does not tell.
std::string UserSettingsDirectory() {
    std::string directory = DirectoryVariable("XDG_CONFIG_HOME");
    if (!directory.empty())
        return directory;
    directory = DirectoryVariable("HOME");
    return directory.empty() ? directory : directory + "/.config";
}

// Returns -1 for a failure. Does not wait for the other end of a pipe.
int OpenToRead(const std::string& path) {
    return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

}  // namespace

std::string ks_resolve_path(const std::string& path) {
    const bool in_settings =
        path.starts_with(kSettings) && (path.size() == kSettings.size() || path[kSettings.size()] == '/');
    if (!in_settings || HasPlatformHome())
        return path;
    const std::string directory = UserSettingsDirectory();
    return directory.empty() ? path : directory + path.substr(kSettings.size());
}

void ks_create_settings_directory() {
    // Only the platform itself makes /boot/home: where it exists, it moves every path.
    const std::string directory = ks_resolve_path(std::string(kSettings));
    if (directory == kSettings && !HasPlatformHome())
        return;
    std::error_code error;
    std::filesystem::create_directories(directory, error);
}

std::FILE* ks_open_regular_file(const std::string& path) {
    const int descriptor = OpenToRead(ks_resolve_path(path));
    if (descriptor < 0)
        return nullptr;
    struct stat about {};
    std::FILE* file = nullptr;
    if (fstat(descriptor, &about) == 0 && S_ISREG(about.st_mode))
        file = fdopen(descriptor, "r");
    if (!file)
        close(descriptor);
    return file;
}

status_t BFile::SetTo(const char* path, unsigned mode) {
    Unset();
    if (!path || mode != B_READ_ONLY)
        return B_ERROR;
    _descriptor = OpenToRead(ks_resolve_path(path));
    struct stat about {};
    if (_descriptor >= 0 && fstat(_descriptor, &about) == 0 && !S_ISDIR(about.st_mode))
        return B_OK;
    Unset();
    return B_ERROR;
}

void BFile::Unset() {
    if (_descriptor >= 0)
        close(_descriptor);
    _descriptor = -1;
}

status_t BEntry::GetName(char* buffer) const {
    if (!buffer || _name.empty())
        return B_ERROR;
    buffer[_name.copy(buffer, B_FILE_NAME_LENGTH - 1)] = '\0';
    return B_OK;
}

struct BDirectory::Stream {
    explicit Stream(DIR* directory_) : directory(directory_) {}
    ~Stream() { closedir(directory); }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    DIR* directory;
};

BDirectory::BDirectory() = default;
BDirectory::~BDirectory() = default;

status_t BDirectory::SetTo(const char* path) {
    _stream.reset();
    DIR* directory = path ? opendir(ks_resolve_path(path).c_str()) : nullptr;
    if (!directory)
        return B_ERROR;
    _stream = std::make_unique<Stream>(directory);
    return B_OK;
}

status_t BDirectory::Rewind() {
    if (!_stream)
        return B_ERROR;
    rewinddir(_stream->directory);
    return B_OK;
}

status_t BDirectory::GetNextEntry(BEntry* entry, bool) {
    if (!_stream || !entry)
        return B_ERROR;
    while (const dirent* next = readdir(_stream->directory)) {
        if (std::strcmp(next->d_name, ".") == 0 || std::strcmp(next->d_name, "..") == 0)
            continue;
        entry->_name = next->d_name;
        return B_OK;
    }
    return B_ERROR;
}
