// SPDX-License-Identifier: MIT
// Drives a fuzz target without libFuzzer, by mutated seeds and random bytes.
//
// Usage: <program> <number of inputs> [<first seed>]  runs them
//        <program> --write <folder>                   writes some as a corpus for libFuzzer
#include "tests/fuzz/fuzz_target.h"
#include "tests/support/noise.h"

#include <algorithm>
#include <fstream>
#include <string>

namespace {

using input = std::vector<std::uint8_t>;

std::uint8_t Byte(Noise& noise) {
    return static_cast<std::uint8_t>(noise.Word());
}

void Mutate(input& bytes, Noise& noise) {
    for (long i = noise.In(0, 4); i > 0 && !bytes.empty(); i--) {
        const auto at = bytes.begin() + noise.In(0, static_cast<long>(bytes.size()) - 1);
        const long change = noise.In(0, 3);
        if (change == 0)
            *at ^= Byte(noise);
        else if (change == 1)
            *at ^= static_cast<std::uint8_t>(1 << noise.In(0, 7));
        else if (change == 2)
            bytes.erase(at, bytes.end());
        else
            bytes.insert(at, noise.OneIn(2) ? 0xFF : 0x00);
    }
}

input InputOf(std::uint32_t seed) {
    static const std::vector<input> seeds = FuzzSeeds();
    Noise noise(seed);
    if (!seeds.empty() && noise.OneIn(2)) {
        input bytes = seeds[noise.Word() % seeds.size()];
        Mutate(bytes, noise);
        // Without spare capacity, so that AddressSanitizer sees any read beyond the end.
        bytes.shrink_to_fit();
        return bytes;
    }
    input bytes(noise.Word() % 400);
    std::generate(bytes.begin(), bytes.end(), [&noise] { return Byte(noise); });
    return bytes;
}

}  // namespace

int main(int count, char** arguments) {
    const std::string first = count > 1 ? arguments[1] : "1000";
    const bool write = first == "--write" && count > 2;
    const unsigned long inputs = write ? 200 : std::stoul(first);
    const unsigned long start = !write && count > 2 ? std::stoul(arguments[2]) : 1;
    for (unsigned long seed = start; seed < start + inputs; seed++) {
        const input bytes = InputOf(static_cast<std::uint32_t>(seed));
        if (write) {
            std::ofstream(arguments[2] + ("/seed" + std::to_string(seed)), std::ios::binary)
                .write(reinterpret_cast<const char*>(bytes.data()),
                       static_cast<std::streamsize>(bytes.size()));
        } else {
            // Written before the run, so that the last line says which seed went wrong.
            std::fprintf(stderr, "\rseed %lu", seed);
            LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
        }
    }
    std::fprintf(stderr, "\n");
}
