// SPDX-License-Identifier: MIT
// The pixels promised on every processor.
#include "tests/bitmaptools/pixel_arrays.h"
#include "tests/published.h"

#include <map>

namespace {

using Word = std::uint32_t;
using Hashes = std::map<std::string, std::uint64_t>;

constexpr long kWidth = 97, kHeight = 61, kRow = 101;          // of the source
constexpr long kToWidth = 150, kToHeight = 130, kToRow = 151;  // of what is drawn into

// Returns the hash of what each operation makes, called a few times, of pixels and of an image of bytes.
template <class Tools> Hashes HashesOf() {
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

    Hashes hashes;
    std::vector<Word> result;
    const auto add = [&](const std::string& name, auto operation) {
        result = canvas;
        operation();
        auto& hash = hashes.try_emplace(name, HashOf(std::span<const Word>())).first->second;
        hash = HashOf<Word>(result, hash);
    };
    for (const auto& [width, height] : {std::pair{150, 130}, {97, 61}, {40, 23}, {3, 100}}) {
        const auto scale = [&, w = width, h = height](auto function) {
            function(kWidth, kHeight, w, h, source.data(), result.data(), kRow, kToRow);
        };
        add("ScalePlain", [&] { scale(Tools::ScalePlain); });
        add("ScaleBiLin", [&] { scale(Tools::ScaleBiLin); });
    }
    const KSRect<long> from(10, -20, 10 + kWidth - 1, -20 + kHeight - 1);
    const KSRect<long> to(-15, -55, -15 + kToWidth - 1, -55 + kToHeight - 1);
    for (const double angle : {0.0, 0.4, -1.5, 3.0}) {
        const auto rotate = [&](auto function) {
            function(from, to, {58.5, 10.25}, angle, source.data(), result.data(), kRow, kToRow);
        };
        add("RotatePlain", [&] { rotate(Tools::RotatePlain); });
        add("RotateBiLin", [&] { rotate(Tools::RotateBiLin); });
    }
    const KSPoint<double> corners[][4] = {
        {{-10, -50}, {90, -50}, {90, 40}, {-10, 40}},
        {{0, -40.5}, {110.25, -30}, {95, 60}, {-9.75, 70}},
        {{30, -55}, {100, 0}, {40, 60}, {10, 20}},
    };
    for (const auto& p : corners) {
        const auto transform = [&](auto function) {
            function(from, p[0], p[1], p[2], p[3], to, source.data(), result.data(), kRow, kToRow);
        };
        add("TransformPlain", [&] { transform(Tools::TransformPlain); });
        add("TransformBiLin", [&] { transform(Tools::TransformBiLin); });
    }
    std::uint64_t& noise = hashes["NoiseRemover"] = HashOf(std::span<const Word>());
    for (const int radius : {1, 4, 20}) {
        std::vector<std::uint8_t> cleaned = bytes;
        Tools::NoiseRemover(cleaned.data(), kWidth, kHeight, static_cast<std::uint8_t>(radius), 4);
        noise = HashOf<std::uint8_t>(cleaned, noise);
    }
    return hashes;
}

// A promise to keep: what these operations make is the same on every processor and in every release.
TEST(PublishedHashes, HoldOnEveryInstructionSet) {
    const Hashes published = {
        {"ScalePlain", 0x5568E074F746737F},     {"ScaleBiLin", 0xEB4DB3BE42F64E41},
        {"RotatePlain", 0x4DBD33B6A6ED6D62},    {"RotateBiLin", 0xF0C1CD3FE2212DAB},
        {"TransformPlain", 0x88727DE6F4781725}, {"TransformBiLin", 0x6E20F6E43E747287},
        {"NoiseRemover", 0x21159084971613FD},
    };
    EXPECT_EQ(HashesOf<reference::BitmapTools>(), published) << "the definition";
    for (const InstructionSet set : RunnableInstructionSets()) {
        const ScopedInstructionSet forced(set);
        EXPECT_EQ(HashesOf<KSBitmapTools>(), published) << NameOf(set);
    }
}

}  // namespace
