// SPDX-License-Identifier: MIT
// Every bundled catalog translates every text, and nothing else.
#include "toolkit/KSLocale.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct text_row {
    std::uint32_t id;
    std::string text;
};

// The rows of settings/strings.h, of which only the source is a list.
std::vector<text_row> ProgramTexts() {
    std::vector<text_row> rows;
    std::ifstream source(NYMBREL_TEXTS);
    for (std::string line; std::getline(source, line);) {
        text_row row;
        char text[100];
        if (std::sscanf(line.c_str(), "inline constexpr text %*[^{]{%u, \"%99[^\"]", &row.id, text) == 2) {
            row.text = text;
            rows.push_back(row);
        }
    }
    return rows;
}

const std::vector<text_row> kDefaults = ProgramTexts();

// Texts that stand beside each other: a reader must be able to tell them apart.
const std::vector<std::vector<std::uint32_t>> kSeenTogether = {
    {1, 2, 3, 45, 46, 47, 48},
    {7, 8, 9, 10, 11, 12, 14, 15, 16, 17, 18, 19, 20, 21},
    {23, 24, 25, 26, 27, 28, 29, 30, 31},
    {33, 34, 35, 36, 37},
    {38, 40, 41, 42, 43, 49, 50, 51},
};

std::size_t characters(const std::string& utf8) {
    std::size_t count = 0;
    for (unsigned char byte : utf8)
        count += (byte & 0xC0) != 0x80;
    return count;
}

std::string file_text(const std::filesystem::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

class Catalogs : public testing::TestWithParam<std::string> {
protected:
    std::string Text() const {
        return file_text(std::filesystem::path(NYMBREL_CATALOGS) / GetParam() / "NymbrelConfig.catalog");
    }
};

TEST_P(Catalogs, HoldEveryTextOnceInOrderAndNothingElse) {
    std::istringstream lines(Text());
    std::vector<std::uint32_t> ids;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("$"))
            continue;
        std::size_t digits = 0;
        ids.push_back(static_cast<std::uint32_t>(std::stoul(line, &digits)));
        const std::string text = line.substr(digits);
        ASSERT_GE(text.size(), 2u) << line;
        EXPECT_TRUE(text[0] == ' ' && text[1] != ' ' && text.back() != ' ') << line;
        EXPECT_EQ(text.find_first_of("\t\r\\&_%"), std::string::npos) << line;
    }
    std::vector<std::uint32_t> wanted;
    for (const text_row& row : kDefaults)
        wanted.push_back(row.id);
    EXPECT_EQ(ids, wanted);
    EXPECT_EQ(ids.size(), 50u);
}

TEST_P(Catalogs, AreReadByTheToolkitAndTranslated) {
    KSLocale locale;
    locale.Read(Text());
    int same = 0;
    std::map<std::uint32_t, std::string> texts;
    for (const text_row& row : kDefaults) {
        const std::string text = locale.String(row.id, "(missing)");
        EXPECT_NE(text, "(missing)") << row.id;
        EXPECT_LE(characters(text), 2 * row.text.size() + 10) << text;
        same += text == row.text;
        texts[row.id] = text;
    }
    // A few words are the same in many languages: the program's name, OK, Text, System, Normal, Options.
    EXPECT_LE(same, 6);
    for (const auto& group : kSeenTogether) {
        std::set<std::string> distinct;
        for (const std::uint32_t id : group)
            EXPECT_TRUE(distinct.insert(texts[id]).second) << id << ' ' << texts[id];
    }
}

// The folders are the languages that get installed.
std::vector<std::string> bundled_languages() {
    std::vector<std::string> languages;
    for (const auto& entry : std::filesystem::directory_iterator(NYMBREL_CATALOGS))
        if (entry.is_directory())
            languages.push_back(entry.path().filename());
    std::ranges::sort(languages);
    return languages;
}

TEST(CatalogsFolder, HasTheNineLanguages) {
    EXPECT_EQ(bundled_languages(),
              (std::vector<std::string>{"deutsch", "espanol", "francais", "italiano", "nederlands", "nihongo",
                                        "polski", "portugues", "svenska"}));
}

INSTANTIATE_TEST_SUITE_P(Languages, Catalogs, testing::ValuesIn(bundled_languages()),
                         [](const auto& language) { return language.param; });

}  // namespace
