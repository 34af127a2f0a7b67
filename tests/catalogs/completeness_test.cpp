// SPDX-License-Identifier: MIT
// Every bundled catalog translates every text, and nothing else.
#include "toolkit/KSLocale.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

using Ids = std::vector<std::uint32_t>;

struct catalog {
    const char* name;
    const char* source;  // of the texts, of which only the source is a list
    // Texts that stand beside each other: a reader must be able to tell them apart.
    std::vector<Ids> seen_together;

    std::map<std::uint32_t, std::string> Texts() const {
        std::map<std::uint32_t, std::string> rows;
        std::ifstream file(source);
        for (std::string line; std::getline(file, line);) {
            std::uint32_t id = 0;
            char text[100];
            if (std::sscanf(line.c_str(), "inline constexpr text %*[^{]{%u, \"%99[^\"]", &id, text) == 2)
                rows[id] = text;
        }
        return rows;
    }
};

const catalog kCatalogs[] = {
    {"NymbrelConfig.catalog",
     NYMBREL_SOURCE "/settings/strings.h",
     {{1, 2, 3, 45, 46, 47, 48},
      {7, 8, 9, 10, 11, 12, 14, 15, 16, 17, 18, 19, 20, 21},
      {23, 24, 25, 26, 27, 28, 29, 30, 31},
      {33, 34, 35, 36, 37},
      {38, 40, 41, 42, 43, 49, 50, 51}}},
    {"Nymbrel.catalog",
     NYMBREL_SOURCE "/display/texts.h",
     {{6, 7, 8},
      {13, 14, 15, 16},
      {17, 18, 20, 21, 23, 24, 25},
      {26, 27},
      {30, 31, 32},
      {33, 34, 35, 36, 37},
      {38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 51},
      {60, 61, 62, 63, 64}}},
};

// How often a text has what a program puts something in the place of.
std::array<long, 4> Marks(const std::string& text) {
    const auto count = [&](const char* mark) {
        long found = 0;
        for (std::size_t at = text.find(mark); at != text.npos; at = text.find(mark, at + 1))
            ++found;
        return found;
    };
    return {count("%"), count("%1"), count("%2"), count("&")};
}

// The folders are the languages that get installed.
const std::set<std::string> kLanguages = {"deutsch", "espanol", "francais",  "italiano", "nederlands",
                                          "nihongo", "polski",  "portugues", "svenska"};

void ExpectComplete(const catalog& row, const std::string& folder) {
    const auto texts = row.Texts();
    Ids wanted, ids;
    for (const auto& [id, text] : texts)
        wanted.push_back(id);
    std::map<std::uint32_t, std::string> translated;
    std::ifstream file(folder + "/" + row.name);
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("$"))
            continue;
        KSLocale locale;
        locale.Read(line);
        ids.push_back(static_cast<std::uint32_t>(std::stoul(line)));
        const std::string english = texts.at(ids.back()),
                          text = translated[ids.back()] = locale.String(ids.back(), "");
        EXPECT_EQ(line, std::to_string(ids.back()) + ' ' + text);
        EXPECT_TRUE(!text.empty() && text.front() != ' ' && text.back() != ' ') << line;
        EXPECT_EQ(text.find_first_of("\t\r\\_"), text.npos) << line;
        EXPECT_EQ(Marks(text), Marks(english)) << line;
        const auto characters = std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; });
        EXPECT_LE(characters, static_cast<long>(2 * english.size() + 10)) << text;
    }
    EXPECT_EQ(ids, wanted);
    // A few words are the same in many languages: the program's name, OK, Text, System, Normal, Options.
    EXPECT_LE(
        std::ranges::count_if(texts, [&](const auto& pair) { return translated[pair.first] == pair.second; }),
        6);
    for (const Ids& group : row.seen_together) {
        std::set<std::string> distinct;
        for (const std::uint32_t id : group)
            EXPECT_TRUE(distinct.insert(translated[id]).second) << id;
    }
}

TEST(Catalogs, TranslateEveryTextOnceInOrderAndNothingElse) {
    std::set<std::string> folders;
    for (const auto& entry : std::filesystem::directory_iterator(NYMBREL_SOURCE "/catalogs"))
        if (entry.is_directory()) {
            SCOPED_TRACE(*folders.insert(entry.path().filename()).first);
            for (const catalog& row : kCatalogs)
                ExpectComplete(row, entry.path());
        }
    EXPECT_EQ(folders, kLanguages);
}

}  // namespace
