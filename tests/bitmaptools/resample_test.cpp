// SPDX-License-Identifier: MIT
// Reduction, projection and premultiplication equal their definitions at every level, in parts too.
#include "bitmaptools/ks_premultiply.h"
#include "tests/bitmaptools/pixel_arrays.h"
#include "tests/reference/pixels.h"

#include <limits>

namespace {

using reference::Rect;

constexpr double kInf = std::numeric_limits<double>::infinity();

// A guarded image with a place.
struct PlacedImage : TestImage {
    KSPixels<Word> pixels;

    PlacedImage(Noise& noise, long left, long top, long w, long h, long row = -1)
        : TestImage(noise, w, h, row),
          pixels(array.Items().data(), row_length, {left, top, left + w - 1, top + h - 1}) {}
};

// Expects `call(pixels)`, called for parts of an image, to store `want(x, y)` where that is a pixel, and
// nothing else, at every level.
template <class Call, class Want> void ExpectStored(Noise& noise, PlacedImage& image, Call call, Want want) {
    const auto items = image.array.Items();
    const std::vector<Word> before(items.begin(), items.end());
    std::vector<Word> wanted = before;
    const Rect& frame = image.pixels.frame;
    for (long y = frame.top; y <= frame.bottom; ++y)
        for (long x = frame.left; x <= frame.right; ++x)
            reference::Store(wanted[static_cast<std::size_t>(image.pixels.At(x, y) - items.data())],
                             want(x, y));
    for (const Level level : Levels()) {
        const ScopedLevel held(level);
        std::ranges::copy(before, items.begin());
        const long x = noise.In(frame.left, frame.right), y = noise.In(frame.top, frame.bottom);
        for (const Rect& part : {Rect(frame.left, frame.top, x, y),
                                 {x + 1, frame.top, frame.right, y},
                                 {frame.left, y + 1, frame.right, frame.bottom}})
            call(image.pixels.Part(part));
        EXPECT_TRUE(std::ranges::equal(items, wanted)) << "seed " << noise.Seed() << ", " << NameOf(level);
    }
    std::ranges::copy(before, items.begin());
}

void ExpectReduced(Noise& noise, PlacedImage& source, long width, long height) {
    PlacedImage destination(noise, 3, -9, width, height);
    const Rect whole(-2, -10, width - 3, height - 11);  // of which the destination has a part, and more
    ExpectStored(
        noise, destination, [&](auto part) { ks_reduce(source.pixels, whole, part); },
        [&](long x, long y) -> std::optional<Word> {
            if (!reference::Holds(whole, x, y) || width > source.width)
                return std::nullopt;
            return reference::Reduced(source.pixels, whole, x, y);
        });
}

TEST(Reduction, EqualsItsDefinition) {
    for (std::uint32_t seed = 0; seed < 150 && !HasFailure(); ++seed) {
        Noise noise(seed);
        PlacedImage source(noise, -5, 7, Size(noise), Size(noise));
        ExpectReduced(noise, source, noise.In(1, source.width), noise.In(1, source.height));
    }
    // More columns than a block, more rows than bytes are summed up at once, weights beyond 32 bits; high
    // sources by rows of length 0.
    const struct {
        long width, height, row_length, to_width, to_height;
    } rows[] = {{1300, 2, -1, 9, 2}, {1300, 1, -1, 1200, 1}, {3, 700, -1, 8, 1}, {9, 40000, 0, 9, 7},
                {2000, 3, -1, 3, 2}, {257, 5, -1, 256, 5},   {4, 4, -1, 5, 4}};
    for (const auto& row : rows) {
        Noise noise(7);
        PlacedImage source(noise, 0, 0, row.width, row.height, row.row_length);
        ExpectReduced(noise, source, row.to_width, row.to_height);
    }
}

TEST(Projection, EqualsItsDefinition) {
    const double nan = std::nan("");
    const ks_quadrilateral rows[] = {
        {{{3, 2}, {60, 9}, {55, 48}, {-4, 40}}},
        {{{0, 0}, {70, 0}, {70, 50}, {0, 50}}},
        {{{70, 0}, {0, 0}, {0, 50}, {70, 50}}},
        {{{30, -300}, {40, -300}, {4000, 900}, {-4000, 900}}},
        {{{0, 0}, {60, 40}, {60, 0}, {0, 40}}},
        {{{0, 0}, {50, 0}, {10, 10}, {0, 50}}},
        {{{nan, 0}, {50, 0}, {50, 50}, {0, 50}}},
        {{{0, 0}, {kInf, 0}, {50, 50}, {0, 50}}},
        {{{0, 0}, {25, 25}, {50, 50}, {0, 50}}},
        {{{7, 7}, {7, 7}, {7, 7}, {7, 7}}},
        {{{-2e9, -2e9}, {2e9, -2e9}, {2e9, 2e9}, {-2e9, 2e9}}},
        {{{0, 0}, {1e300, 0}, {1, 1}, {0, 1}}},
    };
    for (const ks_quadrilateral& corners : rows)
        for (const long wide : {0, 1 << 18}) {  // where positions no longer fit 32 bits
            Noise noise(static_cast<std::uint32_t>(&corners - rows));
            PlacedImage source(noise, 5, -3, 61 + wide, 47, wide ? 0 : -1),
                destination(noise, -20, -9, 140, 70);
            const Rect rect(-10, -5, 69, 44), from(5, -3, 65, 43);
            for (const auto& map : {ks_projection::FromQuadrilateral(corners, rect),
                                    ks_projection::ToQuadrilateral(from, corners)})
                for (const bool bilinear : {false, true})
                    ExpectStored(
                        noise, destination,
                        [&](auto part) {
                            (bilinear ? ks_project_bilinear : ks_project_plain)(source.pixels, map, part);
                        },
                        [&](long x, long y) {
                            return reference::Projected(source.pixels, map, bilinear, x, y);
                        });
            // What the maps are: corners to corners, both ways, unless they are no quadrilateral.
            const auto in = ks_projection::FromQuadrilateral(corners, rect),
                       out = ks_projection::ToQuadrilateral(rect, corners);
            for (std::size_t k = 0; k < 4 && &corners - rows < 4; ++k) {
                const KSPoint<double> corner = ks_corners(rect)[k], there = in.SourceOf(corner),
                                      back = out.SourceOf(there);
                EXPECT_NEAR(there.x, corners[k].x, 1e-6) << &corners - rows;
                EXPECT_NEAR(there.y, corners[k].y, 1e-6);
                EXPECT_NEAR(std::hypot(back.x - corner.x, back.y - corner.y), 0, 1e-6);
            }
        }
}

TEST(Premultiplication, EqualsItsDefinitionForAllAlphasAndChannels) {
    Noise noise(1);
    PlacedImage source(noise, 0, 0, 257, 256), destination(noise, 1, 1, 300, 300);
    for (long k = 0; k < 256 * 256; ++k)
        *source.pixels.At(k % 256 + 1, k / 256) =
            static_cast<Word>(k / 256 << 24 | k % 256 << 16 | (k * 7 & 255) << 8 | (255 - k % 256));
    for (const bool back : {false, true})
        for (const bool in_place : {false, true})
            ExpectStored(
                noise, in_place ? source : destination,
                [&](auto part) {
                    (back ? ks_unpremultiply : ks_premultiply)(in_place ? part : source.pixels, part);
                },
                [&](long x, long y) -> std::optional<Word> {
                    if (!reference::Holds(source.pixels.frame, x, y))
                        return std::nullopt;
                    return (back ? reference::Unpremultiplied
                                 : reference::Premultiplied)(*source.pixels.At(x, y));
                });
}

}  // namespace
