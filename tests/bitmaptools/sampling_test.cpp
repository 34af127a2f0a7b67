// SPDX-License-Identifier: MIT
// Parts of the sampling that are derived from its definition, for all their arguments.
#include "bitmaptools/level_inl.h"
#include "tests/support/noise.h"

#include <gtest/gtest.h>

namespace ks_bitmaptools {
namespace {

// The weights that are less than their shares by what one addition and one shift tell.
TEST(Sampling, OpaqueWeightsAreThoseOfAlpha255) {
    static_cast<void>(kLevel);
    Words shares;
    for (std::uint32_t k = 0; k < kLanes; k++)
        shares[k] = k;
    const Words alphas = Words{} + 255;
    constexpr std::uint32_t step = kLanes * kSweepStep;
    for (std::uint32_t first = 0; first <= 1 << 24; first += step, shares += step) {
        const Words got = OpaqueWeights(shares);
        ASSERT_FALSE(any(got ^ Weights(shares, alphas))) << "shares from " << first;
    }
}

}  // namespace
}  // namespace ks_bitmaptools
