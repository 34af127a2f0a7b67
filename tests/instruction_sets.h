// SPDX-License-Identifier: MIT
// Tests that run once with each instruction set that this processor has.
#pragma once

#include "hdr/instruction_set.h"

#include <vector>

using namespace ks_simd;

inline std::vector<InstructionSet> RunnableInstructionSets() {
    std::vector<InstructionSet> sets = {InstructionSet::kBaseline};
    for (const InstructionSet set : {InstructionSet::kAvx2, InstructionSet::kAvx512})
        if (set <= DetectedInstructionSet())
            sets.push_back(set);
    return sets;
}

inline const char* NameOf(InstructionSet set) {
    return set == InstructionSet::kAvx512 ? "avx512" : set == InstructionSet::kAvx2 ? "avx2" : "baseline";
}

// Uses one instruction set while it lives.
class ScopedInstructionSet {
public:
    explicit ScopedInstructionSet(InstructionSet set) { UseInstructionSet(set); }
    ~ScopedInstructionSet() { UseInstructionSet(DetectedInstructionSet()); }
    ScopedInstructionSet(const ScopedInstructionSet&) = delete;
    ScopedInstructionSet& operator=(const ScopedInstructionSet&) = delete;
};
