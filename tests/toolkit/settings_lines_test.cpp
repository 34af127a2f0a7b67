// SPDX-License-Identifier: MIT
// The lines of the settings file: separators, pieces, NUL bytes, and what stands where the file should be.
#include "tests/support/home.h"
#include "toolkit/settings_lines.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace {

using namespace std::string_literals;

// What a line said: its key, what follows it and the value in that.
struct line_text {
    std::string key, rest, value;
    bool operator==(const line_text&) const = default;
};

void PrintTo(const line_text& line, std::ostream* out) {
    *out << '{' << testing::PrintToString(line.key) << ", " << testing::PrintToString(line.rest) << ", "
         << testing::PrintToString(line.value) << '}';
}

class SettingsLines : public testing::Test {
protected:
    void SetUp() override {
        if (std::filesystem::is_directory("/boot/home"))
            GTEST_SKIP() << "this is the platform itself";
        setenv("XDG_CONFIG_HOME", (settings / "").c_str(), 1);
    }
    // Returns the lines of the file that is there.
    std::vector<line_text> Lines() {
        std::vector<line_text> lines;
        was_read = ks_read_settings_lines([&](const ks_settings_line& line) {
            lines.push_back({line.key, line.rest, line.Value()});
        });
        return lines;
    }
    std::vector<line_text> LinesOf(std::string_view bytes) {
        settings.Write("Nymbrel_settings", bytes);
        return Lines();
    }
    std::string File() const { return settings / "Nymbrel_settings"; }

    TemporaryDirectory settings;
    bool was_read = false;
};

struct line_case {
    const char* name;
    std::string bytes;
    std::vector<line_text> want;
};

const line_case kLines[] = {
    // name, bytes, {key, rest, value}
    {"Empty", "", {}},
    {"Blank", "\n \n=\n", {}},  // a line feed is no separator: alone it is a key with nothing behind it
    {"AsWritten", "LOOK = Nymbrel\n", {{"LOOK", "= Nymbrel\n", "Nymbrel"}}},
    {"NoSpaces", "LOOK=Nymbrel\n", {{"LOOK", "Nymbrel\n", "Nymbrel"}}},
    {"ManySeparators", "  = LOOK == =  a b =  \n", {{"LOOK", "== =  a b =  \n", "a b ="}}},
    {"NoLineFeedAtTheEnd", "A = 1\nB = 2", {{"A", "= 1\n", "1"}, {"B", "= 2", "2"}}},
    {"TabIsNoSeparator", "LOOK\t= x\n", {{"LOOK\t", " x\n", "x"}}},
    {"KeyAlone", "LOOK\nB =1\n", {{"B", "=1\n", "1"}}},
    {"KeyAloneAtTheEnd", "LOOK", {}},
    {"KeyAndSeparatorAtTheEnd", "LOOK=", {}},
    {"KeyAndSpaceAtTheEnd", "LOOK ", {}},
    {"KeyAndTwoSeparatorsAtTheEnd", "LOOK =", {{"LOOK", "=", ""}}},
    {"NoValue", "LOOK=\n", {{"LOOK", "\n", ""}}},
    {"OnlySeparatorsBehind", "LOOK = \n", {{"LOOK", "= \n", ""}}},
    {"CarriageReturnStays", "LOOK = x\r\n", {{"LOOK", "= x\r\n", "x\r"}}},
    {"NulEndsThePiece", "A = 1\0 2\nB = 2\n"s, {{"A", "= 1", "1"}, {"B", "= 2\n", "2"}}},
    {"NulInTheKey", "A\0B = 1\nC = 2\n"s, {{"C", "= 2\n", "2"}}},
    {"NulBehindTheSeparator", "A=\0B\n"s, {}},
    {"NulFirst", "\0A = 1\nB = 2\n"s, {{"B", "= 2\n", "2"}}},
};

TEST_F(SettingsLines, AreTakenApart) {
    for (const line_case& row : kLines) {
        EXPECT_EQ(LinesOf(row.bytes), row.want) << row.name;
        EXPECT_TRUE(was_read);
    }
}

// 1023 characters are one piece, the line feed among them; what follows is another.
TEST_F(SettingsLines, AreCutIntoPieces) {
    const std::string start = "A = ";
    const auto line_of = [&](std::size_t length) { return start + std::string(length - start.size(), 'x'); };
    const std::string fits = line_of(1022) + "\n";
    EXPECT_EQ(LinesOf(fits + "B = 1\n"),
              (std::vector<line_text>{{"A", fits.substr(2), fits.substr(4, 1018)}, {"B", "= 1\n", "1"}}));
    const std::string full = line_of(1023);
    EXPECT_EQ(LinesOf(full + "\nB = 1\n"),
              (std::vector<line_text>{{"A", full.substr(2), full.substr(4)}, {"B", "= 1\n", "1"}}));
    EXPECT_EQ(LinesOf(full + "C = 2\n"),
              (std::vector<line_text>{{"A", full.substr(2), full.substr(4)}, {"C", "= 2\n", "2"}}));
    // The piece may end right behind a key, or behind its separator: nothing is left of it then.
    EXPECT_EQ(LinesOf(std::string(1022, ' ') + "D = 3\n"), std::vector<line_text>{});
    EXPECT_EQ(LinesOf(std::string(1021, '=') + "D=E = 4\n"), (std::vector<line_text>{{"E", "= 4\n", "4"}}));
}

TEST_F(SettingsLines, StreamLargeFiles) {
    constexpr std::size_t kMany = 400000;
    std::string bytes;
    for (std::size_t i = 0; i < kMany; ++i)
        bytes += "KEY = value\n";
    settings.Write("Nymbrel_settings", bytes + std::string(1 << 22, 'x') + "\nLAST = 1");
    std::size_t count = 0;
    std::string last;
    EXPECT_TRUE(ks_read_settings_lines([&](const ks_settings_line& line) {
        ++count;
        last = line.key;
    }));
    EXPECT_EQ(count, kMany + 1);
    EXPECT_EQ(last, "LAST");
}

TEST_F(SettingsLines, NeedARegularFile) {
    EXPECT_EQ(Lines(), std::vector<line_text>{});
    EXPECT_FALSE(was_read) << "no file";
    ASSERT_EQ(mkfifo(File().c_str(), 0600), 0);
    Lines();
    EXPECT_FALSE(was_read) << "pipe";
    std::filesystem::remove(File());
    std::filesystem::create_symlink("/dev/zero", File());
    Lines();
    EXPECT_FALSE(was_read) << "device";
    std::filesystem::remove(File());
    std::filesystem::create_directory(File());
    Lines();
    EXPECT_FALSE(was_read) << "directory";
}

TEST(SettingsLine, ComparesKeysWithoutRegardToAsciiCase) {
    const ks_settings_line line{"Ks_Pen_Text_bmp", ""};
    EXPECT_TRUE(line.Is("KS_PEN_TEXT_BMP"));
    EXPECT_FALSE(line.Is("KS_PEN_TEXT"));
    EXPECT_FALSE(line.Is("KS_PEN_TEXT_BMP_"));
    EXPECT_FALSE((ks_settings_line{"@[`{", ""}).Is("`{@["));  // next to the letters, 32 apart
    EXPECT_FALSE((ks_settings_line{"\xC4", ""}).Is("\xE4"));
}

// A value fits exactly when a line made of it gives it back.
TEST_F(SettingsLines, GiveBackWhatFits) {
    const std::string values[] = {"",     "/a b",  " a", "a ",  "=a",         "a=", "a\nb",
                                  "a\rb", "a\0b"s, "\n", "a\n", "\xC3\xA9 x", "\t", "a,b"};
    for (const std::string& value : values) {
        const std::vector<line_text> lines = LinesOf("KEY = " + value + "\n");
        const bool comes_back = !value.empty() && lines.size() == 1 && lines[0].value == value;
        EXPECT_EQ(ks_fits_settings_line(value), comes_back) << testing::PrintToString(value);
    }
    const std::string key = "KS_PEN_BG_SELECTED_BMP", most(960, 'x');
    ASSERT_TRUE(ks_fits_settings_line(most));
    EXPECT_FALSE(ks_fits_settings_line(most + 'x'));
    EXPECT_EQ(LinesOf(key + " = " + most + "\n").at(0).value, most);
}

}  // namespace
