// SPDX-License-Identifier: MIT
// Removal of isolated specks from images of one byte per pixel.
#include "bitmaptools/KSBitmapTools.h"
#include "bitmaptools/levels.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

using namespace ks_bitmaptools;

namespace {

// Columns that are worked on at once, so that their histograms stay in the cache.
constexpr std::int64_t kStrip = 1024;
constexpr std::int64_t kValues = 256;

// Counts the values of each column in a window of rows. The counts of one value in neighbouring columns lie
// side by side, so that their sum over a square takes a few vectors. `Count` holds the number of rows.
template <class Count> class ColumnHistograms {
public:
    // Makes room for `columns` columns.
    explicit ColumnHistograms(std::int64_t columns) {
        // An odd number of cache lines from value to value keeps these from competing for the same sets.
        constexpr std::int64_t kLine = 64 / sizeof(Count);
        _pitch = ((columns + kLine - 1) / kLine | 1) * kLine;
        _counts.resize(static_cast<std::size_t>(kValues * _pitch + kReadBeyond));
    }

    void Clear() { std::fill(_counts.begin(), _counts.end(), Count{0}); }

    // Counts a row of `columns` bytes in (`change` is 1) or out (-1).
    void Change(const std::uint8_t* row, std::int64_t columns, int change) {
        for (std::int64_t x = 0; x < columns; ++x) {
            Count& count = _counts[static_cast<std::size_t>(row[x] * _pitch + x)];
            count = static_cast<Count>(count + change);
        }
    }

    // The counts of `value` from column `x` on.
    const Count* At(std::uint8_t value, std::int64_t x) const { return _counts.data() + value * _pitch + x; }

private:
    std::int64_t _pitch;
    std::vector<Count> _counts;
};

// Counts the values of a stretch of a row that moves to the right.
class RowHistogram {
public:
    // An empty stretch before column `first`.
    RowHistogram(const std::uint8_t* row, std::int64_t first) : _row(row), _first(first), _last(first) {}

    // Moves to first <= x < last, neither of which is less than it was.
    void MoveTo(std::int64_t first, std::int64_t last) {
        for (; _last < last; ++_last)
            ++_counts[_row[_last]];
        for (; _first < first; ++_first)
            --_counts[_row[_first]];
    }

    std::uint16_t operator[](std::uint8_t value) const { return _counts[value]; }

private:
    const std::uint8_t* _row;
    std::int64_t _first, _last;
    std::uint16_t _counts[kValues] = {};
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
        if (const auto places = FewLonely())
            CleanByComparing(*places);
        else if (2 * _radius + 1 <= 255)
            CleanByHistograms<std::uint8_t>();
        else
            CleanByHistograms<std::uint16_t>();
    }

private:
    // Returns the places of the lonely pixels, or nothing if there are so many that histograms take less
    // time.
    std::optional<std::vector<std::int64_t>> FewLonely() {
        // In cycles: what comparing a square takes per row, what looking it up in histograms takes, and what
        // making these takes per pixel of the image. kLeast keeps the list below half the image's size.
        constexpr std::int64_t kPerRow = 16, kLookUp = 50, kHistograms = 20, kLeast = 16 * kHistograms;
        const std::int64_t most =
            _width * _height * kHistograms / std::max((2 * _radius + 1) * kPerRow - kLookUp, kLeast);
        std::vector<std::int64_t> places;
        for (std::int64_t y = 0; y < _height; ++y) {
            const std::int64_t count = FindLonely(y, 0, _width);
            if (static_cast<std::int64_t>(places.size()) + count > most)
                return std::nullopt;
            for (std::int64_t k = 0; k < count; ++k)
                places.push_back(y * _width + _lonely[static_cast<std::size_t>(k)]);
        }
        return places;
    }

    // The columns around `x` that the square reaches.
    struct Span {
        std::int64_t first, count;
    };
    Span Around(std::int64_t x) const {
        const std::int64_t first = std::max<std::int64_t>(x - _radius, 0);
        return {first, std::min(x + _radius, _width - 1) - first + 1};
    }

    const std::uint8_t* Row(std::int64_t y) const { return _before + y * _width; }

    // Finds the lonely pixels first <= x < last of row `y`, puts them into _lonely and returns their number.
    std::int64_t FindLonely(std::int64_t y, std::int64_t first, std::int64_t last) {
        const std::int64_t above = y > 0 ? y - 1 : std::min<std::int64_t>(1, _height - 1);
        const std::int64_t below = y < _height - 1 ? y + 1 : above;
        const std::uint8_t* const rows[] = {Row(above), Row(y), Row(below)};
        return _functions.find_lonely(rows, _width, first, last, _lonely.data());
    }

    // Returns how many pixels of a part of the image are equal to `value`.
    std::int64_t CountEqual(Span columns, std::int64_t y, std::int64_t rows, std::uint8_t value) const {
        const std::uint8_t* const start = Row(y) + columns.first;
        if (_width * _height - (start - _before) >= (rows - 1) * _width + columns.count + kReadBeyond)
            return _functions.count_equal(start, _width, rows, columns.count, value);
        std::int64_t count = 0;
        for (std::int64_t v = 0; v < rows; ++v)
            count += std::count(start + v * _width, start + v * _width + columns.count, value);
        return count;
    }

    // Returns the value that replaces a speck: the one beside it with the higher `frequency(value)` on its
    // row.
    template <class Frequency>
    std::uint8_t Replacement(std::int64_t x, std::int64_t y, Frequency frequency) const {
        const std::uint8_t* row = Row(y);
        const std::uint8_t left = row[x > 0 ? x - 1 : x + 1], right = row[x < _width - 1 ? x + 1 : x - 1];
        return frequency(left) > frequency(right) ? left : right;
    }

    // For few lonely pixels: compares each square byte by byte. The image changes at the end.
    void CleanByComparing(const std::vector<std::int64_t>& places) {
        std::vector<std::uint8_t> values(places.size());
        for (std::size_t k = 0; k < places.size(); ++k) {
            const std::int64_t x = places[k] % _width, y = places[k] / _width;
            const auto frequency = [&](std::uint8_t value) { return CountEqual(Around(x), y, 1, value); };
            values[k] = IsSpeck(x, y) ? Replacement(x, y, frequency) : _before[places[k]];
        }
        for (std::size_t k = 0; k < places.size(); ++k)
            _image[places[k]] = values[k];
    }

    bool IsSpeck(std::int64_t x, std::int64_t y) const {
        const std::uint8_t value = Row(y)[x];
        const std::int64_t top = std::max<std::int64_t>(y - _radius, 0);
        const std::int64_t bottom = std::min(y + _radius, _height - 1);
        const auto count_beside = [&](std::int64_t first, std::int64_t rows) -> std::int64_t {
            if (rows == 0)
                return 0;
            std::int64_t count = CountEqual(Around(x), first, rows, value);
            for (std::int64_t v = first; v < first + rows; ++v)
                count -= Row(v)[x] == value;
            return count;
        };
        return count_beside(top, y - top) + count_beside(y + 1, bottom - y) < _threshold;
    }

    // For many lonely pixels: keeps histograms of the columns over the rows that a square reaches. This is
    // the method of Perreault and Hebert, "Median Filtering in Constant Time" (2007), without their second
    // level.
    template <class Count> void CleanByHistograms() {
        const std::vector<std::uint8_t> copy(_image, _image + _width * _height);
        ColumnHistograms<Count> histograms(std::min(kStrip + 2 * _radius, _width));
        _before = copy.data();
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
                RowHistogram row(Row(y), reached);
                const std::int64_t count = FindLonely(y, first, last);
                for (std::int64_t k = 0; k < count; ++k) {
                    const std::int64_t x = _lonely[static_cast<std::size_t>(k)];
                    const Span around = Around(x);
                    row.MoveTo(around.first, around.first + around.count);
                    // All of the square, without its centre column, without its centre row.
                    const std::uint8_t value = Row(y)[x];
                    const std::int64_t equal =
                        Sum(histograms.At(value, around.first - reached), around.count) -
                        *histograms.At(value, x - reached) - (row[value] - 1);
                    if (equal < _threshold)
                        _image[y * _width + x] =
                            Replacement(x, y, [&](std::uint8_t side) { return row[side]; });
                }
            }
        }
    }

    std::int64_t Sum(const std::uint8_t* counts, std::int64_t count) const {
        return _functions.sum_bytes(counts, count);
    }
    std::int64_t Sum(const std::uint16_t* counts, std::int64_t count) const {
        return _functions.sum_halves(counts, count);
    }

    std::uint8_t* _image;
    std::int64_t _width, _height, _radius, _threshold;
    std::vector<std::uint32_t> _lonely;    // found last
    const std::uint8_t* _before = _image;  // the image as it was
    const LevelFunctions& _functions = ActiveFunctions();
};

}  // namespace

void KSBitmapTools::NoiseRemover(std::uint8_t* image, std::uint32_t width, std::uint32_t height,
                                 std::uint8_t radius, std::uint8_t threshold) {
    // A row of one pixel has nothing to replace it by, and every count reaches a threshold of 0.
    if (width >= 2 && height >= 1 && threshold >= 1)
        Remover(image, width, height, radius, threshold).Run();
}
