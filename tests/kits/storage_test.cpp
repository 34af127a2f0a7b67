// SPDX-License-Identifier: MIT
// Where the platform's paths lie, and files and directories that must not stop the program.
#include "kits/storage.h"
#include "tests/support/home.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

class Storage : public testing::Test {
protected:
    ScopedHome root;
    ScopedVariable config_home{"XDG_CONFIG_HOME", nullptr};
    ScopedVariable home{"HOME", nullptr};
};

TEST_F(Storage, FindsTheSettingsOfTheUser) {
    constexpr const char* kFile = "/boot/home/config/settings/X";
    const struct {
        const char *config_home, *home, *path, *want;
    } kPaths[] = {
        {"/c", "/h", kFile, "/c/X"},
        {"", "/h", kFile, "/h/.config/X"},
        {"c", "/h", kFile, "/h/.config/X"},
        {nullptr, nullptr, kFile, kFile},
        {"c", "h", kFile, kFile},
        {"/c", "/h", "/boot/home/config/settings/A/B", "/c/A/B"},
        {"/c", "/h", "/boot/home/config/settings", "/c"},
        {"/c", "/h", "/boot/home/config/settings2", "/boot/home/config/settings2"},
    };
    for (const auto& row : kPaths) {
        config_home.Set(row.config_home);
        home.Set(row.home);
        EXPECT_EQ(ks_resolve_path(row.path), row.want) << row.path;
    }
}

TEST_F(Storage, CreatesTheSettingsDirectoryButNotThePlatforms) {
    config_home.Set((root / "a/b").c_str());
    ks_create_settings_directory();
    EXPECT_TRUE(fs::is_directory(root / "a/b"));

    root.Write("file", "text");
    config_home.Set((root / "file/b").c_str());
    ks_create_settings_directory();  // cannot, and does not throw

    config_home.Set(nullptr);
    ks_create_settings_directory();
    EXPECT_FALSE(fs::exists("/boot/home"));
}

TEST_F(Storage, OpensFilesAndNeverWaits) {
    root.Write("file", "text");
    fs::create_directory(root / "directory");
    fs::create_symlink("nowhere", root / "dangling");
    ASSERT_EQ(mkfifo((root / "fifo").c_str(), 0600), 0);
    const struct {
        const char* name;
        bool opens, is_regular;
    } kFiles[] = {
        {"file", true, true},
        {"fifo", true, false},
        {"directory", false, false},
        {"dangling", false, false},
    };
    BFile file;
    for (const auto& [name, opens, is_regular] : kFiles) {
        EXPECT_EQ(file.SetTo((root / name).c_str(), B_READ_ONLY) == B_OK, opens) << name;
        EXPECT_EQ(ks_read_regular_file(root / name, 3), is_regular ? std::optional("tex") : std::nullopt)
            << name;
    }
    EXPECT_NE(file.SetTo(nullptr, B_READ_ONLY), B_OK);
    EXPECT_NE(file.SetTo((root / "file").c_str(), 1), B_OK);
    EXPECT_FALSE(ks_read_regular_file("/dev/zero", 3));
}

TEST_F(Storage, ListsEntriesOfEveryKind) {
    const std::set<std::string> wanted = {"file", std::string(255, 'n'), ".hidden", ".config"};
    for (const std::string& name : wanted)
        if (name != ".config")
            root.Write(name, "text");
    BDirectory directory;
    BEntry entry;
    char name[B_FILE_NAME_LENGTH];
    EXPECT_TRUE(directory.Rewind() != B_OK && entry.GetName(name) != B_OK);
    ASSERT_EQ(directory.SetTo((root / "").c_str()), B_OK);
    for (int pass = 0; pass < 2; ++pass) {
        ASSERT_EQ(directory.Rewind(), B_OK);
        std::set<std::string> names;
        while (directory.GetNextEntry(&entry) == B_OK && entry.GetName(name) == B_OK)
            EXPECT_TRUE(names.insert(name).second) << name;
        EXPECT_EQ(names, wanted);
    }
    EXPECT_NE(directory.SetTo((root / "missing").c_str()), B_OK);
    EXPECT_NE(directory.GetNextEntry(&entry), B_OK);
}

}  // namespace
