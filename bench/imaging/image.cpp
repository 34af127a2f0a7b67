// SPDX-License-Identifier: MIT
// Makes the pixels that the benchmarks work on.
#include "bench/imaging/image.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <random>

namespace {

constexpr std::size_t kPage = 4096;

std::uint32_t alpha_of(Alphas alphas, std::uint32_t random) {
    const std::uint32_t translucent = 1 + random % 254;
    switch (alphas) {
    case Alphas::kOpaque:
        return 255;
    case Alphas::kTranslucent:
        return translucent;
    case Alphas::kMixed:
        break;
    }
    const std::uint32_t third = random / 256 % 3;
    return third == 0 ? 0 : third == 1 ? 255 : translucent;
}

std::uint32_t channel(double value) {
    return static_cast<std::uint32_t>(std::clamp(value, 0.0, 1.0) * 255 + 0.5);
}

}  // namespace

Image::Image(int width, int height) : _width(width), _height(height) {
    static std::size_t images = 0;
    const std::size_t offset = images++ % 8 * 448;
    _memory.reset(new std::byte[Bytes() + 2 * kPage]);
    const auto start = reinterpret_cast<std::uintptr_t>(_memory.get());
    const std::size_t to_page = (kPage - start % kPage) % kPage;
    _pixels = reinterpret_cast<std::uint32_t*>(_memory.get() + to_page + offset);
    Fill(0);
}

Image::Image(const Image& other) : Image(other._width, other._height) {
    CopyFrom(other);
}

void Image::Fill(std::uint32_t pixel) {
    std::fill_n(_pixels, Count(), pixel);
}

void Image::CopyFrom(const Image& other) {
    std::memcpy(_pixels, other._pixels, Bytes());
}

const char* name_of(Alphas alphas) {
    return alphas == Alphas::kOpaque ? "opaque" : alphas == Alphas::kTranslucent ? "translucent" : "mixed";
}

Image random_image(int width, int height, Alphas alphas, unsigned seed) {
    // Random numbers are slow to make: a large image repeats the first 2^18 pixels.
    constexpr std::size_t kPeriod = 1 << 18;
    Image image(width, height);
    std::mt19937 random(seed);
    for (std::size_t i = 0; i < std::min(image.Count(), kPeriod); ++i) {
        const std::uint32_t colour = random() & 0xFFFFFF;
        image.Pixels()[i] = alpha_of(alphas, random()) << 24 | colour;
    }
    for (std::size_t i = kPeriod; i < image.Count(); ++i)
        image.Pixels()[i] = image.Pixels()[i - kPeriod];
    return image;
}

Image picture(int width, int height, Alphas alphas) {
    Image image(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const double u = x * 8.0 / width, v = y * 8.0 / height;
            const bool check = (static_cast<int>(u) + static_cast<int>(v)) % 2 != 0;
            const double wave = 0.5 + 0.5 * std::sin(u * 2.1) * std::cos(v * 1.7);
            const double cover = alphas == Alphas::kOpaque        ? 1
                                 : alphas == Alphas::kTranslucent ? 0.1 + 0.8 * wave
                                                                  : 2 * wave - 0.5;
            image.Row(y)[x] = channel(cover) << 24 | channel(check ? u / 8 : wave) << 16 |
                              channel(v / 8) << 8 | channel(check ? wave : 1 - u / 8);
        }
    return image;
}

Image premultiplied(const Image& straight) {
    Image result(straight.Width(), straight.Height());
    std::transform(straight.Pixels(), straight.Pixels() + straight.Count(), result.Pixels(),
                   premultiplied_pixel);
    return result;
}

std::size_t changed_pixels(const Image& a, const Image& b) {
    std::size_t changed = 0;
    for (std::size_t i = 0; i < a.Count(); ++i)
        changed += a.Pixels()[i] != b.Pixels()[i];
    return changed;
}

double mean_difference(const Image& a, const Image& b) {
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i < a.Bytes(); ++i)
        sum += static_cast<std::uint64_t>(std::abs(a.Data()[i] - b.Data()[i]));
    return static_cast<double>(sum) / static_cast<double>(a.Bytes());
}
