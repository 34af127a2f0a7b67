// SPDX-License-Identifier: MIT
// Copies between rasters and plain memory.
#include "examples/adapters/buffer.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

TEST(Buffer, CopiesRowsThatAreFartherApartThanWide) {
    std::vector<unsigned char> bytes(1 + 3 * 20, 0xEE);  // at an odd address
    const std::uint32_t pixels[3][2] = {{1, 2}, {3, 4}, {5, 6}};
    for (int y = 0; y < 3; ++y)
        std::memcpy(bytes.data() + 1 + 20 * y, pixels[y], 8);

    const auto raster = copy_from_buffer(bytes.data() + 1, 2, 3, 20, BufferAlpha::kStraight);
    EXPECT_EQ(0, std::memcmp(raster->Bits(), pixels, sizeof pixels));
    const auto upside_down = copy_from_buffer(bytes.data() + 41, 2, 3, -20, BufferAlpha::kStraight);
    EXPECT_EQ(5u, static_cast<const std::uint32_t*>(upside_down->Bits())[0]);

    std::vector<unsigned char> copied(bytes.size(), 0xEE);
    copy_to_buffer(*raster, copied.data() + 1, 20, BufferAlpha::kStraight);
    EXPECT_EQ(bytes, copied);
}

TEST(Buffer, ConvertsPremultipliedColourThereAndBack) {
    for (std::uint32_t alpha = 0; alpha < 256; ++alpha)
        for (std::uint32_t channel = 0; channel <= alpha; ++channel) {
            const std::uint32_t kept = alpha << 24 | channel << 16 | channel << 8 | channel;
            std::uint32_t copied = 0;
            copy_to_buffer(*copy_from_buffer(&kept, 1, 1, 4, BufferAlpha::kPremultiplied), &copied, 4,
                           BufferAlpha::kPremultiplied);
            EXPECT_EQ(kept, copied) << alpha << " " << channel;
        }
    EXPECT_EQ(0x80804020u, premultiplied_pixel(0x80FF8040));
}

}  // namespace
