// SPDX-License-Identifier: MIT
// The pixels promised on every processor.
#include "tests/bitmaptools/pixel_arrays.h"
#include "tests/published.h"

namespace {

constexpr long kWidth = 97, kHeight = 61, kRow = 101;          // of the source
constexpr long kToWidth = 150, kToHeight = 130, kToRow = 151;  // of what is drawn into

// Expects `published` as the hash of what `call(function, argument, result)` makes of copies of `canvas`, for
// each argument in turn, with the definition and at each level.
template <class Function, class Item, class Arguments, class Call>
void ExpectHash(std::uint64_t published, Function* ours, Function* oracle, const std::vector<Item>& canvas,
                const Arguments& arguments, Call call) {
    const auto hash_of = [&](Function* function) {
        std::uint64_t hash = HashOf(std::span<const Item>());
        for (const auto& argument : arguments) {
            std::vector<Item> result = canvas;
            call(function, argument, result.data());
            hash = HashOf<Item>(result, hash);
        }
        return hash;
    };
    EXPECT_EQ(hash_of(oracle), published) << "the definition";
    for (const Level level : Levels()) {
        const ScopedLevel held(level);
        EXPECT_EQ(hash_of(ours), published) << NameOf(level);
    }
}

// A promise to keep: what these operations make is the same on every processor and in every release.
TEST(PublishedHashes, HoldAtEveryLevel) {
    Sequence sequence;
    std::vector<Word> source(kRow * kHeight), canvas(kToRow * kToHeight);
    for (Word& pixel : source)
        pixel = sequence.NextPixel();
    for (long y = 20; y < 40; y++)  // opaque rows
        for (long x = 0; x < kWidth; x++)
            source[static_cast<std::size_t>(y * kRow + x)] |= 0xFF000000;
    for (Word& pixel : canvas)
        pixel = sequence.NextPixel();
    std::vector<std::uint8_t> bytes(kWidth * kHeight);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(sequence.Next() % 16 < 3 ? sequence.Next() % 9 : 0);

    using Ours = KSBitmapTools;
    using Oracle = reference::BitmapTools;
    const std::pair<int, int> sizes[] = {{150, 130}, {97, 61}, {40, 23}, {3, 100}};
    const auto scale = [&](auto function, auto size, Word* result) {
        function(kWidth, kHeight, size.first, size.second, source.data(), result, kRow, kToRow);
    };
    ExpectHash(0x5568E074F746737F, Ours::ScalePlain, Oracle::ScalePlain, canvas, sizes, scale);
    ExpectHash(0xEB4DB3BE42F64E41, Ours::ScaleBiLin, Oracle::ScaleBiLin, canvas, sizes, scale);

    const KSRect<long> from(10, -20, 10 + kWidth - 1, -20 + kHeight - 1);
    const KSRect<long> to(-15, -55, -15 + kToWidth - 1, -55 + kToHeight - 1);
    const double angles[] = {0.0, 0.4, -1.5, 3.0};
    const auto rotate = [&](auto function, double angle, Word* result) {
        function(from, to, {58.5, 10.25}, angle, source.data(), result, kRow, kToRow);
    };
    ExpectHash(0x4DBD33B6A6ED6D62, Ours::RotatePlain, Oracle::RotatePlain, canvas, angles, rotate);
    ExpectHash(0xF0C1CD3FE2212DAB, Ours::RotateBiLin, Oracle::RotateBiLin, canvas, angles, rotate);

    const std::array<KSPoint<double>, 4> corners[] = {
        {{{-10, -50}, {90, -50}, {90, 40}, {-10, 40}}},
        {{{0, -40.5}, {110.25, -30}, {95, 60}, {-9.75, 70}}},
        {{{30, -55}, {100, 0}, {40, 60}, {10, 20}}},
    };
    const auto transform = [&](auto function, const auto& p, Word* result) {
        function(from, p[0], p[1], p[2], p[3], to, source.data(), result, kRow, kToRow);
    };
    ExpectHash(0x88727DE6F4781725, Ours::TransformPlain, Oracle::TransformPlain, canvas, corners, transform);
    ExpectHash(0x6E20F6E43E747287, Ours::TransformBiLin, Oracle::TransformBiLin, canvas, corners, transform);

    const std::uint8_t radii[] = {1, 4, 20};
    ExpectHash(0x21159084971613FD, Ours::NoiseRemover, Oracle::NoiseRemover, bytes, radii,
               [](auto function, std::uint8_t radius, std::uint8_t* image) {
                   function(image, kWidth, kHeight, radius, 4);
               });
}

}  // namespace
