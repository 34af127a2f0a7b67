// SPDX-License-Identifier: MIT
// The library held to each of its instruction sets.
#pragma once

#include "simd/level.h"

#include <functional>
#include <string>
#include <vector>

struct Level {
    std::string name;  // of the contender
    ks_simd::Level set;
};

// Returns the levels of this processor: "ksimaging" for the highest, the one that the library chooses itself,
// then those below it.
inline std::vector<Level> levels() {
    const ks_simd::Level detected = ks_simd::DetectedLevel();
    std::vector<Level> result = {{"ksimaging", detected}};
    if (detected > ks_simd::Level::kAvx2)
        result.push_back({"ksimaging AVX2", ks_simd::Level::kAvx2});
    if (detected > ks_simd::Level::kBaseline)
        result.push_back({"ksimaging baseline", ks_simd::Level::kBaseline});
    return result;
}

// Returns `pass`, held to the level.
inline std::function<void()> at_level(const Level& level, std::function<void()> pass) {
    return [set = level.set, pass = std::move(pass)] {
        ks_simd::UseLevel(set);
        pass();
        ks_simd::UseLevel(ks_simd::Level::kAvx512);
    };
}
