// SPDX-License-Identifier: MIT
// What the lines of a file do to the editors, and that a file made of them means the same.
#include "settings/settings_file.h"
#include "tests/settings/editors.h"

#include <functional>
#include <optional>

namespace {

class Reading : public testing::Test {
protected:
    Reading() {
        for (const char* language : {"deutsch", "two words", "English"})
            std::filesystem::create_directories(home.CatalogsDirectory() / language);
        std::filesystem::create_directory(home.Path() / "folder");
        MakeEditors();
    }
    void MakeEditors() {
        editors.emplace();
        config::ApplyDefaults();
        editors->Container().TakeChanges();
    }
    void ReadBytes(const std::string& bytes) {
        home.Write(home.SettingsFile(), bytes);
        config::ReadSettings();
    }
    // Writes the file; returns its lines that are not among the defaults.
    std::string WriteAndFindChanges() const {
        EXPECT_TRUE(config::WriteSettings());
        std::istringstream text(home.Read(home.SettingsFile()));
        const std::string defaults = "\n" + reference::write(default_values());
        std::string changed;
        for (std::string line; std::getline(text, line);)
            if (defaults.find("\n" + line + "\n") == defaults.npos)
                changed += line + '\n';
        return changed;
    }

    ScopedHome home;
    std::string bitmap = home.NewFile("a picture.tga");
    std::optional<Editors> editors;
};

TEST_F(Reading, AppliesLines) {
    const std::string long_name(70, 'n'), umlauts = "n" + std::string(62, 'n') + "ä";
    const std::string text = "KS_PEN_TEXT = ", title = "KS_FONT_TITLE = ", low = "KS_PEN_BG_LOW_BMP = ";

    // Lines, and those of them or like them that are written then.
    const std::pair<std::string, std::string> rows[] = {
        {"look=Nymbrel", "LOOK = Nymbrel"},
        {"LOOK = \tNymbrel BeOS", "LOOK = Nymbrel"},
        {"LOOK = Nymbrel\r", "LOOK = Nymbrel"},
        {"LOOK = ", ""},
        {"LOOK = nymbrel", ""},

        {"BEOS = 7", ""},
        {"BEOS = 99999999999999999999999", ""},
        {"BEOS = 0", "BEOS = 0"},
        {"BEOS = off", ""},
        {"BEOS = 0\nBEOS = on", "BEOS = 0"},
        {"bubblehelpused=0", "BUBBLEHELPUSED = 0"},

        {"BUBBLEHELPTIME = 1500000ms", "BUBBLEHELPTIME = 1500000"},
        {"MOUSEHOLDTIME = +20000", "MOUSEHOLDTIME = 20000"},
        {"BUBBLEHELPTIME = fast", ""},
        {"BUBBLEHELPTIME = 99999999999999999999", "BUBBLEHELPTIME = 10000000"},
        {"MOUSEHOLDTIME = -99999999999999999999", "MOUSEHOLDTIME = 10000"},

        {"LANGUAGE = deutsch", "LANGUAGE = deutsch"},
        {"language =two words  ", "LANGUAGE = two words"},
        {"LANGUAGE = English", "LANGUAGE = English"},
        {"LANGUAGE = deutsch\r", ""},
        {"LANGUAGE = deut", ""},

        {text + "10,20,30,40", text + "10,20,30,40"},
        {text + "10,20,30", text + "10,20,30,0"},
        {text + "1,2,3,4,5", text + "1,2,3,4"},
        {text + "1,2,3,4\nks_pen_Text == 5,6,7,8", text + "5,6,7,8"},
        {text + "300,-1,256,255", text + "44,255,0,255"},
        {text + "99999999999999999999,-99999999999999999999,1,2", text + "255,0,1,2"},
        {text, text + "0,0,0,0"},
        {text + "1, 2,\t3,4", text + "1,2,3,4"},
        {text + "1 ,2,3,4", text + "1,0,0,0"},
        {text + "1.2,3,4", text + "1,0,0,0"},
        {text + "1,,3,4", text + "1,0,0,0"},
        {"KS_PEN_NONE = 1,2,3,4", ""},
        {"KS_PEN_TEXTS = 1,2,3,4", ""},

        {low + bitmap + "  ", low + bitmap},
        {"ks_pen_bg_selected_bmp=" + bitmap, "KS_PEN_BG_SELECTED_BMP = " + bitmap},
        {low + bitmap + "\n" + low + bitmap + "s", low + bitmap},
        {low + (home / "folder"), ""},
        {low, ""},
        {"KS_PEN_TEXT_BMP = " + bitmap, ""},
        {"KS_PEN_NONE_BMP = " + bitmap, ""},

        {title + "Family Name,Bold,12.5", title + "Family Name,Bold,12.5"},
        {"KS_FONT_TITLE ==  Family , Bold , 12 ", title + "Family , Bold ,12"},
        {title + "A,B,9,C", title + "A,B,9"},
        {title + "A,,B,9", title + "A,B,9"},
        {title + "A,B,9\r", title + "A,B,9"},
        {title + "A,B,0x1p3", title + "A,B,8"},
        {title + "A,B,12,5", title + "A,B,12"},
        {title + "Family Name,Bold", ""},
        {title + "A,,9", ""},
        {"KS_FONT_TITLE=,B,9", ""},
        {title + ",B,9", title + ",B,9"},
        {title + "A,B,big", title + "A,B,0"},
        {title + "A,B,-9", title + "A,B,-9"},
        {title + "A,B,-0", title + "A,B,-0"},
        {title + "A,B,-inf", title + "A,B,-inf"},
        {title + "A,B,nan", title + "A,B,nan"},
        {title + "A,B,-1e39", title + "A,B,-3.40282e+38"},
        {title + "A,B,1e-60", title + "A,B,0"},
        {title + long_name + "," + umlauts + ",9",
         title + long_name.substr(0, 63) + "," + umlauts.substr(0, 63) + ",9"},
        {title + "A," + umlauts.substr(1) + ",9", title + "A," + umlauts.substr(1, 62) + ",9"},
        {"", ""},
    };
    for (const auto& [lines, written] : rows) {
        SCOPED_TRACE(lines);
        MakeEditors();
        ReadBytes(lines + '\n');
        EXPECT_FALSE(config::_fonts[2]->Revert()) << "what the file says is settled";
        EXPECT_TRUE(editors->Container().TakeChanges().redraw);
        EXPECT_EQ(WriteAndFindChanges(), written.empty() ? "" : written + '\n');

        MakeEditors();
        config::ReadSettings();
        EXPECT_EQ(reference::write(editor_values()), home.Read(home.SettingsFile())) << "read again";
    }
}

TEST_F(Reading, FollowsAnotherProgramAndKeepsEdits) {
    const std::string beos = "BEOS = 0\n", german = "LANGUAGE = deutsch\n",
                      picture = "KS_PEN_BG_LOW_BMP = " + bitmap + "\n", low = "KS_PEN_BG_LOW = 5,6,7,8\n";
    const struct {
        const char* name;
        std::function<void()> edit;
        std::string stored;          // by the other program
        std::string shown, settled;  // what differs from the defaults then, and after Revert
    } rows[] = {
        {"NoKey", [] {}, "", beos + german + picture, beos + german + picture},
        {"Unedited", [] {}, "LOOK = Nymbrel\n", "LOOK = Nymbrel\n" + beos + german + picture,
         "LOOK = Nymbrel\n" + beos + german + picture},
        {"Edited", [] { config::_colors[0]->EditColor(ks_color(9, 9, 9, 9)); }, picture + low,
         beos + german + picture + "KS_PEN_BG_LOW = 9,9,9,9\n", beos + german + picture + low},
        {"EditedAndBack",
         [] {
             config::_beos_size->EditValue(true);
             config::_beos_size->EditValue(false);
         },
         "BEOS = 1\n", german + picture, german + picture},
        {"EditedLanguage", [] { config::_llist->EditSelection(0); }, "LANGUAGE = two words\n", beos + picture,
         beos + "LANGUAGE = two words\n" + picture},
        {"BackgroundWithoutBitmap", [] {}, low, beos + german + low, beos + german + low},
        {"BackgroundWithMissingBitmap", [] {}, "KS_PEN_BG_LOW_BMP = /missing\n" + low,
         beos + german + picture + low, beos + german + picture + low},
        {"EditedBitmap", [] { config::_backgrounds[0]->EditText("/mine"); }, low,
         beos + german + "KS_PEN_BG_LOW_BMP = /mine\n" + low, beos + german + low},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MakeEditors();
        ReadBytes(german + beos + picture);
        row.edit();
        config::TakeSelectedLanguage();
        home.Write(home.SettingsFile(), row.stored);
        config::FollowSettings();
        EXPECT_EQ(WriteAndFindChanges(), row.shown);
        editors->Container().Content()->ForEach([](KSControl& control) { control.Revert(); });
        config::TakeSelectedLanguage();
        EXPECT_EQ(WriteAndFindChanges(), row.settled);
    }
}

TEST_F(Reading, CutsATimeThatIsKeptToAWholeNumber) {
    config::_bubbletime->SetValue(500000.7F);
    ReadBytes("BUBBLEHELPTIME = soon\n");
    EXPECT_EQ(config::_bubbletime->Value(), 500000.0F);
}

}  // namespace
