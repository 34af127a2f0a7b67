// SPDX-License-Identifier: MIT
// Removal of isolated specks from images of one byte per pixel.
#include "bitmaptools/KSBitmapTools.h"
#include "bitmaptools/pixel_functions.h"

#include <algorithm>
#include <cstddef>
#include <vector>

using namespace ks_bitmaptools;

namespace {

// Columns that are worked on at once, so that their histograms stay in the cache.
constexpr std::int64_t kStrip = 1024;
constexpr std::int64_t kValues = 256;

// Counts the values of each column in a window of rows. The counts of one value in neighbouring columns lie
// side by side, so that their sum over a square takes a few vectors.
class ColumnHistograms {
public:
    // Makes room for `columns` columns.
    explicit ColumnHistograms(std::int64_t columns) {
        // An odd number of cache lines from value to value keeps these from competing for the same sets.
        constexpr std::int64_t kLine = 32;
        _pitch = ((columns + kLine - 1) / kLine | 1) * kLine;
        _counts.resize(static_cast<std::size_t>(kValues * _pitch + kReadBeyond));
    }

    void Clear() { std::fill(_counts.begin(), _counts.end(), std::uint16_t{0}); }

    // Counts a row of `columns` bytes in (`change` is 1) or out (-1).
    void Change(const std::uint8_t* row, std::int64_t columns, int change) {
        for (std::int64_t x = 0; x < columns; ++x) {
            std::uint16_t& count = _counts[static_cast<std::size_t>(row[x] * _pitch + x)];
            count = static_cast<std::uint16_t>(count + change);
        }
    }

    // The counts of `value` from column `x` on.
    const std::uint16_t* At(std::uint8_t value, std::int64_t x) const {
        return _counts.data() + value * _pitch + x;
    }

private:
    std::int64_t _pitch;
    std::vector<std::uint16_t> _counts;
};

class Remover {
public:
    Remover(std::uint8_t* image, std::int64_t width, std::int64_t height, int radius, int threshold)
        : _image(image),
          _width(width),
          _height(height),
          _radius(radius),
          _threshold(threshold),
          _lonely(static_cast<std::size_t>(width)) {}

    void Run() {
        const std::int64_t lonely = CountLonely();
        if (lonely == 0)
            return;
        const std::int64_t pixels = _width * _height;
        std::vector<std::uint8_t> copy;
        copy.reserve(static_cast<std::size_t>(pixels + kReadBeyond));
        copy.assign(_image, _image + pixels);
        copy.resize(static_cast<std::size_t>(pixels + kReadBeyond));
        _before = copy.data();
        // In cycles, roughly, per row of a square and per pixel of the image.
        if (lonely * (2 * _radius + 1) * 16 < pixels * 6 + lonely * 50)
            CleanByComparing();
        else
            CleanByHistograms();
    }

private:
    // The columns around `x` that the square reaches.
    struct Span {
        std::int64_t first, count;
    };
    Span Around(std::int64_t x) const {
        const std::int64_t first = std::max<std::int64_t>(x - _radius, 0);
        return {first, std::min(x + _radius, _width - 1) - first + 1};
    }

    const std::uint8_t* Row(std::int64_t y) const { return _before + y * _width; }

    // Marks the lonely pixels first <= x < last of row `y` in _lonely; says whether there are any.
    bool Mark(std::int64_t y, std::int64_t first, std::int64_t last) {
        const std::int64_t above = y > 0 ? y - 1 : std::min<std::int64_t>(1, _height - 1);
        const std::int64_t below = y < _height - 1 ? y + 1 : above;
        const std::uint8_t* const rows[] = {Row(above), Row(y), Row(below)};
        return _functions.mark_lonely(rows, _width, first, last, _lonely.data());
    }

    std::int64_t CountLonely() {
        std::int64_t count = 0;
        for (std::int64_t y = 0; y < _height; ++y)
            if (Mark(y, 0, _width))
                count += std::count(_lonely.begin(), _lonely.end(), 255);
        return count;
    }

    // Replaces a speck by the value beside it that is the more frequent on its row.
    void Replace(std::int64_t x, std::int64_t y) {
        const std::uint8_t* row = Row(y);
        const std::uint8_t left = row[x > 0 ? x - 1 : x + 1], right = row[x < _width - 1 ? x + 1 : x - 1];
        const auto [first, count] = Around(x);
        const bool left_is_frequent = _functions.count_equal(row + first, count, left) >
                                      _functions.count_equal(row + first, count, right);
        _image[y * _width + x] = left_is_frequent ? left : right;
    }

    // Replaces the marked pixels of a row of which `is_speck(x)` is true.
    template <class Predicate>
    void ReplaceMarked(std::int64_t y, std::int64_t first, std::int64_t last, Predicate is_speck) {
        for (std::int64_t x = first; x < last; ++x)
            if (_lonely[static_cast<std::size_t>(x)] && is_speck(x))
                Replace(x, y);
    }

    // For few lonely pixels: compares each square byte by byte.
    void CleanByComparing() {
        for (std::int64_t y = 0; y < _height; ++y)
            if (Mark(y, 0, _width))
                ReplaceMarked(y, 0, _width, [&](std::int64_t x) { return IsSpeck(x, y); });
    }

    bool IsSpeck(std::int64_t x, std::int64_t y) const {
        const std::uint8_t value = Row(y)[x];
        const auto [first, columns] = Around(x);
        std::int64_t count = 0;
        for (std::int64_t v = std::max<std::int64_t>(y - _radius, 0); v <= std::min(y + _radius, _height - 1);
             ++v)
            if (v != y) {
                count += _functions.count_equal(Row(v) + first, columns, value) - (Row(v)[x] == value);
                if (count >= _threshold)
                    return false;
            }
        return true;
    }

    // For many lonely pixels: keeps histograms of the columns, over the rows that a square reaches. The way
    // of Perreault and Hebert, "Median Filtering in Constant Time" (2007), without their second level.
    void CleanByHistograms() {
        ColumnHistograms histograms(std::min(kStrip + 2 * _radius, _width));
        for (std::int64_t first = 0; first < _width; first += kStrip) {
            const std::int64_t last = std::min(first + kStrip, _width);
            const std::int64_t reached = Around(first).first;
            const std::int64_t columns = std::min(last + _radius, _width) - reached;
            histograms.Clear();
            for (std::int64_t v = 0; v < std::min(_radius, _height); ++v)
                histograms.Change(Row(v) + reached, columns, 1);
            for (std::int64_t y = 0; y < _height; ++y) {
                if (y + _radius < _height)
                    histograms.Change(Row(y + _radius) + reached, columns, 1);
                if (y - _radius > 0)
                    histograms.Change(Row(y - _radius - 1) + reached, columns, -1);
                if (Mark(y, first, last))
                    ReplaceMarked(y, first, last,
                                  [&](std::int64_t x) { return IsSpeck(x, y, histograms, reached); });
            }
        }
    }

    // `reached` is the column that `histograms` begin with.
    bool IsSpeck(std::int64_t x, std::int64_t y, const ColumnHistograms& histograms,
                 std::int64_t reached) const {
        const std::uint8_t value = Row(y)[x];
        const auto [first, columns] = Around(x);
        // All of the square but its centre column, then without its centre row.
        const std::int64_t count =
            std::int64_t{_functions.sum_counts(histograms.At(value, first - reached), columns)} -
            *histograms.At(value, x - reached);
        if (count < _threshold || count >= _threshold + columns)
            return count < _threshold;
        return count - (_functions.count_equal(Row(y) + first, columns, value) - 1) < _threshold;
    }

    std::uint8_t* _image;
    std::int64_t _width, _height, _radius, _threshold;
    std::vector<std::uint8_t> _lonely;     // a mark for each column
    const std::uint8_t* _before = _image;  // the image as it was
    const PixelFunctions& _functions = ActivePixelFunctions();
};

}  // namespace

void KSBitmapTools::NoiseRemover(std::uint8_t* image, std::uint32_t width, std::uint32_t height,
                                 std::uint8_t radius, std::uint8_t threshold) {
    // A row of one pixel has nothing to replace it by, and every count reaches a threshold of 0.
    if (width >= 2 && height >= 1 && threshold >= 1)
        Remover(image, width, height, radius, threshold).Run();
}
