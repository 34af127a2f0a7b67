// SPDX-License-Identifier: MIT
// The level of the pixel operations: the instruction set whose compiled form of them runs. It is the highest
// that the processor has. All levels give the same results.
//
// Only code that chooses between levels includes this header. A unit compiled for one level must not: the
// inline functions below would be compiled for that level too, and the linker could take those for all.
#pragma once

#include <algorithm>
#include <atomic>

namespace ks_simd {

// In ascending order: a processor that has a level has those before it.
enum class Level {
    kBaseline,  // what the compiler assumes of every processor it builds for
    kAvx2,      // with FMA, BMI 1 and 2
    kAvx512,    // F, BW, DQ and VL
};

// Returns the highest level that this processor and its system have.
inline Level DetectedLevel() {
#if defined(__x86_64__)
    __builtin_cpu_init();  // constructors of other units may ask before libgcc's own has run
    if (!__builtin_cpu_supports("avx2") || !__builtin_cpu_supports("fma") || !__builtin_cpu_supports("bmi") ||
        !__builtin_cpu_supports("bmi2"))
        return Level::kBaseline;
    if (!__builtin_cpu_supports("avx512f") || !__builtin_cpu_supports("avx512bw") ||
        !__builtin_cpu_supports("avx512dq") || !__builtin_cpu_supports("avx512vl"))
        return Level::kAvx2;
    return Level::kAvx512;
#else
    return Level::kBaseline;
#endif
}

inline constexpr auto kLevelUnknown = static_cast<Level>(-1);

// Unknown until the first operation. Threads that set it at once all store the same.
inline constinit std::atomic<Level> level_in_use = kLevelUnknown;

// Makes all operations run at `wanted`, or at the detected level if that is lower. For tests and benchmarks:
// no operation may be running meanwhile.
inline void UseLevel(Level wanted) {
    level_in_use.store(std::min(wanted, DetectedLevel()), std::memory_order_relaxed);
}

// Returns the level to run now.
inline Level ActiveLevel() {
    const Level active = level_in_use.load(std::memory_order_relaxed);
    if (active != kLevelUnknown) [[likely]]
        return active;
    UseLevel(Level::kAvx512);
    return level_in_use.load(std::memory_order_relaxed);
}

}  // namespace ks_simd
