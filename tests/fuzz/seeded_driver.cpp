// SPDX-License-Identifier: MIT
// Drives a fuzz target without libFuzzer.
//
// Usage: <program> <number of inputs> [<first seed>]  runs mutated seeds and random bytes
//        <program> --write <folder>                   writes the seeds as a corpus for libFuzzer
//        <program> --replay <file>...                 runs the files
#include "tests/fuzz/fuzz_target.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace {

using input = std::vector<std::uint8_t>;

input Mutated(input bytes, std::mt19937& random) {
    for (unsigned i = random() % 5; i > 0 && !bytes.empty(); i--) {
        const std::size_t at = random() % bytes.size();
        switch (random() % 4) {
        case 0:
            bytes[at] = static_cast<std::uint8_t>(random());
            break;
        case 1:
            bytes[at] ^= static_cast<std::uint8_t>(1u << random() % 8);
            break;
        case 2:
            bytes.resize(at);
            break;
        default:
            bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(at), random() % 2 ? 0xFF : 0x00);
        }
    }
    return bytes;
}

input Random(std::mt19937& random) {
    input bytes(random() % 400);
    std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<std::uint8_t>(random()); });
    return bytes;
}

void Run(const input& bytes) {
    // A buffer of exactly the size lets AddressSanitizer see any read beyond it.
    const input exact(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
}

void RunSeeded(unsigned long count, unsigned first) {
    const std::vector<input> seeds = FuzzSeeds();
    for (unsigned long i = 0; i < count; i++) {
        const unsigned seed = first + static_cast<unsigned>(i);
        std::mt19937 random(seed);
        // Written before the run, so that the last line says which seed went wrong.
        std::fprintf(stderr, "\rseed %u", seed);
        const bool mutate = random() % 2 && !seeds.empty();
        Run(mutate ? Mutated(seeds[random() % seeds.size()], random) : Random(random));
    }
    std::fprintf(stderr, "\n");
}

}  // namespace

int main(int count, char** arguments) {
    const std::string first = count > 1 ? arguments[1] : "1000";
    if (first == "--write" && count > 2) {
        int number = 0;
        for (const input& seed : FuzzSeeds())
            std::ofstream(std::string(arguments[2]) + "/seed" + std::to_string(number++), std::ios::binary)
                .write(reinterpret_cast<const char*>(seed.data()), static_cast<std::streamsize>(seed.size()));
    } else if (first == "--replay") {
        for (int i = 2; i < count; i++) {
            std::ifstream file(arguments[i], std::ios::binary);
            Run(input(std::istreambuf_iterator<char>(file), {}));
        }
    } else {
        RunSeeded(std::stoul(first), count > 2 ? static_cast<unsigned>(std::stoul(arguments[2])) : 1);
    }
}
