// SPDX-License-Identifier: MIT
// Fields of messages, and flattened messages whole, cut off and damaged.
#include "toolkit/KSMessage.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <utility>

namespace {

using bytes = std::vector<std::uint8_t>;
constexpr long kLeast = std::numeric_limits<long>::min(), kMost = std::numeric_limits<long>::max();

KSMessage MakeMessage() {
    KSMessage message;
    message.AddString("text", "gr\xC3\xBC\xC3\x9F");
    message.AddString("", "");
    message.AddRect("rect", {kLeast, -2, 3, kMost});
    message.AddInt32("number", -5);
    message.AddInt32("number", 6);
    message.AddData("data", 0x52415754, "\0\1\2", 3);
    message.AddData("data", 0x12345678, nullptr, 0);
    return message;
}

TEST(Message, FindsTheFirstFieldOfItsNameAndType) {
    const KSMessage message = MakeMessage();
    const char* text = "before";
    KSRect<long> rect(1, 2, 3, 4);
    std::int32_t number = 7;
    const void* data = &number;
    std::size_t size = 8;
    EXPECT_FALSE(message.FindString("number", &text) || message.FindRect("text", &rect) ||
                 message.FindInt32("rect", &number) || message.FindInt32(nullptr, &number) ||
                 message.FindData("data", 0x11111111, &data, &size) ||
                 message.FindData("number", 0x4C4F4E47, &data, &size));
    EXPECT_STREQ(text, "before");
    EXPECT_EQ(rect, KSRect<long>(1, 2, 3, 4));
    EXPECT_TRUE(number == 7 && data == &number && size == 8);

    EXPECT_TRUE(message.FindString("text", &text) && message.FindRect("rect", &rect) &&
                message.FindInt32("number", &number));
    EXPECT_STREQ(text, "gr\xC3\xBC\xC3\x9F");
    EXPECT_EQ(rect, KSRect<long>(kLeast, -2, 3, kMost));
    EXPECT_EQ(number, -5);
    EXPECT_TRUE(message.FindData("data", 0x12345678, &data, &size));
    EXPECT_EQ(size, 0u);
    EXPECT_TRUE(message.FindData("data", 0x52415754, &data, &size));
    ASSERT_EQ(size, 3u);
    EXPECT_EQ(std::memcmp(data, "\0\1\2", 3), 0);
}

TEST(Message, IsCopiedAndMovedWhole) {
    const KSMessage message = MakeMessage();
    KSMessage copy(message), assigned;
    assigned = copy;
    KSMessage moved(std::move(copy));
    EXPECT_EQ(assigned.Flatten(), message.Flatten());
    assigned = std::move(moved);
    EXPECT_EQ(assigned.Flatten(), message.Flatten());
}

TEST(Message, RefusesWhatItCannotKeep) {
    KSMessage message;
    EXPECT_FALSE(message.AddString("x", nullptr));
    EXPECT_FALSE(message.AddInt32(nullptr, 1));
    EXPECT_FALSE(message.AddData("x", 1, nullptr, 1));
    EXPECT_FALSE(message.AddData("x", 0x43535452, "no final NUL", 3));
    EXPECT_EQ(message.CountFields(), 0u);
}

TEST(Message, FlattensIntoTheDocumentedBytes) {
    KSMessage message;
    message.AddInt32("ab", -2);
    const bytes want = {'M', 'E', 'S', 'G', 1, 0, 0,   0,   42,  0,   0,    0,    0,    0,
                        0,   0,   1,   0,   0, 0, 'G', 'N', 'O', 'L', 2,    0,    0,    0,
                        4,   0,   0,   0,   0, 0, 0,   0,   'a', 'b', 0xFE, 0xFF, 0xFF, 0xFF};
    EXPECT_EQ(message.Flatten(), want);
}

TEST(Message, ComesBackFromItsBytesAndFromNoPartOfThem) {
    const bytes flat = MakeMessage().Flatten();
    KSMessage message;
    message.AddInt32("old", 1);
    for (std::size_t size = 0; size < flat.size(); size++)
        EXPECT_EQ(message.Unflatten(std::span(flat).first(size)), kUnflattenTruncated) << size;
    bytes longer = flat;
    longer.push_back(0xAA);
    ASSERT_EQ(message.Unflatten(longer), kUnflattenOk);
    EXPECT_EQ(message.Flatten(), flat);
    EXPECT_EQ(message.Unflatten(KSMessage().Flatten()), kUnflattenOk);
    EXPECT_EQ(message.CountFields(), 0u);
}

TEST(Message, SaysWhatIsWrong) {
    KSMessage message;
    message.AddString("ab", "cd");
    message.AddInt32("n", 1);
    const bytes flat = message.Flatten();  // header 20, field 16 + 2 + 3, field 16 + 1 + 4
    const struct {
        const char* name;
        std::size_t at;
        bytes with;
        ks_unflatten_result want;
    } damages[] = {
        {"LastOfSignature", 3, {0}, kUnflattenNotAMessage},
        {"Version", 4, {2}, kUnflattenUnknownVersion},
        {"SizeAboveBytes", 8, {63}, kUnflattenTruncated},
        {"SizeFarAbove", 15, {0x80}, kUnflattenTruncated},
        {"SizeBelowHeader", 8, {19}, kUnflattenDamaged},
        {"SizeBelowFields", 8, {61}, kUnflattenDamaged},
        {"FieldMissing", 16, {3}, kUnflattenDamaged},
        {"FieldLeftOver", 16, {1}, kUnflattenDamaged},
        {"CountEnormous", 16, {255, 255, 255, 255}, kUnflattenDamaged},
        {"NameEnormous", 24, {255, 255, 255, 255}, kUnflattenDamaged},
        {"ValueEnormous", 28, {255, 255, 255, 255, 255, 255, 255, 255}, kUnflattenDamaged},
        {"NulInName", 36, {0}, kUnflattenDamaged},
        {"NulInText", 38, {0}, kUnflattenDamaged},
        {"TextWithoutNul", 40, {'x'}, kUnflattenDamaged},
        {"NumberOfWrongSize", 20, {'G', 'N', 'O', 'L'}, kUnflattenDamaged},
        {"RectOfWrongSize", 20, {'T', 'C', 'R', 'K'}, kUnflattenDamaged},
    };
    ASSERT_EQ(flat.size(), 62u);
    for (const auto& d : damages) {
        bytes damaged = flat;
        std::copy(d.with.begin(), d.with.end(), damaged.begin() + static_cast<std::ptrdiff_t>(d.at));
        KSMessage target = MakeMessage();
        EXPECT_EQ(target.Unflatten(damaged), d.want) << d.name;
        EXPECT_EQ(target.Flatten(), MakeMessage().Flatten()) << d.name;
    }
}

}  // namespace
