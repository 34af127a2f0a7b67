// SPDX-License-Identifier: MIT
// The size and the memory of a bitmap.
#include "exchange/BBitmap.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

namespace {

constexpr long kPixelBytes = 4;
constexpr long kLongestBits = std::numeric_limits<std::int32_t>::max();

// Returns the number of columns (or rows) from `first` to `last`, or from 0 to `last` if that is more.
long Extent(float first, float last) {
    constexpr float kTooFar = 0x1p32f;  // farther than any bitmap reaches
    const long low = static_cast<long>(std::floor(std::clamp(first, -kTooFar, kTooFar)));
    const long high = static_cast<long>(std::floor(std::clamp(last, -kTooFar, kTooFar)));
    const long from_zero = static_cast<long>(std::clamp(last, -kTooFar, kTooFar)) + 1;
    return std::max(high - low + 1, from_zero);
}

}  // namespace

BBitmap::BBitmap(BRect bounds, color_space space, bool, bool) : _bounds(bounds), _color_space(space) {
    if (bounds.IsValid())
        Allocate(Extent(bounds.left, bounds.right), Extent(bounds.top, bounds.bottom));
}

BBitmap::BBitmap(color_space space, const KSRect<long>& frame)
    : _bounds(static_cast<float>(frame.left), static_cast<float>(frame.top), static_cast<float>(frame.right),
              static_cast<float>(frame.bottom)),
      _color_space(space) {
    Allocate(frame.PixelWidth(), frame.PixelHeight());
}

BBitmap::~BBitmap() = default;

void BBitmap::Allocate(long columns, long rows) {
    if (columns > kLongestBits / kPixelBytes || rows > kLongestBits / (columns * kPixelBytes))
        throw std::bad_alloc();
    _pixels = std::make_unique<std::uint32_t[]>(static_cast<std::size_t>(columns * rows));
    _bytes_per_row = static_cast<std::int32_t>(columns * kPixelBytes);
    _rows = static_cast<std::int32_t>(rows);
}
