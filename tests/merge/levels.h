// SPDX-License-Identifier: MIT
// Tests that run once on each level that this processor has.
#pragma once

#include "merge/levels.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

inline std::vector<ks_merge::level> RunnableLevels() {
    std::vector<ks_merge::level> levels;
    for (const ks_merge::level each : ks_merge::kLevels)
        if (each <= ks_merge::best_level())
            levels.push_back(each);
    return levels;
}

// Uses one level while it lives.
class ScopedLevel {
public:
    explicit ScopedLevel(ks_merge::level wanted) { EXPECT_EQ(ks_merge::use_level(wanted), wanted); }
    ~ScopedLevel() { ks_merge::use_level(ks_merge::best_level()); }
    ScopedLevel(const ScopedLevel&) = delete;
    ScopedLevel& operator=(const ScopedLevel&) = delete;
};

inline std::string ModeName(ks_composition_mode mode) {
    std::string name;
    for (const char* c = KSMerge::composition_label[mode]; *c; c++)
        if (*c != ' ')
            name += *c;
    return name;
}

inline std::vector<ks_composition_mode> AllModesBut(std::initializer_list<ks_composition_mode> left_out) {
    std::vector<ks_composition_mode> modes;
    for (int i = 0; i < kMergeCount; i++) {
        bool wanted = true;
        for (const ks_composition_mode mode : left_out)
            wanted = wanted && mode != i;
        if (wanted)
            modes.push_back(static_cast<ks_composition_mode>(i));
    }
    return modes;
}
