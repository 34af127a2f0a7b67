// SPDX-License-Identifier: MIT
// Which of the compiled forms of the pixel operations runs: the widest that the processor has. All forms give
// the same results.
//
// Private to the library, and used by its dispatching code only: a unit compiled for one of the levels must
// not include it, for its inline functions would be compiled for that level too.
#pragma once

#include <algorithm>
#include <atomic>

namespace ks_simd {

// Levels in ascending order. A processor that has one has those before it.
enum class InstructionSet {
    kBaseline,  // what the compiler assumes of every processor it builds for
    kAvx2,      // with BMI 1 and 2
    kAvx512,    // F, BW, DQ and VL
};

// Returns the highest level that this processor and its system have.
inline InstructionSet DetectedInstructionSet() {
#if defined(__x86_64__)
    __builtin_cpu_init();  // constructors of other units may ask before libgcc's own has run
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

inline constexpr auto kInstructionSetUnknown = static_cast<InstructionSet>(-1);

// The level in use; unknown until the first operation. Threads that meet there all store the same.
inline constinit std::atomic<InstructionSet> instruction_set_in_use = kInstructionSetUnknown;

// Makes all operations run at `wanted`, or at the highest level if that is lower. For tests and benchmarks:
// no operation may be running meanwhile.
inline void UseInstructionSet(InstructionSet wanted) {
    instruction_set_in_use.store(std::min(wanted, DetectedInstructionSet()), std::memory_order_relaxed);
}

// Returns the level to run now.
inline InstructionSet ActiveInstructionSet() {
    const InstructionSet active = instruction_set_in_use.load(std::memory_order_relaxed);
    if (active != kInstructionSetUnknown) [[likely]]
        return active;
    UseInstructionSet(InstructionSet::kAvx512);
    return instruction_set_in_use.load(std::memory_order_relaxed);
}

}  // namespace ks_simd
