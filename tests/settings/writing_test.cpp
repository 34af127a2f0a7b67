// SPDX-License-Identifier: MIT
// The bytes that are written, and what becomes of a file that cannot be.
#include "settings/settings_file.h"
#include "tests/settings/editors.h"

#include <algorithm>
#include <clocale>
#include <csignal>
#include <sys/resource.h>

namespace {

class Writing : public testing::Test {
protected:
    Writing() { config::ApplyDefaults(); }

    std::string Written() {
        config::WriteSettings();
        return ScopedHome::Read(home.SettingsFile());
    }
    reference::settings Defaults() const { return reference::settings(font_value(*config::_fonts[0])); }

    ScopedHome home;
    Editors editors;
};

TEST_F(Writing, PutsTheDefaultsIntoTheFile) {
    EXPECT_EQ(editor_values(), Defaults());
    const std::string text = Written();
    EXPECT_EQ(text, reference::write(Defaults()));
    EXPECT_TRUE(text.starts_with("LOOK = BeOS\nBEOS = 1\nLANGUAGE = english\nBUBBLEHELPUSED = 1\n"
                                 "BUBBLEHELPTIME = 2000000\nMOUSEHOLDTIME = 30000\n"
                                 "KS_PEN_BG_LOW = 188,188,188,255\nKS_PEN_BG_MED = 199,199,199,255\n"))
        << text;
    EXPECT_EQ(std::ranges::count(text, '\n'), 34);
    EXPECT_EQ(text.find("KS_PEN_NONE"), std::string::npos);
}

TEST_F(Writing, TakesEveryEditor) {
    reference::settings wanted = Defaults();
    config::_look->EditSelection(1);
    wanted.look = "Nymbrel";
    config::_beos_size->EditValue(wanted.beos_conform = false);
    config::_bubblehelp->EditValue(wanted.bubble_help = false);
    config::_bubbletime->EditValue(1234567.8F);
    wanted.bubble_time = 1234567;
    config::_mousetime->EditValue(12345);
    wanted.mouse_time = 12345;
    for (int i = 0; i < 23; ++i) {
        wanted.pens[i] = {i, 2 * i, 255 - i, 7 * i};
        config::_colors[i]->EditColor({static_cast<std::uint8_t>(i), static_cast<std::uint8_t>(2 * i),
                                       static_cast<std::uint8_t>(255 - i), static_cast<std::uint8_t>(7 * i)});
    }
    for (int i = 0; i < 9; ++i)
        EXPECT_TRUE(config::_backgrounds[i]->EditText(wanted.bitmaps[i] = "/a b/" + std::to_string(i)));
    const float sizes[] = {12.5F, 10, 0.1F, 1234567, 1e-5F};
    for (int i = 0; i < 5; ++i) {
        BFont font;
        font.SetFamilyAndStyle("Some Family", "Bold Italic");
        font.SetSize(sizes[i]);
        EXPECT_TRUE(config::_fonts[i]->EditValue(font));
        wanted.fonts[i] = {"Some Family", "Bold Italic", sizes[i]};
    }
    const std::string text = Written();
    EXPECT_EQ(text, reference::write(wanted));
    EXPECT_NE(text.find("KS_FONT_TITLE = Some Family,Bold Italic,0.1\n"), std::string::npos);
    EXPECT_NE(text.find("KS_FONT_SMALL = Some Family,Bold Italic,1.23457e+06\n"), std::string::npos);

    // A cleared bitmap has no line any more, and nothing of a longer file is left.
    config::_backgrounds[4]->EditText("");
    wanted.bitmaps[4] = "";
    EXPECT_EQ(Written(), reference::write(wanted));
}

TEST_F(Writing, ResetsColorsToEitherPaletteAndNothingElse) {
    reference::settings wanted = Defaults();
    for (const bool conform : {true, false}) {
        config::ApplyPalette(conform ? config::kBeOSConformPalette : config::kDefaultPalette);
        reference::reset_colors(wanted, conform);
        EXPECT_EQ(editor_values(), wanted) << conform;
    }
}

TEST_F(Writing, UsesADecimalPointInEveryLocale) {
    // The locale is made here: few systems have one with a decimal comma installed.
    const std::string directory = home.Path() / "locales";
    std::filesystem::create_directory(directory);
    const std::string command = "localedef --no-archive -i de_DE -f UTF-8 '" + directory + "/de_DE.UTF-8'";
    ASSERT_EQ(std::system(command.c_str()), 0) << "needs the package locales";
    const ScopedVariable path("LOCPATH", directory.c_str());
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
    char comma[8];
    std::snprintf(comma, sizeof comma, "%g", 0.5);
    EXPECT_STREQ(comma, "0,5");

    home.Write(home.SettingsFile(), "KS_FONT_FIXED = A,B,12.5\n");
    config::ReadSettings();
    EXPECT_NE(Written().find("KS_FONT_FIXED = A,B,12.5\n"), std::string::npos);
    std::setlocale(LC_ALL, "C");
}

TEST_F(Writing, SkipsWhatCannotBeWritten) {
    // Not by permissions: root may write everything.
    std::filesystem::create_directory(home.SettingsFile());
    config::WriteSettings();
    EXPECT_TRUE(std::filesystem::is_directory(home.SettingsFile()));

    std::filesystem::remove_all(home.SettingsDirectory());
    config::WriteSettings();
    EXPECT_FALSE(std::filesystem::exists(home.SettingsDirectory()));

    home.Write(home.SettingsDirectory(), "a file in the directory's place");
    config::WriteSettings();
    EXPECT_EQ(ScopedHome::Read(home.SettingsDirectory()), "a file in the directory's place");
    std::filesystem::remove(home.SettingsDirectory());

    std::filesystem::create_directory(home.SettingsDirectory());
    std::filesystem::create_symlink("/dev/full", home.SettingsFile());
    config::WriteSettings();
    std::filesystem::remove(home.SettingsFile());

    ASSERT_EQ(std::system(("mkfifo '" + home.SettingsFile().string() + "'").c_str()), 0);
    config::WriteSettings();
    config::ReadSettings();
    EXPECT_EQ(editor_values(), Defaults());
}

TEST_F(Writing, LeavesTheOldFileWhenThereIsNoRoom) {
    const std::string before = Written() + "# more than what is written next\n";
    ScopedHome::Write(home.SettingsFile(), before);
    rlimit limit;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit none = {0, limit.rlim_max};
    const auto signal_before = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &none), 0);
    const bool is_written = config::WriteSettings();
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, signal_before);
    EXPECT_FALSE(is_written);
    EXPECT_EQ(ScopedHome::Read(home.SettingsFile()), before);
    EXPECT_TRUE(config::WriteSettings());
    EXPECT_EQ(ScopedHome::Read(home.SettingsFile()), reference::write(Defaults()));
}

TEST_F(Writing, FollowsTheEnvironmentToTheFile) {
    const std::string text = reference::write(Defaults());
    {
        const ScopedVariable config_home("XDG_CONFIG_HOME", "relative");
        EXPECT_EQ(Written(), text);
        EXPECT_FALSE(std::filesystem::exists("relative"));
    }
    std::filesystem::remove(home.SettingsFile());
    {
        const std::string other = home.Path() / "other";
        std::filesystem::create_directory(other);
        const ScopedVariable config_home("XDG_CONFIG_HOME", other.c_str());
        config::WriteSettings();
        EXPECT_EQ(ScopedHome::Read(other + "/Nymbrel_settings"), text);
    }
    {
        const ScopedVariable no_home("HOME", nullptr);
        config::WriteSettings();
        config::ReadSettings();
        EXPECT_EQ(editor_values(), Defaults());
    }
    EXPECT_FALSE(std::filesystem::exists(home.SettingsFile()));
}

TEST(Languages, ListsEnglishFirstAndOnceThenTheDirectory) {
    const ScopedHome home;
    const auto names = [] {
        std::vector<std::string> list;
        for (long i = 0; i < config::_llist->CountItems(); ++i)
            list.push_back(static_cast<KSStringItem*>(config::_llist->ItemAt(i))->String());
        return list;
    };
    {
        const Editors without_directory;
        EXPECT_EQ(names(), std::vector<std::string>{"english"});
    }
    for (const char* name : {"english", "deutsch", "english2", "English"})
        std::filesystem::create_directories(home.CatalogsDirectory() / name);
    home.Write(home.CatalogsDirectory() / "a file", "");
    std::filesystem::create_symlink("nowhere", home.CatalogsDirectory() / "a broken link");
    std::vector<std::string> wanted = {"english"};
    for (const auto& entry : std::filesystem::directory_iterator(home.CatalogsDirectory()))
        if (entry.path().filename() != "english")
            wanted.push_back(entry.path().filename());
    const Editors editors;
    EXPECT_EQ(names(), wanted);
    EXPECT_EQ(wanted.size(), 6u);
}

TEST(Languages, FallBackToEnglishWhenNoneIsSelected) {
    const ScopedHome home;
    std::filesystem::create_directories(home.CatalogsDirectory() / "deutsch");
    const Editors editors;
    config::ApplyDefaults();
    config::_llist->EditSelection(1);
    config::TakeSelectedLanguage();
    EXPECT_STREQ(config::_language, "deutsch");
    config::_llist->EditSelection(-1);
    config::TakeSelectedLanguage();
    EXPECT_STREQ(config::_language, "english");
    EXPECT_EQ(config::_llist->CurrentSelection(), 0);
}

}  // namespace
