// SPDX-License-Identifier: MIT
// The library held to each of its instruction sets.
#pragma once

#include "hdr/instruction_set.h"

#include <functional>
#include <string>
#include <vector>

using namespace ks_simd;

struct Level {
    std::string name;  // of the contender
    InstructionSet set;
};

// Returns the levels of this processor: "ksimaging" for the highest, the one that the library chooses itself,
// then those below it.
inline std::vector<Level> levels() {
    const InstructionSet detected = DetectedInstructionSet();
    std::vector<Level> result = {{"ksimaging", detected}};
    if (detected > InstructionSet::kAvx2)
        result.push_back({"ksimaging AVX2", InstructionSet::kAvx2});
    if (detected > InstructionSet::kBaseline)
        result.push_back({"ksimaging baseline", InstructionSet::kBaseline});
    return result;
}

// Returns `pass`, held to the level.
inline std::function<void()> at_level(const Level& level, std::function<void()> pass) {
    return [set = level.set, pass = std::move(pass)] {
        UseInstructionSet(set);
        pass();
        UseInstructionSet(InstructionSet::kAvx512);
    };
}
