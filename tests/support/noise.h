// SPDX-License-Identifier: MIT
// Random numbers and pixels for tests.
#pragma once

#include <cstdint>
#include <random>
#include <span>

// The step of the longest sweeps: 1, but under emulation they take every 17th value, the first and the last
// of 256 among them.
#if defined(NYMBREL_EMULATED)
inline constexpr std::uint32_t kSweepStep = 17;
#else
inline constexpr std::uint32_t kSweepStep = 1;
#endif

// A sequence of random values; a test that fails prints its seed.
class Noise {
public:
    explicit Noise(std::uint32_t seed) : _engine(seed), _seed(seed) {}

    std::uint32_t Seed() const { return _seed; }
    std::uint32_t Word() { return static_cast<std::uint32_t>(_engine()); }
    // Returns a value of [least, most].
    long In(long least, long most) { return std::uniform_int_distribution<long>(least, most)(_engine); }
    double Real(double least, double most) {
        return std::uniform_real_distribution<double>(least, most)(_engine);
    }
    bool OneIn(int n) { return In(1, n) == 1; }

    // Returns a pixel; each channel, and alpha too, is 0 or 255 one time in four each.
    std::uint32_t Pixel() {
        std::uint32_t word = Word();
        const std::uint32_t kinds = Word();
        for (int shift = 0; shift < 32; shift += 8) {
            const std::uint32_t kind = kinds >> shift & 3, channel = 255u << shift;
            word = kind == 0 ? word & ~channel : kind == 1 ? word | channel : word;
        }
        return word;
    }

    // Fills `pixels` with stretches of opaque ones, of clear ones, and of any; one time in three all are
    // opaque.
    void Paint(std::span<std::uint32_t> pixels) {
        const bool opaque = OneIn(3);
        long left = 0, kind = 0;
        for (std::uint32_t& pixel : pixels) {
            if (left-- == 0) {
                left = In(0, 90);
                kind = opaque ? 0 : In(0, 2);
            }
            pixel = Pixel();
            pixel = kind == 0 ? pixel | 0xFF000000 : kind == 1 ? pixel & 0x00FFFFFF : pixel;
        }
    }

private:
    std::mt19937 _engine;
    std::uint32_t _seed;
};
