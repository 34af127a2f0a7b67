// SPDX-License-Identifier: MIT
// Which letters lead to which controls.
#include "display/mnemonics.h"

#include <gtest/gtest.h>

namespace {

// The texts with "&" before their mnemonics.
std::vector<std::string> Marked(const std::vector<QString>& texts, std::set<char> used = {}) {
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

using Texts = std::vector<std::string>;

TEST(Mnemonics, StartWordsWhereTheyCan) {
    EXPECT_EQ(Marked({"Dark edges", "Disabled text", "Deep"}),
              (Texts{"&Dark edges", "Disabled &text", "D&eep"}));
}

TEST(Mnemonics, LeaveOutWhatIsUsedWithoutRegardToCase) {
    EXPECT_EQ(Marked({"Apply", "Pens"}, {'a', 'e'}), (Texts{"A&pply", "Pe&ns"}));
}

TEST(Mnemonics, MoveToAnotherLetterToMakeRoom) {
    // The first text could keep "a", but then nothing would be left for the second.
    EXPECT_EQ(Marked({"ab", "a"}), (Texts{"a&b", "&a"}));
    EXPECT_EQ(Marked({"abc", "ab", "a"}), (Texts{"ab&c", "a&b", "&a"}));
}

TEST(Mnemonics, AreOnEveryKeyboard) {
    EXPECT_EQ(Marked({"Öl", "色", "Ä 1", ""}), (Texts{"Ö&l", "色", "Ä &1", ""}));
}

TEST(Mnemonics, AreLeftOutWhereNoneIsLeft) {
    EXPECT_EQ(Marked({"a", "A"}), (Texts{"&a", "A"}));
}

}  // namespace
