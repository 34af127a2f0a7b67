// SPDX-License-Identifier: MIT
// What a fuzz target gives to whoever drives it: libFuzzer, or the seeded driver.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

// Runs one input, which may be any bytes. Aborts if something is wrong.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// Returns inputs from which it pays to start.
std::vector<std::vector<std::uint8_t>> FuzzSeeds();

// Aborts the input unless `holds`.
inline void Require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "fuzz target: %s\n", what);
        std::abort();
    }
}
