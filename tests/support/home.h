// SPDX-License-Identifier: MIT
// Directories, homes and environment variables that last as long as a test.
#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>

// Sets an environment variable, or removes it, until the end of the scope.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const char* value) : _name(name) {
        if (const char* before = std::getenv(name))
            _before = before;
        Set(value);
    }
    ~ScopedVariable() { Set(_before ? _before->c_str() : nullptr); }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

    void Set(const char* value) {
        if (value)
            setenv(_name, value, 1);
        else
            unsetenv(_name);
    }

private:
    const char* _name;
    std::optional<std::string> _before;
};

// An empty directory, removed with all that is in it at the end of the scope.
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

    const std::filesystem::path& Path() const { return _path; }
    std::string operator/(const std::string& name) const { return _path / name; }
    // Writes a file of the directory, and the directories that it needs.
    void Write(const std::filesystem::path& name, std::string_view bytes) const {
        std::filesystem::create_directories((_path / name).parent_path());
        std::ofstream(_path / name, std::ios::binary) << bytes;
    }
    static std::string Read(const std::filesystem::path& path) {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }

private:
    std::filesystem::path _path;
};

// A home directory with an empty settings directory, where programs look for both until the end of the scope.
class ScopedHome : public TemporaryDirectory {
public:
    ScopedHome() {
        EXPECT_FALSE(std::filesystem::is_directory("/boot/home")) << "the tests need a home of their own";
        std::filesystem::create_directories(SettingsDirectory());
    }

    std::filesystem::path SettingsDirectory() const { return Path() / ".config"; }
    std::filesystem::path SettingsFile() const { return SettingsDirectory() / "Nymbrel_settings"; }
    std::filesystem::path CatalogsDirectory() const { return SettingsDirectory() / "Kestrune/Catalogs"; }

    // Returns the path of a new file that can be read.
    std::string NewFile(const std::string& name) const {
        Write(name, "picture");
        return *this / name;
    }

private:
    ScopedVariable _home{"HOME", Path().c_str()};
    ScopedVariable _config_home{"XDG_CONFIG_HOME", nullptr};
    ScopedVariable _runtime{"XDG_RUNTIME_DIR", Path().c_str()};
};
