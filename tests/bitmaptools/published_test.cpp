// SPDX-License-Identifier: MIT
// The pixels promised on every processor.
#include "tests/bitmaptools/pixel_arrays.h"
#include "tests/published.h"

namespace {

constexpr long kWidth = 97, kHeight = 61, kRow = 101;          // of the source
constexpr long kToWidth = 150, kToHeight = 130, kToRow = 151;  // of what is drawn into

// A promise to keep: what these operations make is the same on every processor and in every release.
TEST(PublishedHashes, HoldAtEveryLevel) {
    using Tools = KSBitmapTools;
    Sequence sequence;
    std::vector<Word> source(kRow * kHeight), canvas(kToRow * kToHeight);
    for (Word& pixel : source)
        pixel = sequence.NextPixel();
    for (auto row = source.begin() + 20 * kRow; row != source.begin() + 40 * kRow; row += kRow)
        std::for_each_n(row, kWidth, [](Word& pixel) { pixel |= 0xFF000000; });
    for (Word& pixel : canvas)
        pixel = sequence.NextPixel();
    std::vector<std::uint8_t> bytes(kWidth * kHeight);
    for (std::uint8_t& byte : bytes)
        byte = static_cast<std::uint8_t>(sequence.Next() % 16 < 3 ? sequence.Next() % 9 : 0);
    const KSRect<long> from(10, -20, 10 + kWidth - 1, -20 + kHeight - 1);
    const KSRect<long> to(-15, -55, -15 + kToWidth - 1, -55 + kToHeight - 1);
    const KSPoint<double> corners[][4] = {{{-10, -50}, {90, -50}, {90, 40}, {-10, 40}},
                                          {{0, -40.5}, {110.25, -30}, {95, 60}, {-9.75, 70}},
                                          {{30, -55}, {100, 0}, {40, 60}, {10, 20}}};
    for (const Level level : Levels()) {
        const ScopedLevel held(level);
        std::uint64_t hash = HashOf<Word>({});
        // Goes on with the hash of what a function makes of a copy of the canvas.
        const auto add = [&](auto function, auto... arguments) {
            std::vector<Word> result = canvas;
            function(arguments..., source.data(), result.data(), kRow, kToRow);
            hash = HashOf<Word>(result, hash);
        };
        for (const bool bilinear : {false, true}) {
            for (const auto& [width, height] : {std::pair(150, 130), {97, 61}, {40, 23}, {3, 100}})
                add(bilinear ? Tools::ScaleBiLin : Tools::ScalePlain, kWidth, kHeight, width, height);
            for (const double angle : {0.0, 0.4, -1.5, 3.0})
                add(bilinear ? Tools::RotateBiLin : Tools::RotatePlain, from, to, KSPoint(58.5, 10.25),
                    angle);
            for (const auto& p : corners)
                add(bilinear ? Tools::TransformBiLin : Tools::TransformPlain, from, p[0], p[1], p[2], p[3],
                    to);
        }
        for (const std::uint8_t radius : {1, 4, 20}) {
            std::vector<std::uint8_t> cleaned = bytes;
            Tools::NoiseRemover(cleaned.data(), kWidth, kHeight, radius, 4);
            hash = HashOf<std::uint8_t>(cleaned, hash);
        }
        EXPECT_EQ(hash, 0xE5C000460AAFE5B2) << NameOf(level) << std::hex << ", " << hash;
    }
}

}  // namespace
