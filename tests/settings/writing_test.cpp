// SPDX-License-Identifier: MIT
// The bytes that are written, what becomes of a file that cannot be, and the list of languages.
#include "settings/settings_file.h"
#include "tests/settings/editors.h"

#include <algorithm>
#include <clocale>
#include <functional>
#include <sys/stat.h>
#include <vector>

namespace {

class Writing : public testing::Test {
protected:
    Writing() { config::ApplyDefaults(); }

    std::string Written() {
        config::WriteSettings();
        return home.Read(home.SettingsFile());
    }

    ScopedHome home;
    Editors editors;
};

TEST_F(Writing, GivesBackEveryValueThatWasRead) {
    EXPECT_EQ(editor_values(), default_values());
    reference::settings wanted = default_values();
    wanted.look = "Nymbrel";
    wanted.beos_conform = wanted.bubble_help = false;
    wanted.bubble_time = 1234567;
    wanted.mouse_time = 12345;
    for (int i = 0; i < 23; ++i)
        wanted.pens[static_cast<std::size_t>(i)] = {i, 2 * i, 255 - i, 7 * i};
    for (std::size_t i = 0; i < 9; ++i)
        wanted.bitmaps[i] = home.NewFile("a b" + std::to_string(i));
    wanted.fonts = {{{"One Family", "Bold Italic", 12.5F},
                     {"B", "b", 10},
                     {"C", "c", 0.1F},
                     {"D", "d", 1234570},
                     {"E", "e", 1e-5F}}};
    home.Write(home.SettingsFile(), reference::write(wanted));
    config::ReadSettings();
    EXPECT_EQ(editor_values(), wanted);
    config::_bubbletime->EditValue(1234567.8F);  // cut to a whole number
    // A cleared bitmap has no line any more, and nothing of a longer file is left.
    EXPECT_TRUE(config::_backgrounds[4]->EditText(wanted.bitmaps[4] = ""));
    const std::string text = Written();
    EXPECT_EQ(text, reference::write(wanted));
    EXPECT_NE(text.find("KS_FONT_SMALL = D,d,1.23457e+06\n"), std::string::npos);
}

TEST_F(Writing, UsesADecimalPointInEveryLocale) {
    // The locale is made here: few systems have one with a decimal comma installed.
    home.Write("source",
               "LC_NUMERIC\ndecimal_point \",\"\nthousands_sep \"\"\ngrouping -1\nEND LC_NUMERIC\n");
    const std::string make =
        "cd " + (home / "") + " && localedef --no-archive -ci source -f ANSI_X3.4-1968 ./comma";
    EXPECT_NE(std::system((make + " 2>&-").c_str()), -1);
    const ScopedVariable path("LOCPATH", (home / "").c_str());
    ASSERT_NE(std::setlocale(LC_ALL, "comma"), nullptr) << "needs localedef, and the package locales";
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");

    home.Write(home.SettingsFile(), "KS_FONT_FIXED = A,B,12.5\n");
    config::ReadSettings();
    EXPECT_NE(Written().find("KS_FONT_FIXED = A,B,12.5\n"), std::string::npos);
    std::setlocale(LC_ALL, "C");
}

// Not by permissions: root may write everything.
TEST_F(Writing, SkipsWhatCannotBeWritten) {
    namespace fs = std::filesystem;
    const fs::path file = home.SettingsFile();
    const std::function<void()> obstacles[] = {
        [&] { fs::create_directory(file); },
        [&] { fs::create_symlink("/dev/full", file); },
        [&] { ASSERT_EQ(mkfifo(file.c_str(), 0600), 0); },
        [&] { fs::remove(home.SettingsDirectory()); },
    };
    for (const auto& put_into_the_way : obstacles) {
        put_into_the_way();
        const fs::file_type before = fs::symlink_status(file).type();
        editors.Container().TakeChanges();
        EXPECT_FALSE(config::WriteSettings());
        config::ReadSettings();
        EXPECT_EQ(editor_values(), default_values());
        EXPECT_FALSE(editors.Container().TakeChanges().redraw);
        EXPECT_EQ(fs::symlink_status(file).type(), before);
        fs::remove(file);
    }
    EXPECT_FALSE(fs::exists(home.SettingsDirectory()));
}

TEST(Languages, ListsEnglishFirstAndOnceThenTheDirectory) {
    const ScopedHome home;
    const auto names = [] {
        const Editors editors;
        std::vector<std::string> list;
        for (long i = 0; i < config::_llist->CountItems(); ++i)
            list.push_back(static_cast<KSStringItem*>(config::_llist->ItemAt(i))->String());
        return list;
    };
    std::vector<std::string> wanted = {"english"};
    EXPECT_EQ(names(), wanted);
    for (const char* name : {"english", "deutsch", "English"})
        std::filesystem::create_directories(home.CatalogsDirectory() / name);
    home.Write(home.CatalogsDirectory() / "a file", "");
    std::filesystem::create_symlink("nowhere", home.CatalogsDirectory() / "a broken link");
    for (const auto& entry : std::filesystem::directory_iterator(home.CatalogsDirectory()))
        if (entry.path().filename() != "english")
            wanted.push_back(entry.path().filename());
    EXPECT_EQ(names(), wanted);
    EXPECT_EQ(wanted.size(), 5u);
}

}  // namespace
