// SPDX-License-Identifier: MIT
// Where the platform's paths lie, and files and directories that must not stop the program.
#include "kits/storage.h"
#include "tests/support/home.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

// Sets a variable, or unsets it for null.
void SetVariable(const char* name, const char* value) {
    if (value)
        setenv(name, value, 1);
    else
        unsetenv(name);
}

struct path_case {
    const char* name;
    const char* config_home;
    const char* home;
    const char* path;
    const char* want;
};

void PrintTo(const path_case& value, std::ostream* out) {
    *out << value.name;
}

class Resolve : public testing::TestWithParam<path_case> {};

TEST_P(Resolve, FindsThePath) {
    if (fs::is_directory("/boot/home"))
        GTEST_SKIP() << "this is the platform itself";
    SetVariable("XDG_CONFIG_HOME", GetParam().config_home);
    SetVariable("HOME", GetParam().home);
    EXPECT_EQ(ks_resolve_path(GetParam().path), GetParam().want);
}

constexpr const char* kFile = "/boot/home/config/settings/X";
const path_case kPaths[] = {
    {"ConfigHomeFirst", "/c", "/h", kFile, "/c/X"},
    {"HomeNext", nullptr, "/h", kFile, "/h/.config/X"},
    {"EmptyIsUnset", "", "/h", kFile, "/h/.config/X"},
    {"RelativeIsIgnored", "c", "/h", kFile, "/h/.config/X"},
    {"NoHome", nullptr, nullptr, kFile, kFile},
    {"RelativeHome", "c", "h", kFile, kFile},
    {"DeepPath", "/c", "/h", "/boot/home/config/settings/A/B", "/c/A/B"},
    {"DirectoryItself", "/c", "/h", "/boot/home/config/settings", "/c"},
    {"OtherName", "/c", "/h", "/boot/home/config/settings2", "/boot/home/config/settings2"},
    {"OtherPlace", "/c", "/h", "/boot/home/x", "/boot/home/x"},
    {"Relative", "/c", "/h", "boot/home/config/settings/X", "boot/home/config/settings/X"},
    {"Empty", "/c", "/h", "", ""},
};

INSTANTIATE_TEST_SUITE_P(Paths, Resolve, testing::ValuesIn(kPaths),
                         [](const auto& param) { return std::string(param.param.name); });

class Storage : public testing::Test {
protected:
    TemporaryDirectory root;
};

TEST_F(Storage, CreatesTheSettingsDirectoryButNotThePlatforms) {
    if (fs::is_directory("/boot/home"))
        GTEST_SKIP() << "this is the platform itself";
    setenv("XDG_CONFIG_HOME", (root / "a/b").c_str(), 1);
    ks_create_settings_directory();
    EXPECT_TRUE(fs::is_directory(root / "a/b"));
    ks_create_settings_directory();

    root.Write("file", "text");
    setenv("XDG_CONFIG_HOME", (root / "file/b").c_str(), 1);
    ks_create_settings_directory();
    EXPECT_TRUE(fs::is_regular_file(root / "file"));

    unsetenv("XDG_CONFIG_HOME");
    unsetenv("HOME");
    ks_create_settings_directory();
    EXPECT_FALSE(fs::exists("/boot/home"));
}

TEST_F(Storage, OpensFilesAndNeverWaits) {
    root.Write("file", "text");
    fs::create_directory(root / "directory");
    fs::create_symlink("nowhere", root / "dangling");
    fs::create_symlink("file", root / "link");
    ASSERT_EQ(mkfifo((root / "fifo").c_str(), 0600), 0);
    BFile file;
    EXPECT_EQ(file.SetTo((root / "file").c_str(), B_READ_ONLY), B_OK);
    EXPECT_EQ(file.SetTo((root / "link").c_str(), B_READ_ONLY), B_OK);
    EXPECT_EQ(file.SetTo((root / "fifo").c_str(), B_READ_ONLY), B_OK);
    EXPECT_NE(file.SetTo((root / "directory").c_str(), B_READ_ONLY), B_OK);
    EXPECT_NE(file.SetTo((root / "dangling").c_str(), B_READ_ONLY), B_OK);
    EXPECT_NE(file.SetTo((root / "missing").c_str(), B_READ_ONLY), B_OK);
    EXPECT_NE(file.SetTo("", B_READ_ONLY), B_OK);
    EXPECT_NE(file.SetTo(nullptr, B_READ_ONLY), B_OK);
    EXPECT_NE(file.SetTo((root / "file").c_str(), 1), B_OK);

    std::FILE* opened = ks_open_regular_file(root / "link");
    ASSERT_TRUE(opened);
    std::fclose(opened);
    for (const char* name : {"fifo", "directory", "dangling", "missing"})
        EXPECT_FALSE(ks_open_regular_file(root / name)) << name;
    EXPECT_FALSE(ks_open_regular_file("/dev/zero"));
}

TEST_F(Storage, ListsEntriesOfEveryKind) {
    const std::string long_name(255, 'n');
    root.Write("file", "text");
    root.Write(long_name, "text");
    root.Write(".hidden", "text");
    fs::create_directory(root / "directory");
    fs::create_symlink("nowhere", root / "dangling");
    BDirectory directory;
    BEntry entry;
    EXPECT_NE(directory.Rewind(), B_OK);
    EXPECT_NE(directory.GetNextEntry(&entry), B_OK);
    char name[B_FILE_NAME_LENGTH];
    EXPECT_NE(entry.GetName(name), B_OK);

    ASSERT_EQ(directory.SetTo((root / "").c_str()), B_OK);
    for (int pass = 0; pass < 2; ++pass) {
        ASSERT_EQ(directory.Rewind(), B_OK);
        std::multiset<std::string> names;
        while (directory.GetNextEntry(&entry) == B_OK) {
            ASSERT_EQ(entry.GetName(name), B_OK);
            names.insert(name);
        }
        EXPECT_EQ(names, (std::multiset<std::string>{"file", long_name, ".hidden", "directory", "dangling"}));
    }
    EXPECT_NE(directory.SetTo((root / "missing").c_str()), B_OK);
    EXPECT_NE(directory.GetNextEntry(&entry), B_OK);
}

}  // namespace
