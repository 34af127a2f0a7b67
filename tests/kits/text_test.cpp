// SPDX-License-Identifier: MIT
// UTF-8 and the names of fonts.
#include "kits/BFont.h"
#include "kits/utf8.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace {

// Decodes by numbers instead of byte ranges: true for what one code point, encoded again, gives back.
bool IsValidByDecoding(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
        const int length = byte(i) < 0x80   ? 1
                           : byte(i) < 0xC0 ? 0
                           : byte(i) < 0xE0 ? 2
                           : byte(i) < 0xF0 ? 3
                           : byte(i) < 0xF8 ? 4
                                            : 0;
        if (length == 0 || i + static_cast<std::size_t>(length) > text.size())
            return false;
        unsigned point = length == 1 ? byte(i) : byte(i) & (0xFFu >> (length + 1));
        for (int k = 1; k < length; ++k) {
            if (byte(i + static_cast<std::size_t>(k)) >> 6 != 2)
                return false;
            point = point << 6 | (byte(i + static_cast<std::size_t>(k)) & 63);
        }
        constexpr unsigned kFirst[] = {0, 0, 0x80, 0x800, 0x10000};
        if (point < kFirst[length] || point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF))
            return false;
        i += static_cast<std::size_t>(length);
    }
    return true;
}

TEST(Utf8, IsValidExactlyWhereItDecodes) {
    std::string text(3, '\0');
    for (int first = 0; first < 256; ++first)
        for (int second = 0; second < 256; ++second)
            for (const int third : {0x00, 0x41, 0x7F, 0x80, 0xBF, 0xC0, 0xFF}) {
                text[0] = static_cast<char>(first);
                text[1] = static_cast<char>(second);
                text[2] = static_cast<char>(third);
                ASSERT_EQ(ks_utf8_is_valid(text), IsValidByDecoding(text))
                    << first << ' ' << second << ' ' << third;
                for (const char* tail : {"\x80", "\xBF", "\xC0"})
                    ASSERT_EQ(ks_utf8_is_valid(text + tail), IsValidByDecoding(text + tail))
                        << first << ' ' << second << ' ' << third;
            }
}

TEST(Utf8, IsCutBetweenCharacters) {
    constexpr unsigned kSeed = 20261122;
    std::mt19937 random(kSeed);
    const std::string characters[] = {"a", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x8E\xA8"};
    for (int turn = 0; turn < 2000; ++turn) {
        std::string text;
        std::size_t longest_fit = 0;
        const std::size_t limit = random() % 12;
        for (int i = 0; i < 8; ++i) {
            text += characters[random() % 4];
            if (text.size() <= limit)
                longest_fit = text.size();
        }
        ASSERT_EQ(ks_utf8_cut(text, limit), text.substr(0, longest_fit)) << "seed " << kSeed << ": " << text;
    }
}

TEST(Utf8, IsCutAtTheLimitWhereItIsNone) {
    const std::string broken(80, '\x80');
    EXPECT_EQ(ks_utf8_cut(broken, 63).size(), 63u);
    EXPECT_EQ(ks_utf8_cut(std::string(62, 'a') + "\xF0\x9F\x8E" + "aaaa", 63).size(), 63u);
    EXPECT_EQ(ks_utf8_cut(std::string(80, '\xC3'), 63).size(), 63u);
}

TEST(Font, CutsNamesAndKeepsEverySize) {
    BFont font;
    const std::string family = std::string(62, 'a') + "\xC3\xA9", style(100, 's');
    font.SetFamilyAndStyle(family.c_str(), style.c_str());
    EXPECT_EQ(font.Family(), std::string(62, 'a'));
    font_family family_copy;
    font_style style_copy;
    font.GetFamilyAndStyle(&family_copy, &style_copy);
    EXPECT_STREQ(family_copy, std::string(62, 'a').c_str());
    EXPECT_STREQ(style_copy, std::string(63, 's').c_str());
    font.GetFamilyAndStyle(nullptr, nullptr);

    for (const float size : {12.5f, 0.0f, -1.0f, std::numeric_limits<float>::infinity(), std::nanf("")}) {
        const BFont before = font;
        font.SetSize(size);
        EXPECT_EQ(font, BFont(font)) << size;
        EXPECT_NE(font, before) << size;
    }

    font.SetFamilyAndStyle(nullptr, nullptr);
    EXPECT_EQ(font.Family() + font.Style(), "");
}

}  // namespace
