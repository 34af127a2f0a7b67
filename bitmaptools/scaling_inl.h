// SPDX-License-Identifier: MIT
// Scaling; included once for each level.
//
// The neighbours of a vector of positions are picked from two vectors of each row, unless they lie too far
// apart.
#pragma once

#include "bitmaptools/sampling_inl.h"

namespace ks_bitmaptools {
namespace {

// Returns the words at `indices` in two vectors, one behind the other.
KS_INLINE Words Pick(const Words& low, const Words& high, const Words& indices) {
#if defined(__AVX512BW__)
    return reinterpret_cast<Words>(_mm512_permutex2var_epi32(
        reinterpret_cast<__m512i>(low), reinterpret_cast<__m512i>(indices), reinterpret_cast<__m512i>(high)));
#elif defined(__AVX2__)
    const auto permuted = [&](const Words& from) {
        return reinterpret_cast<Words>(
            _mm256_permutevar8x32_epi32(reinterpret_cast<__m256i>(from), reinterpret_cast<__m256i>(indices)));
    };
    return indices < kLanes ? permuted(low) : permuted(high);
#else
    static_cast<void>(high);
    return low ^ indices;  // never called
#endif
}

// Whether Pick is faster than to load the words one by one.
#if defined(__AVX2__)
constexpr bool kPicks = true;
#else
constexpr bool kPicks = false;
#endif

// The positions along a row whose source columns are picked a vector at a time. The columns of one vector lie
// close together unless an image is made much smaller.
class PickedRow {
public:
    // For a source of `width` columns; with the column of each position, `beyond` more are picked.
    PickedRow(std::int64_t width, std::int64_t step, std::int64_t beyond)
        : _last_base(width - 2 * kLanes),
          _steps(PositionsFrom(0, step)),
          _can_pick(kPicks && _last_base >= 0 &&
                    (((kLanes - 1) * step + kOne - 1) >> kFractionBits) + beyond < 2 * kLanes) {}

    bool CanPick() const { return _can_pick; }

    // The two vectors of columns from `base` on, in which the positions have the indices `columns`.
    struct Window {
        std::int64_t base;
        Words columns;
        Words fractions;
    };
    KS_INLINE Window At(std::int64_t position) const {
        const std::int64_t column = position >> kFractionBits, base = least(column, _last_base);
        const Words positions = _steps + static_cast<std::uint32_t>(position & (kOne - 1));
        return {base, (positions >> kFractionBits) + static_cast<std::uint32_t>(column - base),
                positions & (kOne - 1)};
    }

private:
    std::int64_t _last_base;
    Words _steps;
    bool _can_pick;
};

// The rows of the source that the next row of the destination reads, to be fetched while this one is made. A
// processor does not expect them by itself where rows are left out.
struct NextRows {
    const SourcePixels& source;
    std::int64_t row, count;

    // For the row after that of position `position`, which reads `count` rows. There are none to fetch if
    // they are near or expected, or if the columns lie so far apart that the processor reads many lines at
    // once.
    static NextRows After(std::int64_t position, std::int64_t count, const SourcePixels& source,
                          const Axis& x, const Axis& y) {
        const std::int64_t row = (position + y.row) >> kFractionBits;
        const bool gains = y.row >= 2 * kOne && x.column <= 8 * kOne && row + count <= source.height;
        return {source, row, gains && IsFar(source) ? count : 0};
    }

    // Fetches the columns of positions from `start` until `end`.
    KS_INLINE void Fetch(std::int64_t start, std::int64_t end) const {
        constexpr std::int64_t kLine = 16;
        for (std::int64_t r = row; r < row + count; ++r)
            for (std::int64_t x = greatest<std::int64_t>(start >> kFractionBits, 0);
                 x < least(end >> kFractionBits, source.width); x += kLine)
                __builtin_prefetch(source.words + r * source.row_length + x);
    }
};

// Scales a row; the position of its first pixel is 0.
void ScaleRow(const PickedRow& picked, const std::uint32_t* from, std::uint32_t* to, std::int64_t count,
              std::int64_t step, const NextRows& next) {
    std::int64_t k = 0;
    if (picked.CanPick())
        for (; k + kLanes <= count; k += kLanes) {
            const PickedRow::Window window = picked.At(k * step);
            store(to + k, Pick(load<Words>(from + window.base), load<Words>(from + window.base + kLanes),
                               window.columns));
        }
    while (k + 8 <= count) {
        const std::int64_t end = least(k + kBlock, count);
        next.Fetch(k * step, end * step);
        for (; k + 8 <= end; k += 8)  // a loop of one would wait for its branch
            for (int n = 0; n < 8; ++n)
                to[k + n] = from[((k + n) * step) >> kFractionBits];
    }
    for (; k < count; ++k)
        to[k] = from[(k * step) >> kFractionBits];
}

void ScalePlain(const SourcePixels& source, const DestinationPixels& destination, const Axis& x,
                const Axis& y) {
    const PickedRow picked(source.width, x.column, 0);
    const std::size_t bytes = static_cast<std::size_t>(destination.width) * 4;
    std::int64_t last_row = -1;
    for (std::int64_t j = 0; j < destination.height; ++j) {
        const std::int64_t row = (y.start + j * y.row) >> kFractionBits;
        std::uint32_t* to = destination.words + j * destination.row_length;
        const std::uint32_t* from = source.words + row * source.row_length;
        if (row == last_row)
            __builtin_memmove(to, to - destination.row_length, bytes);  // rows may overlap if too short
        else if (x.column == kOne)
            __builtin_memcpy(to, from, bytes);
        else
            ScaleRow(picked, from, to, destination.width, x.column,
                     NextRows::After(y.start + j * y.row, 1, source, x, y));
        last_row = row;
    }
}

// Collects the neighbours in row `y` of `count` positions start + k * step.
void CollectRow(const SourcePixels& source, std::uint32_t* pairs, std::int64_t count, std::int64_t start,
                std::int64_t step, std::int64_t y) {
    if (y < 0 || y >= source.height) {
        __builtin_memset(pairs, 0, static_cast<std::size_t>(count) * 8);
        return;
    }
    const std::uint32_t* row = source.words + y * source.row_length;
    const Interval inner = Clip({0, count}, start, step, 0, (source.width - 1) * kOne);
    for (std::int64_t k = 0; k < inner.first; ++k)
        CollectTested(source, pairs, k, (start + k * step) >> kFractionBits, y);
    for (std::int64_t k = inner.first; k < inner.last; ++k)
        CollectPair(row + ((start + k * step) >> kFractionBits), pairs, k);
    for (std::int64_t k = inner.last; k < count; ++k)
        CollectTested(source, pairs, k, (start + k * step) >> kFractionBits, y);
}

// Scales a part of a row of the destination; position k is start + k * step.
void ScaleBilinearTested(const SourcePixels& source, Block& block, std::uint32_t* to, std::int64_t start,
                         std::int64_t step, std::int64_t y, Interval interval, const NextRows& next) {
    FillFractions(block.fy, y, 0);
    const std::int64_t row = y >> kFractionBits;
    for (std::int64_t first = interval.first; first < interval.last; first += kBlock) {
        const std::int64_t count = least(kBlock, interval.last - first), from = start + first * step;
        FillFractions(block.fx, from, step);
        next.Fetch(from, from + count * step);
        CollectRow(source, block.top, count, from, step, row);
        CollectRow(source, block.bottom, count, from, step, row + 1);
        StoreSamples(block, to + first, count);
    }
}

// Sets the left and right neighbours of a vector of positions start + k * step in a row.
KS_INLINE void LoadNeighbours(const std::uint32_t* row, std::int64_t start, std::int64_t step, Words& left,
                              Words& right) {
    std::int64_t columns[kLanes];
    for (int k = 0; k < kLanes; ++k)
        columns[k] = (start + k * step) >> kFractionBits;
    LoadNeighbours(row, columns, left, right);
}

// Scales the whole vectors of an interval of a row whose neighbours all lie in the source; returns its end.
template <bool kPick>
std::int64_t ScaleBilinearInner(const SourcePixels& source, const PickedRow& picked, std::uint32_t* to,
                                std::int64_t start, std::int64_t step, std::int64_t y, Interval interval,
                                const NextRows& next) {
    const std::uint32_t* const top = source.words + (y >> kFractionBits) * source.row_length;
    const std::uint32_t* const bottom = top + source.row_length;
    const Words fy = Words{} + static_cast<std::uint32_t>(y & (kOne - 1));
    std::int64_t k = interval.first;
    for (; k + kLanes <= interval.last; k += kLanes) {
        const std::int64_t position = start + k * step;
        const PickedRow::Window window = picked.At(position);
        const auto collect = [&](const std::uint32_t* row, Words& left, Words& right) {
            if constexpr (kPick) {
                const Words low = load<Words>(row + window.base),
                            high = load<Words>(row + window.base + kLanes);
                left = Pick(low, high, window.columns);
                right = Pick(low, high, window.columns + 1);
            } else {
                LoadNeighbours(row, position, step, left, right);
            }
        };
        if (!kPick)
            next.Fetch(position, position + kLanes * step);
        Words neighbours[4];
        collect(top, neighbours[0], neighbours[1]);
        collect(bottom, neighbours[2], neighbours[3]);
        const Words common = neighbours[0] & neighbours[1] & neighbours[2] & neighbours[3];
        store(to + k, any(~common & 0xFF000000) ? Sample<false>(neighbours, window.fractions, fy)
                                                : Sample<true>(neighbours, window.fractions, fy));
    }
    return k;
}

void ScaleBilinear(const SourcePixels& source, const DestinationPixels& destination, const Axis& x,
                   const Axis& y) {
    Block block;
    const PickedRow picked(source.width, x.column, 1);
    const Interval inner = Clip({0, destination.width}, x.start, x.column, 0, (source.width - 1) * kOne);
    for (std::int64_t j = 0; j < destination.height; ++j) {
        const std::int64_t position = y.start + j * y.row, row = position >> kFractionBits;
        const NextRows next = NextRows::After(position, 2, source, x, y);
        std::uint32_t* to = destination.words + j * destination.row_length;
        std::int64_t done = 0;
        if (row >= 0 && row + 1 < source.height) {
            ScaleBilinearTested(source, block, to, x.start, x.column, position, {0, inner.first}, next);
            done = (picked.CanPick() ? ScaleBilinearInner<true>
                                     : ScaleBilinearInner<false>)(source, picked, to, x.start, x.column,
                                                                  position, inner, next);
        }
        ScaleBilinearTested(source, block, to, x.start, x.column, position, {done, destination.width}, next);
    }
}

}  // namespace
}  // namespace ks_bitmaptools
