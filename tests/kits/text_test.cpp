// SPDX-License-Identifier: MIT
// UTF-8 and the names of fonts.
#include "kits/BFont.h"
#include "kits/utf8.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string>

namespace {

const std::string kEAcute = "\xC3\xA9", kEuro = "\xE2\x82\xAC", kPalette = "\xF0\x9F\x8E\xA8";

TEST(Utf8, IsValidInTheRangesOfTheStandard) {
    // The first and the last character of each row of Unicode's table of well-formed sequences.
    for (const char* text : {"\x01", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xE0\xBF\xBF",
                             "\xE1\x80\x80", "\xEC\xBF\xBF", "\xED\x80\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                             "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF0\xBF\xBF\xBF", "\xF1\x80\x80\x80",
                             "\xF3\xBF\xBF\xBF", "\xF4\x80\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        const std::string whole = text;
        EXPECT_TRUE(ks_utf8_is_valid("a" + whole + whole + "z")) << testing::PrintToString(whole);
        for (std::size_t i = 1; i < whole.size(); ++i) {
            std::string broken = whole;
            EXPECT_FALSE(ks_utf8_is_valid(whole.substr(0, i))) << testing::PrintToString(whole);
            for (const char other : {'\x7F', '\xC0'}) {
                broken[i] = other;
                EXPECT_FALSE(ks_utf8_is_valid(broken)) << testing::PrintToString(broken);
            }
        }
    }
    // Beside the ranges: stray bytes, characters written too long, surrogates, beyond the last character.
    for (const char* text : {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xE0\x80\x80", "\xE0\x9F\xBF",
                             "\xED\xA0\x80", "\xED\xBF\xBF", "\xF0\x80\x80\x80", "\xF0\x8F\xBF\xBF",
                             "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFE", "\xFF"})
        EXPECT_FALSE(ks_utf8_is_valid(text)) << testing::PrintToString(text);
    EXPECT_TRUE(ks_utf8_is_valid(""));
    EXPECT_TRUE(ks_utf8_is_valid(std::string(1, '\0')));
}

TEST(Utf8, IsCutBetweenCharacters) {
    const std::string text = "a" + kEAcute + kEuro + kPalette;
    const std::size_t fitting[] = {0, 1, 1, 3, 3, 3, 6, 6, 6, 6, 10, 10};
    for (std::size_t limit = 0; limit < std::size(fitting); ++limit)
        EXPECT_EQ(ks_utf8_cut(text, limit), text.substr(0, fitting[limit])) << limit;
    // What is no text is cut at the limit.
    for (const std::string& broken :
         {std::string(80, '\x80'), std::string(62, 'a') + "\xF0\x9F\x8E" + "aaaa", std::string(80, '\xC3')})
        EXPECT_EQ(ks_utf8_cut(broken, 63).size(), 63u) << testing::PrintToString(broken);
}

TEST(Font, CutsNamesAndKeepsEverySize) {
    BFont font;
    font.SetFamilyAndStyle((std::string(62, 'a') + kEAcute).c_str(), std::string(100, 's').c_str());
    EXPECT_EQ(font.Family(), std::string(62, 'a'));
    font_style style;
    font.GetFamilyAndStyle(nullptr, &style);
    EXPECT_EQ(style, std::string(63, 's'));
    const BFont before = font;
    font.SetSize(std::nanf(""));
    EXPECT_EQ(font, BFont(font));
    EXPECT_NE(font, before);

    font.SetFamilyAndStyle(nullptr, nullptr);
    EXPECT_EQ(font.Family() + font.Style(), "");
}

}  // namespace
