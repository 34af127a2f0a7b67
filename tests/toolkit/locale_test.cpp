// SPDX-License-Identifier: MIT
// Catalogs: which one is opened, and what is read from any bytes whatever.
#include "tests/support/home.h"
#include "toolkit/KSLocale.h"

#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>

namespace {

using namespace std::string_literals;

const struct {
    const char* name;
    std::string bytes;
    std::uint32_t id;
    std::string want;  // "default" where there is no text
} kCatalogs[] = {
    {"Plain", "12 Text with blanks \n", 12, "Text with blanks "},
    {"Tab", "12\tText\n", 12, "Text"},
    {"OnlyOneSeparator", "12  Text", 12, " Text"},
    {"CarriageReturn", "1 OK\r\n2 Apply\r\n", 1, "OK"},
    {"Escapes", "1 a\\nb\\\\n\\x\n", 1, "a\nb\\nx"},
    {"LoneBackslash", "1 a\\\n", 1, "default"},
    {"OtherLines", "$ 1 OK\n$1 OK\n 1 OK\n1\n1OK\n1:OK\n", 1, "default"},
    {"EmptyText", "1 \n", 1, "default"},
    {"TheSecondCounts", "1 OK\n1 Okay\n", 1, "Okay"},
    {"LargestId", "4294967295 \xC3\x84\n", 4294967295u, "\xC3\x84"},
    {"IdTooLarge", "4294967296 x\n4294967297 x\n", 0, "default"},
    {"NegativeId", "-1 x\n", 4294967295u, "default"},
    {"Latin1", "1 \xC4ndern\n", 1, "default"},
    {"Nul", "1 a\0b\n"s, 1, "default"},
    {"ByteOrderMark", "\xEF\xBB\xBF\x31 OK\n", 1, "OK"},
    {"LongLines", "1 " + std::string(300000, 'x') + "\n" + std::string(300000, '7') + " y\n", 1,
     std::string(300000, 'x')},
};

TEST(Catalog, GivesItsTextsAndForgetsThoseBefore) {
    KSLocale locale;
    for (const auto& row : kCatalogs) {
        locale.Read(row.bytes);
        EXPECT_EQ(locale.String(row.id, "default"), row.want) << row.name;
    }
}

class OpenCatalog : public testing::Test {
protected:
    OpenCatalog() {
        for (const char* outside : {"", "Kestrune", "Kestrune/Catalogs"})
            home.Write(home.SettingsDirectory() / outside / "App.catalog", "1 outside\n");
        home.Write(home.CatalogsDirectory() / "empty", "1 no directory\n");
        AddCatalog("deutsch");
        AddCatalog("du nord");
    }
    void AddCatalog(const std::string& language) {
        home.Write(home.CatalogsDirectory() / language / "App.catalog", "1 " + language + "\n");
    }
    std::string TextWith(const std::string& settings) {
        home.Write(home.SettingsFile(), settings);
        KSLocale locale;
        locale.Open("App.catalog");
        return locale.String(1, "default");
    }

    ScopedHome home;
};

TEST_F(OpenCatalog, OfTheLastLanguageThatIsThere) {
    EXPECT_EQ(TextWith(""), "default");
    EXPECT_EQ(TextWith("language=du nord  \n"), "du nord");
    EXPECT_EQ(TextWith("LANGUAGE = deutsch\nLANGUAGE = missing\n"), "deutsch");
    EXPECT_EQ(TextWith("LANGUAGE = deutsch\nLANGUAGE = english\n"), "default");
    EXPECT_EQ(TextWith("LANGUAGE = deutsch\nLANGUAGE = empty\n"), "default");
    AddCatalog("english");
    EXPECT_EQ(TextWith("LANGUAGE = deutsch\nLANGUAGE = english\n"), "english");
}

TEST_F(OpenCatalog, NeverOutsideTheCatalogsDirectory) {
    for (const std::string name : {".", "..", "deutsch/../..", "/", ""})
        EXPECT_EQ(TextWith("LANGUAGE = " + name + "\n"), "default") << name;
}

TEST_F(OpenCatalog, ButNoPipeAndNothingHuge) {
    const std::string file = home.CatalogsDirectory() / "deutsch/App.catalog";
    std::filesystem::resize_file(file, 1 << 20);
    EXPECT_EQ(TextWith("LANGUAGE = deutsch\n"), "deutsch");
    std::filesystem::resize_file(file, (1 << 20) + 1);
    EXPECT_EQ(TextWith("LANGUAGE = deutsch\n"), "default");
    std::filesystem::remove(file);
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(TextWith("LANGUAGE = deutsch\n"), "default");
    KSLocale locale;
    locale.Open(nullptr);
    EXPECT_STREQ(locale.String(1, "default"), "default");
}

}  // namespace
