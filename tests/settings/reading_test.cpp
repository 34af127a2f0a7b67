// SPDX-License-Identifier: MIT
// What single lines and whole files do to the editors, and how files of every kind are survived.
#include "settings/settings_file.h"
#include "tests/settings/editors.h"

#include <cfloat>
#include <functional>
#include <random>

using namespace std::string_literals;

namespace {

class Reading : public testing::Test {
protected:
    Reading() {
        for (const char* language : {"deutsch", "two words", "English"})
            std::filesystem::create_directories(home.CatalogsDirectory() / language);
        std::filesystem::create_directory(home.Path() / "folder");
        editors.emplace();
        config::ApplyDefaults();
        defaults.emplace(editor_values());
    }

    void ReadBytes(const std::string& bytes) {
        home.Write(home.SettingsFile(), bytes);
        config::ReadSettings();
    }

    ScopedHome home;
    std::string bitmap = home.NewFile("a picture.tga");
    std::optional<Editors> editors;
    std::optional<reference::settings> defaults;
};

using Change = std::function<void(reference::settings&)>;

struct line_row {
    const char* name;
    std::string line;
    Change change;  // from the defaults; none means that the line changes nothing
};

Change text_pen(int red, int green, int blue, int alpha) {
    return [=](reference::settings& values) { values.pens[9] = {red, green, blue, alpha}; };
}

Change title_font(const std::string& family, const std::string& style, float size) {
    return [=](reference::settings& values) { values.fonts[2] = {family, style, size}; };
}

template <class T> Change set(T reference::settings::*member, T value) {
    return [=](reference::settings& values) { values.*member = value; };
}

TEST_F(Reading, AppliesSingleLines) {
    using reference::settings;
    const Change nymbrel = set(&settings::look, "Nymbrel"s);
    const Change nothing;
    const std::string long_name(70, 'n');
    const std::string umlauts = "nn" + [] {
        std::string text;
        for (int i = 0; i < 40; ++i)
            text += "ä";
        return text;
    }();

    const line_row rows[] = {
        {"LookTight", "look=Nymbrel\n", nymbrel},
        {"LookSpaced", "LOOK = Nymbrel\n", nymbrel},
        {"LookManySeparators", "   Look  ==  Nymbrel   \n", nymbrel},
        {"LookOneSpace", "LOOK Nymbrel\n", nymbrel},
        {"LookNoLineFeed", "LOOK = Nymbrel", nymbrel},
        {"LookFirstWord", "LOOK = Nymbrel BeOS\n", nymbrel},
        {"LookCarriageReturnIsBlank", "LOOK = Nymbrel\r\n", nymbrel},
        {"LookTabInKey", "LOOK\t= Nymbrel\n", nothing},
        {"LookAlone", "LOOK\n", nothing},
        {"LookAloneAtEnd", "LOOK", nothing},
        {"LookEmpty", "LOOK = \n", nothing},
        {"LookUnknown", "LOOK = nymbrel\n", nothing},
        {"LookEndsAtNul", "LOOK = Nymbrel\0x\n"s, nymbrel},
        {"KeyEndsAtNul", "LOOK\0 = Nymbrel\n"s, nothing},
        {"LineFeedBelongsToKey", "\nLOOK = Nymbrel\n", nymbrel},

        {"OnOtherNumber", "BEOS = 7\n", nothing},
        {"Off", "BEOS = 0\n", set(&settings::beos_conform, false)},
        {"OffWithText", "BEOS = 0x10\n", set(&settings::beos_conform, false)},
        {"OffMinusZero", "BEOS = -0\n", set(&settings::beos_conform, false)},
        {"OnHuge", "BEOS = 99999999999999999999999\n", nothing},
        {"OffNoNumber", "BEOS = off\n", nothing},
        {"BubbleOff", "bubblehelpused=0\n", set(&settings::bubble_help, false)},

        {"TimeWithText", "BUBBLEHELPTIME = 1500000ms\n", set(&settings::bubble_time, 1500000L)},
        {"TimeSigned", "MOUSEHOLDTIME = +20000\n", set(&settings::mouse_time, 20000L)},
        {"TimeTabbed", "MOUSEHOLDTIME = \t20000\n", set(&settings::mouse_time, 20000L)},
        {"TimeNoNumber", "BUBBLEHELPTIME = fast\n", nothing},
        {"TimeTooLong", "BUBBLEHELPTIME = 99999999999999999999\n", set(&settings::bubble_time, 10000000L)},
        {"TimeTooShort", "MOUSEHOLDTIME = -99999999999999999999\n", set(&settings::mouse_time, 10000L)},

        {"Language", "LANGUAGE = deutsch\n", set(&settings::language, "deutsch"s)},
        {"LanguageWithSpace", "language =two words  \n", set(&settings::language, "two words"s)},
        {"LanguageOtherCase", "LANGUAGE = English\n", set(&settings::language, "English"s)},
        {"LanguageUnknown", "LANGUAGE = Deutsch\n", nothing},
        {"LanguageCarriageReturn", "LANGUAGE = deutsch\r\n", nothing},
        {"LanguagePrefix", "LANGUAGE = deut\n", nothing},

        {"PenFour", "KS_PEN_TEXT = 10,20,30,40\n", text_pen(10, 20, 30, 40)},
        {"PenThree", "KS_PEN_TEXT = 10,20,30\n", text_pen(10, 20, 30, 0)},
        {"PenFive", "KS_PEN_TEXT = 1,2,3,4,5\n", text_pen(1, 2, 3, 4)},
        {"PenLowBits", "KS_PEN_TEXT = 300,-1,256,255\n", text_pen(44, 255, 0, 255)},
        {"PenHuge", "KS_PEN_TEXT = 99999999999999999999,-99999999999999999999,1,2\n", text_pen(255, 0, 1, 2)},
        {"PenNoNumber", "KS_PEN_TEXT = red\n", text_pen(0, 0, 0, 0)},
        {"PenEmpty", "KS_PEN_TEXT = \n", text_pen(0, 0, 0, 0)},
        {"PenOnlyLineFeedLeft", "KS_PEN_TEXT=\n", text_pen(0, 0, 0, 0)},
        {"PenNothingLeft", "KS_PEN_TEXT=", nothing},
        {"PenBlankBehindComma", "KS_PEN_TEXT = 1, 2,\t3,4\n", text_pen(1, 2, 3, 4)},
        {"PenBlankBeforeComma", "KS_PEN_TEXT = 1 ,2,3,4\n", text_pen(1, 0, 0, 0)},
        {"PenTwoCommas", "KS_PEN_TEXT = 1,,3,4\n", text_pen(1, 0, 0, 0)},
        {"PenAnyCase", "ks_pen_Text == 1,2,3,4\n", text_pen(1, 2, 3, 4)},
        {"PenNone", "KS_PEN_NONE = 1,2,3,4\n", nothing},
        {"PenKeyLonger", "KS_PEN_TEXTS = 1,2,3,4\n", nothing},

        {"Bitmap", "KS_PEN_BG_LOW_BMP = " + bitmap + "  \n",
         [&](settings& values) { values.bitmaps[0] = bitmap; }},
        {"BitmapAnyCase", "ks_pen_bg_selected_bmp=" + bitmap,
         [&](settings& values) { values.bitmaps[8] = bitmap; }},
        {"BitmapMissing", "KS_PEN_BG_LOW_BMP = " + bitmap + "s\n", nothing},
        {"BitmapFolder", "KS_PEN_BG_LOW_BMP = " + (home.Path() / "folder").string() + "\n", nothing},
        {"BitmapEmpty", "KS_PEN_BG_LOW_BMP = \n", nothing},
        {"BitmapOfTextPen", "KS_PEN_TEXT_BMP = " + bitmap + "\n", nothing},
        {"BitmapOfNoPen", "KS_PEN_NONE_BMP = " + bitmap + "\n", nothing},

        {"Font", "KS_FONT_TITLE = Family Name,Bold,12.5\n", title_font("Family Name", "Bold", 12.5)},
        {"FontTight", "ks_font_title=Family Name,Bold,12.5", title_font("Family Name", "Bold", 12.5)},
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
        {"FontSizeTooLarge", "KS_FONT_TITLE = A,B,-1e39\n", title_font("A", "B", -FLT_MAX)},
        {"FontSizeTooSmall", "KS_FONT_TITLE = A,B,1e-60\n", title_font("A", "B", 0)},
        {"FontLongNames", "KS_FONT_TITLE = " + long_name + "," + umlauts + ",9\n",
         title_font(long_name.substr(0, 63), umlauts.substr(0, 62), 9)},

        {"UnknownKey", "KS_PEN_BG = 1,2,3,4\n", nothing},
        {"EmptyFile", "", nothing},
        {"BlankLines", "\n   \n = = \n\r\n", nothing},
    };
    for (const line_row& row : rows) {
        SCOPED_TRACE(row.name);
        editors.emplace();
        config::ApplyDefaults();
        reference::settings wanted = *defaults;
        if (row.change)
            row.change(wanted);
        ReadBytes(row.line);
        EXPECT_EQ(reference::write(editor_values()), reference::write(wanted));
        EXPECT_EQ(editor_values(), wanted);
    }
}

TEST_F(Reading, KeepsFontSizesThatCannotBeDrawn) {
    for (const char* size : {"0", "-0", "-9", "inf", "-inf", "nan"}) {
        const std::string line = std::string("KS_FONT_TITLE = A,B,") + size + "\n";
        ReadBytes(line);
        EXPECT_FALSE(config::_fonts[2]->Revert()) << size;
        config::WriteSettings();
        EXPECT_NE(ScopedHome::Read(home.SettingsFile()).find(line), std::string::npos) << size;
    }
}

TEST_F(Reading, CutsUnreadableTimesToWholeNumbers) {
    config::_bubbletime->SetValue(500000.7F);
    ReadBytes("BUBBLEHELPTIME = soon\n");
    EXPECT_EQ(config::_bubbletime->Value(), 500000.0F);
}

TEST_F(Reading, LaterLinesWinAndUnreadableOnesDoNot) {
    ReadBytes("BEOS = 0\nBEOS = 1\nBEOS = none\nKS_PEN_TEXT = 1,1,1,1\nKS_PEN_TEXT = 2,2,2,2\n"
              "KS_PEN_BG_LOW_BMP = " +
              bitmap + "\nKS_PEN_BG_LOW_BMP = /missing\n");
    EXPECT_EQ(editor_values().pens[9], (reference::color{2, 2, 2, 2}));
    EXPECT_TRUE(editor_values().beos_conform);
    EXPECT_EQ(editor_values().bitmaps[0], bitmap);
}

TEST_F(Reading, TakesLongLinesInPieces) {
    // The second piece starts at byte 1023 and is a line of its own.
    const std::string first = "UNKNOWN = ";
    ReadBytes(first + std::string(1023 - first.size(), 'x') + "LOOK = Nymbrel\n");
    EXPECT_EQ(editor_values().look, "Nymbrel");

    editors.emplace();
    config::ApplyDefaults();
    ReadBytes(first + std::string(1022 - first.size(), 'x') + "LOOK = Nymbrel\n");
    EXPECT_EQ(editor_values().look, "BeOS");
}

TEST_F(Reading, WithoutAFileChangesNothingAndDoesNotRedraw) {
    editors->Container().TakeChanges();
    config::ReadSettings();
    EXPECT_FALSE(editors->Container().TakeChanges().redraw);
    std::filesystem::create_directory(home.SettingsFile());
    config::ReadSettings();
    EXPECT_EQ(editor_values(), *defaults);
    EXPECT_FALSE(editors->Container().TakeChanges().redraw);
}

TEST_F(Reading, RedrawsTheRootAfterAFile) {
    editors->Container().TakeChanges();
    ReadBytes("");
    EXPECT_TRUE(editors->Container().TakeChanges().redraw);
    EXPECT_EQ(editor_values(), *defaults);
}

// Files put together from keys, separators and values that lie close to the format's borders.
class RandomFile {
public:
    RandomFile(unsigned seed, std::string bitmap) : _random(seed), _bitmap(std::move(bitmap)) {}

    std::string Bytes() {
        std::string bytes;
        for (int lines = Number(40); lines > 0; --lines)
            bytes += Line();
        for (int faults = Number(3); faults > 0 && !bytes.empty(); --faults)
            bytes[static_cast<std::size_t>(Number(static_cast<int>(bytes.size()) - 1))] =
                Pick(" =,\n\t\r9kK\0"s);
        return bytes;
    }

private:
    int Number(int most) { return std::uniform_int_distribution(0, most)(_random); }
    char Pick(const std::string& from) {
        return from[static_cast<std::size_t>(Number(static_cast<int>(from.size()) - 1))];
    }
    template <std::size_t N> std::string Pick(const char* const (&from)[N]) {
        return from[Number(static_cast<int>(N) - 1)];
    }

    std::string Key() {
        static const char* const options[] = {"LOOK",           "BEOS",          "LANGUAGE", "BUBBLEHELPUSED",
                                              "BUBBLEHELPTIME", "MOUSEHOLDTIME", "UNKNOWN"};
        std::string key;
        switch (Number(3)) {
        case 0:
            key = Pick(options);
            break;
        case 1:
            key = font_settings[Number(4)].key;
            break;
        default:
            key = color_settings[Number(23)].key + std::string(Number(1) ? "_BMP" : "");
        }
        if (Number(3) == 0)
            for (char& c : key)
                if (Number(1))
                    c = static_cast<char>(std::tolower(c));
        return key;
    }

    std::string Integer() {
        static const char* const numbers[] = {
            "0", "255", "256", "-1", "00042", "1234567", "9999999999",         "+3", "2000000", "30000",
            "-", "x",   "",    " 7", "\t8",   "1e3",     "9223372036854775808"};
        return Number(2) ? std::to_string(Number(300)) : Pick(numbers);
    }

    std::string Value() {
        static const char* const words[] = {"BeOS", "Nymbrel", "beos",  "english", "deutsch", "two words",
                                            "",     " ",       "=Bold", "Sans",    "A b ",    "9.5",
                                            ".5",   "1e2",     "-3",    "Ünïcödé", "\t",      "Nymbrel\tx"};
        static const char* const commas[] = {",", ",", ",", ",,", ", ", " ,", "\n", "."};
        switch (Number(4)) {
        case 0:
            return _bitmap + (Number(3) ? "" : "x");
        case 1:
            return std::string(static_cast<std::size_t>(Number(1500)), Pick("ax ="));
        case 2:
            return Pick(words);
        default:
            std::string fields = Number(1) ? Pick(words) : Integer();
            for (int more = Number(4); more > 0; --more)
                fields += Pick(commas) + (Number(1) ? Pick(words) : Integer());
            return fields;
        }
    }

    std::string Line() {
        static const char* const separators[] = {" = ", "=", " ", "  == ", "\t=", "", "= "};
        static const char* const ends[] = {"\n", "\n", "\n", "\n", " \n", "\r\n", "\n\n", " "};
        static const char* const starts[] = {"", "", "", " ", "= ", "\t"};
        return Pick(starts) + Key() + (Number(2) ? " = " : Pick(separators)) + Value() + Pick(ends);
    }

    std::mt19937 _random;
    std::string _bitmap;
};

TEST_F(Reading, AgreesWithTheReferenceOnRandomFilesAndWritesWhatItRead) {
    const unsigned first_seed = std::random_device{}();
    const std::vector<std::string> languages = {"english", "deutsch", "two words", "English"};
    const auto readable = [&](const std::string& path) { return path == bitmap; };
    for (unsigned seed = first_seed; seed != first_seed + 300; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const std::string bytes = RandomFile(seed, bitmap).Bytes();
        editors.emplace();
        config::ApplyDefaults();
        reference::settings wanted = *defaults;
        reference::read(wanted, bytes, languages, readable);
        ReadBytes(bytes);
        ASSERT_EQ(reference::write(editor_values()), reference::write(wanted))
            << testing::PrintToString(bytes);
        ASSERT_EQ(editor_values(), wanted) << testing::PrintToString(bytes);

        config::WriteSettings();
        const std::string written = ScopedHome::Read(home.SettingsFile());
        ASSERT_EQ(written, reference::write(wanted));
        editors.emplace();
        config::ApplyDefaults();
        config::ReadSettings();
        config::WriteSettings();
        ASSERT_EQ(ScopedHome::Read(home.SettingsFile()), written);
    }
}

}  // namespace
