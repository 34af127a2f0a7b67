// SPDX-License-Identifier: MIT
// Tests that run once with each instruction set that this processor has.
#pragma once

#include "simd/level.h"

#include <vector>

using namespace ks_simd;
using InstructionSet = Level;

inline std::vector<InstructionSet> RunnableInstructionSets() {
    std::vector<InstructionSet> sets = {InstructionSet::kBaseline};
    for (const InstructionSet set : {InstructionSet::kAvx2, InstructionSet::kAvx512})
        if (set <= DetectedLevel())
            sets.push_back(set);
    return sets;
}

inline const char* NameOf(InstructionSet set) {
    return set == InstructionSet::kAvx512 ? "avx512" : set == InstructionSet::kAvx2 ? "avx2" : "baseline";
}

// Uses one instruction set while it lives.
class ScopedInstructionSet {
public:
    explicit ScopedInstructionSet(InstructionSet set) { UseLevel(set); }
    ~ScopedInstructionSet() { UseLevel(DetectedLevel()); }
    ScopedInstructionSet(const ScopedInstructionSet&) = delete;
    ScopedInstructionSet& operator=(const ScopedInstructionSet&) = delete;
};
