// SPDX-License-Identifier: MIT
// The levels of the pixel operations that a test goes through.
#pragma once

#include "simd/level.h"

#include <vector>

using namespace ks_simd;

// Returns the levels of this processor in ascending order.
inline std::vector<Level> Levels() {
    std::vector<Level> levels;
    for (const Level level : {Level::kBaseline, Level::kAvx2, Level::kAvx512})
        if (level <= DetectedLevel())
            levels.push_back(level);
    return levels;
}

inline const char* NameOf(Level level) {
    return level == Level::kAvx512 ? "avx512" : level == Level::kAvx2 ? "avx2" : "baseline";
}

// Holds all operations to one level while it lives.
class ScopedLevel {
public:
    explicit ScopedLevel(Level level) { UseLevel(level); }
    ~ScopedLevel() { UseLevel(DetectedLevel()); }
    ScopedLevel(const ScopedLevel&) = delete;
    ScopedLevel& operator=(const ScopedLevel&) = delete;
};
