// SPDX-License-Identifier: MIT
// Which letters lead to which controls.
#include "display/mnemonics.h"

#include <gtest/gtest.h>

namespace {

// The texts with "&" before their mnemonics.
std::vector<std::string> Marked(const std::vector<QString>& texts, std::set<char> used) {
    const std::vector<int> chosen = ChooseMnemonics(texts, used);
    std::vector<std::string> marked;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        QString text = texts[i];
        if (chosen[i] >= 0)
            text.insert(chosen[i], u'&');
        marked.push_back(text.toStdString());
    }
    return marked;
}

TEST(Mnemonics, StartWordsWhereTheyCanAndDiffer) {
    const struct {
        const char* name;
        std::vector<QString> texts;
        std::set<char> used;
        std::vector<std::string> want;
    } rows[] = {
        {"starts of words",
         {"Dark edges", "Disabled text", "Deep"},
         {},
         {"&Dark edges", "Disabled &text", "D&eep"}},
        {"used, in any case", {"Apply", "Pens"}, {'a', 'e'}, {"A&pply", "Pe&ns"}},
        {"moved to make room", {"ab", "a"}, {}, {"a&b", "&a"}},
        {"moved twice", {"abc", "ab", "a"}, {}, {"ab&c", "a&b", "&a"}},
        {"on every keyboard", {"Öl", "色", "Ä 1", ""}, {}, {"Ö&l", "色", "Ä &1", ""}},
        {"none left", {"a", "A"}, {}, {"&a", "A"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Marked(row.texts, row.used), row.want) << row.name;
}

}  // namespace
