// SPDX-License-Identifier: MIT
// A home directory of its own for each test that reads or writes settings.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <sstream>
#include <string>
#include <unistd.h>

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

private:
    void Set(const char* value) {
        if (value)
            setenv(_name, value, 1);
        else
            unsetenv(_name);
    }

    const char* _name;
    std::optional<std::string> _before;
};

// An empty home directory with a settings directory, where the program looks for both until the end of the
// scope.
class ScopedHome {
public:
    ScopedHome() { std::filesystem::create_directories(SettingsDirectory()); }
    ~ScopedHome() { std::filesystem::remove_all(_home); }

    const std::filesystem::path& Path() const { return _home; }
    std::filesystem::path SettingsDirectory() const { return _home / ".config"; }
    std::filesystem::path SettingsFile() const { return SettingsDirectory() / "Nymbrel_settings"; }
    std::filesystem::path CatalogsDirectory() const { return SettingsDirectory() / "Kestrune/Catalogs"; }

    // Returns the path of a new file that can be read.
    std::string NewFile(const std::string& name) const {
        Write(_home / name, "picture");
        return _home / name;
    }

    static void Write(const std::filesystem::path& path, const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    static std::string Read(const std::filesystem::path& path) {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }

private:
    static std::filesystem::path NewDirectory() {
        EXPECT_FALSE(std::filesystem::is_directory("/boot/home")) << "the tests need a home of their own";
        std::string path = std::filesystem::temp_directory_path() / "nymbrel-XXXXXX";
        EXPECT_NE(mkdtemp(path.data()), nullptr);
        return path;
    }

    std::filesystem::path _home = NewDirectory();
    ScopedVariable _home_variable{"HOME", _home.c_str()};
    ScopedVariable _config_variable{"XDG_CONFIG_HOME", nullptr};
};
