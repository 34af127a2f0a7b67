// SPDX-License-Identifier: MIT
// Pixels to work on: straight 0xAARRGGBB words, and the premultiplied ones that most peers want.
#pragma once

#include "examples/adapters/buffer.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

// A rectangle of pixel words without gaps. Images start at different distances from a page's start, so that
// loads of one and stores to another do not contend for the same lines.
class Image {
public:
    Image(int width, int height);
    Image(const Image& other);
    Image(Image&&) = default;
    Image& operator=(Image&&) = default;

    int Width() const { return _width; }
    int Height() const { return _height; }
    std::size_t Count() const { return static_cast<std::size_t>(_width) * static_cast<std::size_t>(_height); }
    std::size_t Bytes() const { return Count() * sizeof(std::uint32_t); }
    int BytesPerRow() const { return _width * 4; }

    std::uint32_t* Pixels() { return _pixels; }
    const std::uint32_t* Pixels() const { return _pixels; }
    std::uint32_t* Row(int y) { return _pixels + static_cast<std::ptrdiff_t>(y) * _width; }
    const std::uint32_t* Row(int y) const { return _pixels + static_cast<std::ptrdiff_t>(y) * _width; }
    std::uint8_t* Data() { return reinterpret_cast<std::uint8_t*>(_pixels); }
    const std::uint8_t* Data() const { return reinterpret_cast<const std::uint8_t*>(_pixels); }

    void Fill(std::uint32_t pixel);
    // Takes over the pixels of an image of the same size.
    void CopyFrom(const Image& other);

private:
    int _width;
    int _height;
    std::unique_ptr<std::byte[]> _memory;
    std::uint32_t* _pixels;
};

// What the alphas of an image are.
enum class Alphas {
    kOpaque,       // all 255
    kTranslucent,  // each from 1 to 254
    kMixed,        // a third of the pixels 0, a third 255, a third from 1 to 254, in no order
    kSpans,        // those of cut-out pictures: clear and opaque spans with soft edges
};

const char* name_of(Alphas alphas);

// Returns an image of random colours. A pixel whose alpha is 0 has a colour too.
Image random_image(int width, int height, Alphas alphas, unsigned seed);

// Returns an image as pictures are: smooth colour with edges, so that sampling it looks like work on a photo.
Image picture(int width, int height, Alphas alphas);

// Returns the image with its colours multiplied by their alphas.
Image premultiplied(const Image& straight);

// Returns how many pixels differ between two images of the same size.
std::size_t changed_pixels(const Image& a, const Image& b);
// Returns the mean absolute difference over all channels of two images of the same size.
double mean_difference(const Image& a, const Image& b);
