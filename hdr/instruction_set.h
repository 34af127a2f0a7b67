// SPDX-License-Identifier: MIT
// Which of the compiled forms of the pixel operations runs: the widest that the processor has.
//
// Private to the library, and used by its dispatching code only: a unit compiled for one of the levels must
// not include it, for its inline functions would be compiled for that level too.
#pragma once

#include <algorithm>
#include <atomic>

// Levels in ascending order. A processor that has one has those before it.
enum class InstructionSet {
    kBaseline,  // what the compiler assumes of every processor it builds for
    kAvx2,      // with BMI 1 and 2
    kAvx512,    // F, BW, DQ and VL
};

// Returns the highest level that this processor and its system have.
inline InstructionSet DetectedInstructionSet() {
#if defined(__x86_64__)
    if (!__builtin_cpu_supports("avx2") || !__builtin_cpu_supports("bmi") || !__builtin_cpu_supports("bmi2"))
        return InstructionSet::kBaseline;
    if (!__builtin_cpu_supports("avx512f") || !__builtin_cpu_supports("avx512bw") ||
        !__builtin_cpu_supports("avx512dq") || !__builtin_cpu_supports("avx512vl"))
        return InstructionSet::kAvx2;
    return InstructionSet::kAvx512;
#else
    return InstructionSet::kBaseline;
#endif
}

// The highest level that may run. Tests and benchmarks lower it; nothing else writes it.
inline std::atomic<InstructionSet> instruction_set_limit = InstructionSet::kAvx512;

// Returns the level to run now.
inline InstructionSet ActiveInstructionSet() {
    static const InstructionSet detected = DetectedInstructionSet();
    return std::min(detected, instruction_set_limit.load(std::memory_order_relaxed));
}
