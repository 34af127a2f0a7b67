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

// Makes one alpha after the other.
class AlphaSequence {
public:
    explicit AlphaSequence(Alphas alphas) : _alphas(alphas) {}

    std::uint32_t Next(std::uint32_t random) {
        const std::uint32_t translucent = 1 + random % 254, rest = random / 256;
        switch (_alphas) {
        case Alphas::kOpaque:
            return 255;
        case Alphas::kTranslucent:
            return translucent;
        case Alphas::kMixed:
            return rest % 3 == 0 ? 0 : rest % 3 == 1 ? 255 : translucent;
        case Alphas::kSpans:
            break;
        }
        if (_left == 0) {
            _span = (_span + 1) % 4;
            _left = _span == 0 ? 1 + rest % 35 : _span == 2 ? 1 + rest % 71 : 3;
        }
        --_left;
        return _span == 0 ? 0 : _span == 2 ? 255 : translucent;
    }

private:
    Alphas _alphas;
    std::uint32_t _span = 3, _left = 0;  // clear, soft, opaque, soft
};

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
    constexpr const char* kNames[] = {"opaque", "translucent", "mixed", "spans"};
    return kNames[static_cast<std::size_t>(alphas)];
}

Image random_image(int width, int height, Alphas alphas, unsigned seed) {
    Image image(width, height);
    std::mt19937_64 random(seed);
    AlphaSequence sequence(alphas);
    std::generate_n(image.Pixels(), image.Count(), [&] {
        const std::uint64_t bits = random();
        return sequence.Next(static_cast<std::uint32_t>(bits >> 32)) << 24 | (bits & 0xFFFFFF);
    });
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
