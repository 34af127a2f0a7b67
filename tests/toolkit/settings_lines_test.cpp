// SPDX-License-Identifier: MIT
// The lines of the settings file: separators, pieces, NUL bytes, and what stands where the file should be.
#include "tests/support/home.h"
#include "toolkit/settings_lines.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using namespace std::string_literals;

class SettingsLines : public testing::Test {
protected:
    // Returns each line of the file as "key|rest|value".
    std::vector<std::string> Lines() {
        std::vector<std::string> lines;
        was_read = ks_read_settings_lines([&](const ks_settings_line& line) {
            lines.push_back(line.key + '|' + line.rest + '|' + line.Value());
        });
        return lines;
    }
    std::vector<std::string> LinesOf(const std::string& bytes) {
        home.Write(home.SettingsFile(), bytes);
        return Lines();
    }

    ScopedHome home;
    bool was_read = false;
};

// 1023 characters are one piece, the line feed among them; what follows is another.
const std::string k1018(1018, 'x');

const struct {
    const char* name;
    std::string bytes;
    std::vector<std::string> want;
} kLines[] = {
    {"Blank", "\n \n=\n", {}},  // a line feed is no separator: alone it is a key with nothing behind it
    {"ManySeparators", "  = LOOK == =  a b =  \n", {"LOOK|== =  a b =  \n|a b ="}},
    {"NoLineFeedAtTheEnd", "A = 1\nB = 2", {"A|= 1\n|1", "B|= 2|2"}},
    {"TabIsNoSeparator", "LOOK\t= x\n", {"LOOK\t| x\n|x"}},
    {"KeyAlone", "LOOK\nB =1\n", {"B|=1\n|1"}},
    {"KeyAndSeparatorAtTheEnd", "LOOK=", {}},
    {"KeyAndTwoSeparatorsAtTheEnd", "LOOK =", {"LOOK|=|"}},
    {"NoValue", "LOOK=\n", {"LOOK|\n|"}},
    {"OnlySeparatorsBehind", "LOOK = \n", {"LOOK|= \n|"}},
    {"CarriageReturnStays", "LOOK = x\r\n", {"LOOK|= x\r\n|x\r"}},
    {"NulEndsThePiece", "A = 1\0 2\nB = 2\n"s, {"A|= 1|1", "B|= 2\n|2"}},
    {"NulInTheKey", "A\0B = 1\nC = 2\n"s, {"C|= 2\n|2"}},
    {"NulBehindTheSeparator", "A=\0B\n"s, {}},
    {"FullPiece", "A = " + k1018 + "\nB = 1\n", {"A|= " + k1018 + "\n|" + k1018, "B|= 1\n|1"}},
    {"LineFeedOfTheNextPiece",
     "A = " + k1018 + "x\nB = 1\n",
     {"A|= " + k1018 + "x|" + k1018 + "x", "B|= 1\n|1"}},
    {"KeyOfTheNextPiece", "A = " + k1018 + "xC = 2\n", {"A|= " + k1018 + "x|" + k1018 + "x", "C|= 2\n|2"}},
    {"KeyEndsThePiece", std::string(1022, ' ') + "D = 3\n", {}},
    {"SeparatorEndsThePiece", std::string(1021, '=') + "D=E = 4\n", {"E|= 4\n|4"}},
    {"ManyPieces", std::string(1 << 22, 'x') + "\nLAST = 1", {"LAST|= 1|1"}},
};

TEST_F(SettingsLines, AreTakenApart) {
    for (const auto& row : kLines) {
        EXPECT_EQ(LinesOf(row.bytes), row.want) << row.name;
        EXPECT_TRUE(was_read);
    }
}

TEST_F(SettingsLines, NeedARegularFile) {
    for (const char* target : {"/nowhere", "/dev/zero", "/tmp"}) {
        std::filesystem::create_symlink(target, home.SettingsFile());
        EXPECT_EQ(Lines(), std::vector<std::string>{}) << target;
        EXPECT_FALSE(was_read) << target;
        std::filesystem::remove(home.SettingsFile());
    }
}

TEST(SettingsLine, ComparesKeysWithoutRegardToAsciiCase) {
    EXPECT_TRUE((ks_settings_line{"azAZ_", ""}).Is("AZaz_"));
    EXPECT_FALSE((ks_settings_line{"azAZ_", ""}).Is("azAZ"));
    EXPECT_FALSE((ks_settings_line{"azAZ", ""}).Is("azAZ_"));
    EXPECT_FALSE((ks_settings_line{"@[`{", ""}).Is("`{@["));  // next to the letters, 32 apart
    EXPECT_FALSE((ks_settings_line{"\xC4", ""}).Is("\xE4"));
}

// A value fits exactly when a line made of it gives it back.
TEST_F(SettingsLines, GiveBackWhatFits) {
    for (const std::string& value : {""s, "/a b"s, " a"s, "a "s, "=a"s, "a="s, "a\nb"s, "a\rb"s, "a\0b"s,
                                     "\n"s, "a\n"s, "\xC3\xA9 x"s, "\t"s, "a,b"s}) {
        const bool comes_back =
            !value.empty() && LinesOf("K= " + value + "\n") == std::vector{"K| " + value + "\n|" + value};
        EXPECT_EQ(ks_fits_settings_line(value), comes_back) << testing::PrintToString(value);
    }
    const std::string key = "KS_PEN_BG_SELECTED_BMP", most(960, 'x');
    EXPECT_TRUE(ks_fits_settings_line(most));
    EXPECT_FALSE(ks_fits_settings_line(most + 'x'));
    EXPECT_EQ(LinesOf(key + " = " + most + "\n"), std::vector{key + "|= " + most + "\n|" + most});
}

}  // namespace
