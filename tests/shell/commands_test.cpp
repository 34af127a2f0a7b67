// SPDX-License-Identifier: MIT
// Command lines: what they print, with what status they end, and what becomes of the settings file.
#include "shell/commands.h"
#include "tests/settings/editors.h"
#include "toolkit/default_fonts.h"
#include "toolkit/ks_look.h"

#include <algorithm>
#include <optional>

namespace {

using namespace std::string_literals;

class Commands : public testing::Test {
protected:
    struct result {
        int status;
        std::string out, err;
    };
    // What is printed comes without the home's path and without the warning that there is no bus.
    result Run(const std::vector<std::string>& words) const {
        std::ostringstream out, err;
        const int status = shell::Run(words, out, err);
        const auto plain = [path = home / ""](std::string text) {
            for (std::size_t at; (at = text.find(path)) != text.npos;)
                text.erase(at, path.size());
            if (const std::size_t at = text.find("nymbrel-settings: warning"); at != text.npos)
                text.erase(at, text.find('\n', at) - at + 1);
            return text;
        };
        return {status, plain(out.str()), plain(err.str())};
    }
    // The lines of the settings file that are not among the defaults; "none" without a file.
    std::string Changes() const {
        if (!std::filesystem::exists(home.SettingsFile()))
            return "none";
        reference::settings values = default_values();
        const float sizes[] = {10, 10, 10, 8, 14};
        for (std::size_t i = 0; i < values.fonts.size(); ++i) {
            const BFont& font = ks_default_font(static_cast<ks_font>(i));
            values.fonts[i] = {font.Family(), font.Style(), sizes[i]};
        }
        const std::string defaults = "\n" + reference::write(values);
        std::istringstream text(home.Read(home.SettingsFile()));
        std::string changes;
        for (std::string line; std::getline(text, line);)
            if (defaults.find("\n" + line + "\n") == defaults.npos)
                changes += line + '\n';
        return changes;
    }

    ScopedHome home;
    ScopedVariable no_bus{"DBUS_SESSION_BUS_ADDRESS", "disabled:"};
};

constexpr const char* kOwn = ".config/Nymbrel_settings";
const std::string kFailure = "nymbrel-settings: ",
                  kColor = ": it takes red,green,blue,alpha, each 0 to 255\n",
                  kFont = ": it takes family,style,size, with a size of 1 to 512 points\n",
                  kLoss = "nymbrel-settings: writing .config/Nymbrel_settings would lose ",
                  kForce = "; --force writes it all the same\n";

TEST_F(Commands, ChangeTheFileOrSayWhyNot) {
    std::filesystem::create_directories(home.CatalogsDirectory() / "deutsch");
    const std::string bitmap = home.NewFile("a picture"), low = "KS_PEN_BG_LOW_BMP";
    home.Write("good", "LOOK = Nymbrel\nKS_PEN_MARK = 1,2,3,4\nBEOS = none of it\n");
    home.Write("bad", "LOOK = Nymbrel\n\nKS_FONT_TITLE = A,B\nnonsense");
    const std::string bad = home / "bad", damage = "bad:3: KS_FONT_TITLE = \"A,B\" is ignored" + kFont;
    const struct {
        std::vector<std::string> words;
        std::optional<std::string> before;
        std::string error;  // where it is empty, the status is 0
        std::string after;  // what Changes() gives then; unchanged after an error
    } rows[] = {
        {{"set", "look", "Nymbrel"}, {}, "", "LOOK = Nymbrel\n"},
        {{"set", "LOOK", "Nymbrel"}, "LOOK = Other\r\nBEOS = 0\r\n\n = \n", "", "LOOK = Nymbrel\nBEOS = 0\n"},
        {{"set", "LOOK", "nymbrel"}, {}, "LOOK cannot be \"nymbrel\": it takes BeOS or Nymbrel\n", ""},
        {{"set", "LOOK", "BeOS\nBEOS = 0"},
         {},
         "LOOK cannot be \"BeOS\\x0ABEOS = 0\": it takes BeOS or Nymbrel\n",
         ""},
        {{"set", "BEOS", "2"}, "", "BEOS cannot be \"2\": it takes 0 or 1\n", ""},
        {{"set", "BUBBLEHELPTIME", "500000"}, "", "", "BUBBLEHELPTIME = 500000\n"},
        {{"set", "MOUSEHOLDTIME", "-99999999999999999999"},
         "",
         "MOUSEHOLDTIME cannot be \"-99999999999999999999\": it takes microseconds, 10000 to 50000\n",
         ""},
        {{"set", "LANGUAGE", "deutsch"}, "", "", "LANGUAGE = deutsch\n"},
        {{"set", "KS_PEN_TEXT", "1", "2", "3", "4"}, "", "", "KS_PEN_TEXT = 1,2,3,4\n"},
        {{"set", "KS_PEN_TEXT", "1, 2, 3, 4"}, "", "", "KS_PEN_TEXT = 1,2,3,4\n"},
        {{"set", "KS_PEN_TEXT", "#F801"}, "", "", "KS_PEN_TEXT = 255,136,0,17\n"},
        {{"set", "KS_PEN_TEXT", "1,2,3"}, "", "KS_PEN_TEXT cannot be \"1,2,3\"" + kColor, ""},
        {{"set", "KS_PEN_TEXT", "256,0,0,0"}, "", "KS_PEN_TEXT cannot be \"256,0,0,0\"" + kColor, ""},
        {{"set", "KS_PEN_TEXT", "#12345"}, "", "KS_PEN_TEXT cannot be \"#12345\"" + kColor, ""},
        {{"set", "KS_FONT_TITLE", "A", "B", "12.50"}, "", "", "KS_FONT_TITLE = A,B,12.5\n"},
        {{"set", "KS_FONT_TITLE", "A,B,nan"}, "", "KS_FONT_TITLE cannot be \"A,B,nan\"" + kFont, ""},
        {{"set", "KS_FONT_TITLE", "\xFF,B,9"}, "", "KS_FONT_TITLE cannot be \"\\xFF,B,9\"" + kFont, ""},
        {{"set", low, bitmap}, "", "", low + " = " + bitmap + "\n"},
        {{"set", low, ""}, low + " = " + bitmap, "", ""},
        {{"set", low, "/missing"},
         "",
         low + " cannot be \"/missing\": it takes the path of a file that can be opened, or nothing\n",
         ""},
        {{"set", "KS_PEN_NONE", "1,2,3,4"}, {}, "there is no setting \"KS_PEN_NONE\"\n", ""},
        {{"set", "LOOK"}, {}, "set takes KEY VALUE...\n", ""},
        {{"set", "--json", "LOOK", "BeOS"}, {}, "set has no option \"--json\"\n", ""},
        {{"set", "--", "LOOK", "--force"}, {}, "LOOK cannot be \"--force\": it takes BeOS or Nymbrel\n", ""},
        {{"reset-colors"}, "KS_PEN_MARK = 1,2,3,4\nBEOS = 0", "", "BEOS = 0\n"},
        {{"apply", home / "good"}, "BEOS = 0\n", "", "LOOK = Nymbrel\nBEOS = 0\nKS_PEN_MARK = 1,2,3,4\n"},
        {{"apply", "default"}, "KS_PEN_MARK = 1,2,3,4\n" + low + " = " + bitmap, "", ""},
        {{"apply", bad}, "", damage.substr(0, damage.size() - 1) + " (--force leaves such lines out)\n", ""},
        {{"apply", "--force", bad}, "", "", "LOOK = Nymbrel\n"},
        {{"apply", home / "a picture"},
         "",
         "a picture:1: there is no setting \"picture\" (--force leaves such lines out)\n",
         ""},
        {{"get", "LOOK"}, "", "", ""},
        {{}, {}, "a command is missing; --help names them all\n", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.words));
        std::filesystem::remove(home.SettingsFile());
        if (row.before)
            home.Write(kOwn, *row.before);
        const auto [status, out, err] = Run(row.words);
        EXPECT_EQ(err, row.error.empty() ? "" : kFailure + row.error);
        EXPECT_EQ(status, row.error.empty() ? shell::kFine : shell::kFailed);
        if (row.error.empty())
            EXPECT_EQ(Changes(), row.after);
        else
            EXPECT_EQ(Changes(), row.before.value_or("none"));
    }
}

TEST_F(Commands, ResetColorsTakesTheAskedPalette) {
    EXPECT_EQ(Run({"reset-colors", "--beos"}).status, shell::kFine);
    reference::settings values = default_values();
    reference::reset_colors(values, true);
    const std::string all = reference::write(values), pens = all.substr(0, all.find("KS_FONT"));
    EXPECT_TRUE(home.Read(home.SettingsFile()).starts_with(pens));
}

TEST_F(Commands, RefuseToLoseLines) {
    const std::string file = "# mine\nLOOK = None\n" + std::string(1100, 'x') + "\nBEOS\n";
    home.Write(kOwn, file);
    const std::string lines = R"(.config/Nymbrel_settings:1: there is no setting "#"
.config/Nymbrel_settings:3: there is no setting ")" +
                              std::string(60, 'x') + R"(…"
.config/Nymbrel_settings:3: the line is longer than 1023 characters, and its rest is read as another line
.config/Nymbrel_settings:4: BEOS has no value
)";
    EXPECT_EQ(Run({"set", "LOOK", "Nymbrel"}).err, lines + kLoss + "these lines" + kForce);
    EXPECT_EQ(home.Read(home.SettingsFile()), file);
    EXPECT_EQ(Run({"set", "LOOK", "Nymbrel", "--force"}).status, shell::kFine);
    EXPECT_EQ(Changes(), "LOOK = Nymbrel\n");

    home.Write(kOwn, std::string(24, 'y') + "\nMOUSEHOLDTIME = 5\nLOOK = BeOS\nLOOK = Nymbrel\n");
    EXPECT_EQ(Run({"apply", "beos"}).err, ".config/Nymbrel_settings:1: there is no setting \"" +
                                              std::string(24, 'y') + "\"\n" + kLoss + "this line" + kForce);
    home.Write(kOwn, "MOUSEHOLDTIME = 5\nKS_PEN_TEXT = 1,2,3\nLOOK = BeOS\nLOOK = Nymbrel\n");
    EXPECT_EQ(Run({"reset-colors"}).status, shell::kFine) << "values that are read otherwise are not lost";
    EXPECT_EQ(Changes(), "LOOK = Nymbrel\nMOUSEHOLDTIME = 10000\n");
}

TEST_F(Commands, CheckNamesWhatIsIgnoredOrReadOtherwise) {
    const std::string at = "x:1: ";
    const std::pair<std::string, std::string> rows[] = {
        {"look=Nymbrel  \n\r\n = \nBEOS = 0\r\nKS_PEN_TEXT = 1, 2,3,4\nKS_FONT_TITLE = A,B,9.0\r\n", ""},
        {"LOOK\t= BeOS", at + "there is no setting \"LOOK\\x09\"\n"},
        {"KS_PEN_TEXT_BMP = x", at + "there is no setting \"KS_PEN_TEXT_BMP\"\n"},
        {"LOOK", at + "LOOK has no value\n"},
        {"BEOS = 7", at + "BEOS = \"7\" is read as 1: it takes 0 or 1\n"},
        {"BEOS = on", at + "BEOS = \"on\" is ignored: it takes 0 or 1\n"},
        {"MOUSEHOLDTIME = 9",
         at + "MOUSEHOLDTIME = \"9\" is read as 10000: it takes microseconds, 10000 to 50000\n"},
        {"LANGUAGE = english\r\n", at + "LANGUAGE = \"english\\x0D\" is ignored: it takes one of english"},
        {"KS_PEN_MARK = ", at + "KS_PEN_MARK = \"\" is read as 0,0,0,0" + kColor},
        {"KS_FONT_SMALL = A,B,0",
         at + "KS_FONT_SMALL = \"A,B,0\" is kept, but the window does not offer it" + kFont},
        {"LOOK = BeOS\nLOOK = x\nLOOK = Nymbrel",
         at + "LOOK does not count: line 3 sets it again\n"
              "x:2: LOOK = \"x\" is ignored: it takes BeOS or Nymbrel\n"},
        {"BEOS = 1\0x\n"s, at + "a NUL byte ends what is read of the line\n"},
    };
    for (const auto& [text, wanted] : rows) {
        home.Write("x", text);
        const result found = Run({"check", home / "x"});
        EXPECT_TRUE(found.out.starts_with(wanted) && found.out.empty() == wanted.empty())
            << found.out << wanted;
        EXPECT_EQ(found.status, wanted.empty() ? shell::kFine : shell::kFound);
    }
    for (const std::string& path : {home / "missing", home / ""})
        EXPECT_EQ(Run({"check", path}).status, shell::kFailed) << path;
}

TEST_F(Commands, PrintValues) {
    home.Write(kOwn, "LOOK = Nymbrel\nKS_FONT_TITLE = A\"\x01\xFF,B,9\n");
    home.Write("x", "LOOK = Nymbrel\nKS_FONT_TITLE = A\"\x01\xFF,B,9\nBEOS = 0");
    EXPECT_EQ(Run({"get", "ks_font_title"}).out, "A\"\x01\xFF,B,9\n");
    EXPECT_EQ(Run({"diff", home / "x"}).out, "--- x\n+++ .config/Nymbrel_settings\n-BEOS = 0\n+BEOS = 1\n");
    EXPECT_EQ(Run({"diff", home / kOwn}).status, shell::kFine);
    EXPECT_NE(Run({"list"}).out.find("\nKS_FONT_TITLE          A\"\\x01\\xFF,B,9          Fonts: Title ("),
              std::string::npos);
    const std::string json = Run({"list", "--json"}).out;
    EXPECT_NE(json.find(R"({"key": "KS_FONT_TITLE", "value": "A\"\u0001)"
                        "\uFFFD,B,9\", \"meaning\": \"Fonts: Title\", \"takes\": "),
              std::string::npos);
    EXPECT_EQ(std::ranges::count(json, '{'), 43);
}

}  // namespace
