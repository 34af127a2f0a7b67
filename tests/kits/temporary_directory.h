// SPDX-License-Identifier: MIT
// A directory for one test, removed with it.
#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

class TemporaryDirectory {
public:
    TemporaryDirectory() {
        std::string name = std::filesystem::temp_directory_path() / "nymbrel-test-XXXXXX";
        if (!mkdtemp(name.data()))
            throw std::system_error(errno, std::generic_category(), "mkdtemp");
        _path = name;
    }
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(_path, ignored);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    std::string operator/(std::string_view name) const { return _path / name; }
    // Writes a file, and the directories that it needs.
    void Write(std::string_view name, std::string_view bytes) const {
        std::filesystem::create_directories((_path / name).parent_path());
        std::ofstream(_path / name, std::ios::binary) << bytes;
    }

private:
    std::filesystem::path _path;
};
