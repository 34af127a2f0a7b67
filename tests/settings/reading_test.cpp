// SPDX-License-Identifier: MIT
// What the lines of a file do to the editors, and that a file made of them means the same.
#include "settings/settings_file.h"
#include "tests/settings/editors.h"

#include <cfloat>
#include <cmath>
#include <functional>
#include <optional>

using namespace std::string_literals;
using reference::settings;

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

    ScopedHome home;
    std::string bitmap = home.NewFile("a picture.tga");
    std::optional<Editors> editors;
};

using Change = std::function<void(settings&)>;

struct line_row {
    const char* name;
    std::string line;
    Change change;  // from the defaults; none means that the line changes nothing
};

template <class T> Change set(T settings::*member, T value) {
    return [=](settings& values) { values.*member = value; };
}

Change text_pen(int red, int green, int blue, int alpha) {
    return [=](settings& values) { values.pens[9] = {red, green, blue, alpha}; };
}

Change title_font(const std::string& family, const std::string& style, float size) {
    return [=](settings& values) { values.fonts[2] = {family, style, size}; };
}

Change background(std::size_t pen, const std::string& path) {
    return [=](settings& values) { values.bitmaps[pen] = path; };
}

TEST_F(Reading, AppliesLines) {
    const Change nymbrel = set(&settings::look, "Nymbrel"s), nothing;
    const Change beos_off = set(&settings::beos_conform, false);
    const std::string long_name(70, 'n'), umlauts = "n" + std::string(62, 'n') + "ä";

    const line_row rows[] = {
        {"Look", "look=Nymbrel\n", nymbrel},
        {"LookFirstWord", "LOOK = \tNymbrel BeOS\n", nymbrel},
        {"LookCarriageReturnIsBlank", "LOOK = Nymbrel\r\n", nymbrel},
        {"LookEmpty", "LOOK = \n", nothing},
        {"LookUnknown", "LOOK = nymbrel\n", nothing},

        {"OnOtherNumber", "BEOS = 7\n", nothing},
        {"OnHuge", "BEOS = 99999999999999999999999\n", nothing},
        {"Off", "BEOS = 0\n", beos_off},
        {"OffNoNumber", "BEOS = off\n", nothing},
        {"OffAndNoNumber", "BEOS = 0\nBEOS = on\n", beos_off},
        {"BubbleOff", "bubblehelpused=0\n", set(&settings::bubble_help, false)},

        {"TimeWithText", "BUBBLEHELPTIME = 1500000ms\n", set(&settings::bubble_time, 1500000L)},
        {"TimeSigned", "MOUSEHOLDTIME = +20000\n", set(&settings::mouse_time, 20000L)},
        {"TimeNoNumber", "BUBBLEHELPTIME = fast\n", nothing},
        {"TimeTooLong", "BUBBLEHELPTIME = 99999999999999999999\n", set(&settings::bubble_time, 10000000L)},
        {"TimeTooShort", "MOUSEHOLDTIME = -99999999999999999999\n", set(&settings::mouse_time, 10000L)},

        {"Language", "LANGUAGE = deutsch\n", set(&settings::language, "deutsch"s)},
        {"LanguageWithSpace", "language =two words  \n", set(&settings::language, "two words"s)},
        {"LanguageOtherCase", "LANGUAGE = English\n", set(&settings::language, "English"s)},
        {"LanguageCarriageReturn", "LANGUAGE = deutsch\r\n", nothing},
        {"LanguagePrefix", "LANGUAGE = deut\n", nothing},

        {"PenFour", "KS_PEN_TEXT = 10,20,30,40\n", text_pen(10, 20, 30, 40)},
        {"PenThree", "KS_PEN_TEXT = 10,20,30\n", text_pen(10, 20, 30, 0)},
        {"PenFive", "KS_PEN_TEXT = 1,2,3,4,5\n", text_pen(1, 2, 3, 4)},
        {"PenTwice", "KS_PEN_TEXT = 1,2,3,4\nks_pen_Text == 5,6,7,8\n", text_pen(5, 6, 7, 8)},
        {"PenLowBits", "KS_PEN_TEXT = 300,-1,256,255\n", text_pen(44, 255, 0, 255)},
        {"PenHuge", "KS_PEN_TEXT = 99999999999999999999,-99999999999999999999,1,2\n", text_pen(255, 0, 1, 2)},
        {"PenEmpty", "KS_PEN_TEXT = \n", text_pen(0, 0, 0, 0)},
        {"PenNothingLeft", "KS_PEN_TEXT=", nothing},
        {"PenBlankBehindComma", "KS_PEN_TEXT = 1, 2,\t3,4\n", text_pen(1, 2, 3, 4)},
        {"PenBlankBeforeComma", "KS_PEN_TEXT = 1 ,2,3,4\n", text_pen(1, 0, 0, 0)},
        {"PenOtherSeparator", "KS_PEN_TEXT = 1.2,3,4\n", text_pen(1, 0, 0, 0)},
        {"PenTwoCommas", "KS_PEN_TEXT = 1,,3,4\n", text_pen(1, 0, 0, 0)},
        {"PenNone", "KS_PEN_NONE = 1,2,3,4\n", nothing},
        {"PenKeyLonger", "KS_PEN_TEXTS = 1,2,3,4\n", nothing},

        {"Bitmap", "KS_PEN_BG_LOW_BMP = " + bitmap + "  \n", background(0, bitmap)},
        {"BitmapAnyCase", "ks_pen_bg_selected_bmp=" + bitmap, background(8, bitmap)},
        {"BitmapAndMissing", "KS_PEN_BG_LOW_BMP = " + bitmap + "\nKS_PEN_BG_LOW_BMP = " + bitmap + "s\n",
         background(0, bitmap)},
        {"BitmapFolder", "KS_PEN_BG_LOW_BMP = " + (home.Path() / "folder").string() + "\n", nothing},
        {"BitmapEmpty", "KS_PEN_BG_LOW_BMP = \n", nothing},
        {"BitmapOfTextPen", "KS_PEN_TEXT_BMP = " + bitmap + "\n", nothing},
        {"BitmapOfNoPen", "KS_PEN_NONE_BMP = " + bitmap + "\n", nothing},

        {"Font", "KS_FONT_TITLE = Family Name,Bold,12.5\n", title_font("Family Name", "Bold", 12.5)},
        {"FontSpaces", "KS_FONT_TITLE ==  Family , Bold , 12 \n", title_font("Family ", " Bold ", 12)},
        {"FontFourFields", "KS_FONT_TITLE = A,B,9,C\n", title_font("A", "B", 9)},
        {"FontEmptyFieldIsNone", "KS_FONT_TITLE = A,,B,9\n", title_font("A", "B", 9)},
        {"FontCarriageReturn", "KS_FONT_TITLE = A,B,9\r\n", title_font("A", "B", 9)},
        {"FontSizeForms", "KS_FONT_TITLE = A,B,0x1p3\n", title_font("A", "B", 8)},
        {"FontSizeComma", "KS_FONT_TITLE = A,B,12,5\n", title_font("A", "B", 12)},
        {"FontTwoFields", "KS_FONT_TITLE = Family Name,Bold\n", nothing},
        {"FontEmptyStyle", "KS_FONT_TITLE = A,,9\n", nothing},
        {"FontNoFamilyField", "KS_FONT_TITLE=,B,9\n", nothing},
        {"FontEmptyFamily", "KS_FONT_TITLE = ,B,9\n", title_font("", "B", 9)},
        {"FontNoSize", "KS_FONT_TITLE = A,B,big\n", title_font("A", "B", 0)},
        {"FontSizeNegative", "KS_FONT_TITLE = A,B,-9\n", title_font("A", "B", -9)},
        {"FontSizeMinusZero", "KS_FONT_TITLE = A,B,-0\n", title_font("A", "B", -0.0F)},
        {"FontSizeInfinite", "KS_FONT_TITLE = A,B,-inf\n", title_font("A", "B", -INFINITY)},
        {"FontSizeNotANumber", "KS_FONT_TITLE = A,B,nan\n", title_font("A", "B", NAN)},
        {"FontSizeTooLarge", "KS_FONT_TITLE = A,B,-1e39\n", title_font("A", "B", -FLT_MAX)},
        {"FontSizeTooSmall", "KS_FONT_TITLE = A,B,1e-60\n", title_font("A", "B", 0)},
        {"FontLongNames", "KS_FONT_TITLE = " + long_name + "," + umlauts + ",9\n",
         title_font(long_name.substr(0, 63), umlauts.substr(0, 63), 9)},
        {"FontCutCharacter", "KS_FONT_TITLE = A," + umlauts.substr(1) + ",9\n",
         title_font("A", umlauts.substr(1, 62), 9)},

        {"EmptyFile", "", nothing},
        {"BlankLines", "\n   \n = = \n\r\n", nothing},
    };
    for (const line_row& row : rows) {
        SCOPED_TRACE(row.name);
        settings wanted = default_values();
        if (row.change)
            row.change(wanted);
        MakeEditors();
        ReadBytes(row.line);
        EXPECT_EQ(reference::write(editor_values()), reference::write(wanted));
        EXPECT_FALSE(config::_fonts[2]->Revert()) << "what the file says is settled";
        EXPECT_TRUE(editors->Container().TakeChanges().redraw);

        config::WriteSettings();
        MakeEditors();
        config::ReadSettings();
        EXPECT_EQ(reference::write(editor_values()), reference::write(wanted)) << "read again";
    }
}

TEST_F(Reading, FollowsAnotherProgramAndKeepsEdits) {
    const ks_color mine(9, 9, 9, 9);
    const Change nothing, low = [](settings&values) { values.pens[0] = {5, 6, 7, 8}; };
    const struct {
        const char* name;
        std::string lines;
        Change followed;  // what the lines change
        std::function<void()> edit;
        Change edited;  // what the edit changes on top
    } rows[] = {
        {"NoKey", "", nothing, {}, {}},
        {"Untouched", "LOOK = Nymbrel\n", set(&settings::look, "Nymbrel"s), {}, {}},
        {"Edited", "KS_PEN_TEXT = 1,2,3,4\n", text_pen(1, 2, 3, 4),
         [&] { config::_colors[9]->EditColor(mine); }, text_pen(9, 9, 9, 9)},
        {"EditedAndBack",
         "BEOS = 1\n",
         set(&settings::beos_conform, true),
         [] {
             config::_beos_size->EditValue(true);
             config::_beos_size->EditValue(false);
         },
         {}},
        {"EditedLanguage", "LANGUAGE = two words\n", set(&settings::language, "two words"s),
         [] { config::_llist->EditSelection(0); }, set(&settings::language, "english"s)},
        {"BackgroundWithoutBitmap",
         "KS_PEN_BG_LOW = 5,6,7,8\n",
         [&](settings& values) { low(values), values.bitmaps[0].clear(); },
         {},
         {}},
        {"BackgroundWithMissingBitmap",
         "KS_PEN_BG_LOW_BMP = /missing\nKS_PEN_BG_LOW = 5,6,7,8\n",
         low,
         {},
         {}},
        {"EditedBitmap", "KS_PEN_BG_LOW = 5,6,7,8\n",
         [&](settings& values) { low(values), values.bitmaps[0].clear(); },
         [] { config::_backgrounds[0]->EditText("/mine"); }, background(0, "/mine")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MakeEditors();
        ReadBytes("LANGUAGE = deutsch\nBEOS = 0\nKS_PEN_BG_LOW_BMP = " + bitmap + "\n");
        settings wanted = editor_values();
        if (row.edit)
            row.edit();
        if (row.followed)
            row.followed(wanted);
        settings edited = wanted;
        if (row.edited)
            row.edited(edited);
        home.Write(home.SettingsFile(), row.lines);
        config::FollowSettings();
        EXPECT_EQ(reference::write(editor_values()), reference::write(edited));
        editors->Container().Content()->ForEach([](KSControl& control) { control.Revert(); });
        config::TakeSelectedLanguage();
        EXPECT_EQ(reference::write(editor_values()), reference::write(wanted)) << "what is settled";
    }
}

TEST_F(Reading, CutsATimeThatIsKeptToAWholeNumber) {
    config::_bubbletime->SetValue(500000.7F);
    ReadBytes("BUBBLEHELPTIME = soon\n");
    EXPECT_EQ(config::_bubbletime->Value(), 500000.0F);
}

TEST_F(Reading, WithoutAFileChangesNothingAndDoesNotRedraw) {
    config::ReadSettings();
    std::filesystem::create_directory(home.SettingsFile());
    config::ReadSettings();
    EXPECT_EQ(editor_values(), default_values());
    EXPECT_FALSE(editors->Container().TakeChanges().redraw);
}

}  // namespace
