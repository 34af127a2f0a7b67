// SPDX-License-Identifier: MIT
#include "kits/storage.h"

#include "kits/retry.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr const char* kHome = "/boot/home";
constexpr std::string_view kSettings = "/boot/home/config/settings";

bool HasPlatformHome() {
    struct stat about {};
    return ks_retried([&] { return stat(kHome, &about); }) == 0 && S_ISDIR(about.st_mode);
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
    return ks_retried([&] { return open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); });
}

// Closes a descriptor at the end of the scope.
class Descriptor {
public:
    explicit Descriptor(int number) : _number(number) {}
    ~Descriptor() {
        if (_number >= 0)
            close(_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    operator int() const { return _number; }

private:
    int _number;
};

// Returns the mode of an open file; 0 when it cannot be told.
mode_t ModeOf(int descriptor) {
    struct stat about {};
    return ks_retried([&] { return fstat(descriptor, &about); }) == 0 ? about.st_mode : 0;
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

bool ks_entry_exists(const std::string& path) {
    struct stat about {};
    return ks_retried([&] { return lstat(ks_resolve_path(path).c_str(), &about); }) == 0;
}

std::optional<std::string> ks_read_regular_file(const std::string& path, std::size_t most) {
    constexpr std::size_t kStep = 1 << 16;
    const Descriptor file(OpenToRead(ks_resolve_path(path)));
    if (file < 0 || !S_ISREG(ModeOf(file)))
        return std::nullopt;
    std::string bytes;
    for (std::size_t size = 0;;) {
        bytes.resize(std::min(most, size + kStep));
        const ssize_t count =
            ks_retried([&] { return read(file, bytes.data() + size, bytes.size() - size); });
        if (count < 0)
            return std::nullopt;
        size += static_cast<std::size_t>(count);
        if (count == 0 || size == most) {
            bytes.resize(size);
            return bytes;
        }
    }
}

status_t BFile::SetTo(const char* path, unsigned mode) {
    Unset();
    if (!path || mode != B_READ_ONLY)
        return B_ERROR;
    _descriptor = OpenToRead(ks_resolve_path(path));
    const mode_t mode_found = _descriptor >= 0 ? ModeOf(_descriptor) : 0;
    if (mode_found != 0 && !S_ISDIR(mode_found))
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
    DIR* directory = nullptr;
    const auto open_directory = [&] {
        directory = opendir(ks_resolve_path(path).c_str());
        return directory ? 0 : -1;
    };
    if (!path || ks_retried(open_directory) != 0)
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
    const dirent* next = nullptr;
    const auto read_entry = [&] {
        errno = 0;
        next = readdir(_stream->directory);
        return next || errno == 0 ? 0 : -1;
    };
    while (ks_retried(read_entry) == 0 && next) {
        if (std::strcmp(next->d_name, ".") == 0 || std::strcmp(next->d_name, "..") == 0)
            continue;
        entry->_name = next->d_name;
        return B_OK;
    }
    return B_ERROR;
}
