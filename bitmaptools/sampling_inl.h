// SPDX-License-Identifier: MIT
// Sampling of source pixels at many positions at once; included once for each instruction set.
//
// Scaling picks the neighbours of a vector of positions from two vectors of each row. Where they may lie further
// apart, work is done in blocks of 64 destination pixels of one row: the neighbours are collected one by one
// (faster than the processors' gather instructions), then mixed a vector at a time. Rotated reads go through
// bands of 64 rows block by block, which keeps the part of the source that they touch in the cache.
#pragma once

#include "bitmaptools/pixel_functions.h"
#include "hdr/vectors.h"

#include <utility>

namespace ks_bitmaptools {
namespace {

using namespace ks_simd;

constexpr int kDoubleLanes = kVectorBytes / 8;
// Positions whose offsets are read one by one: 64 bytes take longer from the store to these loads.
using Offsets [[gnu::vector_size(kVectorBytes < 64 ? kVectorBytes : 32)]] = std::int32_t;
using HalfVector [[gnu::vector_size(kVectorBytes / 2)]] = std::int32_t;

constexpr std::int64_t kBlock = 64;
constexpr std::int64_t kBand = 64;

template <std::size_t... kLane>
KS_INLINE void SplitPairs(const std::uint32_t* pairs, Words& left, Words& right,
                          std::index_sequence<kLane...>) {
    const Words low = load<Words>(pairs), high = load<Words>(pairs + kLanes);
    left = __builtin_shufflevector(low, high, (2 * kLane)...);
    right = __builtin_shufflevector(low, high, (2 * kLane + 1)...);
}

// The indices first <= i < last.
struct Interval {
    std::int64_t first, last;
};

KS_INLINE std::int64_t DivideRoundingUp(std::int64_t a, std::int64_t b) {
    return a / b + (a % b > 0);
}

// Returns the part of `interval` where low <= start + i * step < high.
Interval Clip(Interval interval, std::int64_t start, std::int64_t step, std::int64_t low, std::int64_t high) {
    if (step < 0)
        return Clip(interval, -start, -step, 1 - high, 1 - low);
    if (step == 0)
        return low <= start && start < high ? interval : Interval{interval.first, interval.first};
    const std::int64_t first = greatest<std::int64_t>(interval.first, DivideRoundingUp(low - start, step));
    const std::int64_t last = least<std::int64_t>(interval.last, DivideRoundingUp(high - start, step));
    return first < last ? Interval{first, last} : Interval{interval.first, interval.first};
}

// The neighbours of up to 64 positions and the fractions of these in 1/4096. Lanes that are not in use hold
// anything.
struct Block {
    alignas(64) std::uint32_t pairs[2][2 * kBlock] = {};  // left and right neighbour of each, in two rows
    alignas(64) std::uint32_t fx[kBlock] = {};
    alignas(64) std::uint32_t fy[kBlock] = {};
    std::uint32_t* top = pairs[0];
    std::uint32_t* bottom = pairs[1];
};

// Returns the positions start + k * step, modulo 2^32.
KS_INLINE Words PositionsFrom(std::int64_t start, std::int64_t step) {
    Words position;
    for (int k = 0; k < kLanes; ++k)
        position[k] = static_cast<std::uint32_t>(start + k * step);
    return position;
}

// Sets the fractions of the positions start + k * step.
KS_INLINE void FillFractions(std::uint32_t* fractions, std::int64_t start, std::int64_t step) {
    Words position = PositionsFrom(start, step);
    for (int k = 0; k < kBlock; k += kLanes) {
        store(fractions + k, position & 4095);
        position += static_cast<std::uint32_t>(step) * kLanes;
    }
}

// Divides n by w, rounding down, where n <= 255 w and w <= 2^24. The factor keeps the estimate from
// exceeding the quotient; it falls short by less than 1.
KS_INLINE Words Divide(const Words& n, const Words& w, const Floats& reciprocal) {
    const Floats estimate = __builtin_convertvector(n, Floats) * reciprocal;
    const Words q = reinterpret_cast<Words>(__builtin_convertvector(estimate, SignedWords));
    const SignedWords remainder = reinterpret_cast<SignedWords>(n - q * w);
    return q - reinterpret_cast<Words>(remainder >= reinterpret_cast<SignedWords>(w));
}

// Divides n by w, rounding down, where n <= 255 w and w is a sum of opaque weights: at most 2^24 and less
// than that by so little that dividing by 2^24 falls short by less than 1.
KS_INLINE Words DivideOpaque(const Words& n, const Words& w) {
    const Words q = n >> 24;
    const SignedWords remainder = reinterpret_cast<SignedWords>((n & 0xFFFFFF) + q * ((1 << 24) - w));
    return q - reinterpret_cast<Words>(remainder >= reinterpret_cast<SignedWords>(w));
}

// Returns the weights of neighbours with such shares, up to 2^24, and alphas.
KS_INLINE Words Weights(const Words& shares, const Words& alphas) {
    const Words v = shares * alphas;
    return (v + (v >> 8) + 1) >> 8;
}

// Returns the same for alpha 255.
KS_INLINE Words OpaqueWeights(const Words& shares) {
    return shares - ((shares + 65279) >> 16);
}

// Returns the bilinear samples of one vector of positions, as KSBitmapTools.h defines them. kOpaque promises
// that all neighbours have alpha 255, which leaves the weights close to the shares.
template <bool kOpaque>
KS_INLINE Words Sample(const Words (&neighbours)[4], const Words& fx, const Words& fy) {
    Words weights[4];
    weights[3] = fx * fy;
    weights[2] = (fy << 12) - weights[3];
    weights[1] = (fx << 12) - weights[3];
    weights[0] = (1 << 24) - (fx << 12) - weights[2];
    for (int k = 0; k < 4; ++k) {
        if constexpr (kOpaque)
            weights[k] = OpaqueWeights(weights[k]);
        else
            weights[k] = Weights(weights[k], neighbours[k] >> 24);
    }
    const Words sum = weights[0] + weights[1] + weights[2] + weights[3];
    const Words divisor = sum - reinterpret_cast<Words>(sum == 0);  // 1 in place of 0, where all is clear
    Floats reciprocal{};
    if constexpr (!kOpaque)
        reciprocal = (1 - 0x1p-21f) / __builtin_convertvector(reinterpret_cast<SignedWords>(divisor), Floats);
    Words result = (sum & 0xFF0000) << 8;
    for (int shift = 0; shift < 24; shift += 8) {
        Words n = ((neighbours[0] >> shift) & 255) * weights[0];
        for (int k = 1; k < 4; ++k)
            n += ((neighbours[k] >> shift) & 255) * weights[k];
        result |= (kOpaque ? DivideOpaque(n, sum) : Divide(n, divisor, reciprocal)) << shift;
    }
    return result;
}

template <bool kOpaque>
KS_INLINE void SampleBlock(const Block& block, std::uint32_t* destination, std::int64_t count) {
    for (std::int64_t k = 0; k < count; k += kLanes) {
        Words neighbours[4];
        SplitPairs(block.top + 2 * k, neighbours[0], neighbours[1], std::make_index_sequence<kLanes>());
        SplitPairs(block.bottom + 2 * k, neighbours[2], neighbours[3], std::make_index_sequence<kLanes>());
        const Words result =
            Sample<kOpaque>(neighbours, load<Words>(block.fx + k), load<Words>(block.fy + k));
        if (k + kLanes <= count)
            store(destination + k, result);
        else
            __builtin_memcpy(destination + k, &result, static_cast<std::size_t>(count - k) * 4);
    }
}

// Stores the samples of the first `count` positions of a block.
void StoreSamples(const Block& block, std::uint32_t* destination, std::int64_t count) {
    Words all = ~Words{};
    for (std::int64_t k = 0; k < 2 * count; k += kLanes)
        all &= load<Words>(block.top + k) & load<Words>(block.bottom + k);
    if (!any(~all & 0xFF000000))
        SampleBlock<true>(block, destination, count);
    else
        SampleBlock<false>(block, destination, count);
}

KS_INLINE std::uint32_t WordOrClear(const SourcePixels& source, std::int64_t x, std::int64_t y) {
    return x >= 0 && x < source.width && y >= 0 && y < source.height ? source.words[y * source.row_length + x]
                                                                     : 0;
}

// Collects the left and right neighbour of position k of a block from row `y`, with a test of each.
KS_INLINE void CollectTested(const SourcePixels& source, std::uint32_t* pairs, std::int64_t k, std::int64_t x,
                             std::int64_t y) {
    pairs[2 * k] = WordOrClear(source, x, y);
    pairs[2 * k + 1] = WordOrClear(source, x + 1, y);
}

KS_INLINE void CollectPair(const std::uint32_t* words, std::uint32_t* pairs, std::int64_t k) {
    __builtin_memcpy(pairs + 2 * k, words, 8);
}

// Copies the words of `from` that `indices` name. Eight at a time, for a loop of one would wait for its
// branch.
template <class Index>
KS_INLINE void CopyIndexed(std::uint32_t* to, const std::uint32_t* from, const Index* indices,
                           std::int64_t count) {
    std::int64_t k = 0;
    for (; k + 8 <= count; k += 8)
        for (int n = 0; n < 8; ++n)
            to[k + n] = from[indices[k + n]];
    for (; k < count; ++k)
        to[k] = from[indices[k]];
}

// Returns the words of two vectors, one behind the other, that `indices` name.
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

// The positions along a row whose source columns are picked a vector at a time. Those of one vector lie close
// together unless an image is made much smaller.
class PickedRow {
public:
    // Of `width` columns; `beyond` more of them are picked with each position.
    PickedRow(std::int64_t width, std::int64_t step, std::int64_t beyond)
        : _last_base(width - 2 * kLanes),
          _steps(PositionsFrom(0, step)),
          _can_pick(kPicks && _last_base >= 0 &&
                    (((kLanes - 1) * step + kOne - 1) >> kFractionBits) + beyond < 2 * kLanes) {}

    bool CanPick() const { return _can_pick; }

    // Two vectors of columns from `base` on hold those of the positions, which are at `columns` in them.
    struct Place {
        std::int64_t base;
        Words columns;
        Words fractions;
    };
    KS_INLINE Place At(std::int64_t position) const {
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

// Scales a row; the position of its first pixel is 0.
void ScaleRow(const PickedRow& picked, const std::uint32_t* from, std::uint32_t* to, std::int64_t count,
              std::int64_t step) {
    std::int64_t k = 0;
    if (picked.CanPick())
        for (; k + kLanes <= count; k += kLanes) {
            const PickedRow::Place place = picked.At(k * step);
            store(to + k, Pick(load<Words>(from + place.base), load<Words>(from + place.base + kLanes),
                               place.columns));
        }
    for (; k + 8 <= count; k += 8)  // a loop of one would wait for its branch
        for (int n = 0; n < 8; ++n)
            to[k + n] = from[((k + n) * step) >> kFractionBits];
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
            ScaleRow(picked, from, to, destination.width, x.column);
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
                         std::int64_t step, std::int64_t y, Interval interval) {
    FillFractions(block.fy, y, 0);
    const std::int64_t row = y >> kFractionBits;
    for (std::int64_t first = interval.first; first < interval.last; first += kBlock) {
        const std::int64_t count = least(kBlock, interval.last - first), from = start + first * step;
        FillFractions(block.fx, from, step);
        CollectRow(source, block.top, count, from, step, row);
        CollectRow(source, block.bottom, count, from, step, row + 1);
        StoreSamples(block, to + first, count);
    }
}

// Scales the whole vectors of an interval of a row whose neighbours all lie in the source; returns its end.
std::int64_t ScaleBilinearPicked(const SourcePixels& source, const PickedRow& picked, std::uint32_t* to,
                                 std::int64_t start, std::int64_t step, std::int64_t y, Interval interval) {
    const std::uint32_t* const top = source.words + (y >> kFractionBits) * source.row_length;
    const std::uint32_t* const bottom = top + source.row_length;
    const Words fy = Words{} + static_cast<std::uint32_t>(y & (kOne - 1));
    std::int64_t k = interval.first;
    for (; k + kLanes <= interval.last; k += kLanes) {
        const PickedRow::Place place = picked.At(start + k * step);
        const Words left = place.columns, right = left + 1;
        const Words top_low = load<Words>(top + place.base);
        const Words top_high = load<Words>(top + place.base + kLanes);
        const Words bottom_low = load<Words>(bottom + place.base);
        const Words bottom_high = load<Words>(bottom + place.base + kLanes);
        const Words neighbours[] = {Pick(top_low, top_high, left), Pick(top_low, top_high, right),
                                    Pick(bottom_low, bottom_high, left),
                                    Pick(bottom_low, bottom_high, right)};
        const Words common = neighbours[0] & neighbours[1] & neighbours[2] & neighbours[3];
        store(to + k, any(~common & 0xFF000000) ? Sample<false>(neighbours, place.fractions, fy)
                                                : Sample<true>(neighbours, place.fractions, fy));
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
        std::uint32_t* to = destination.words + j * destination.row_length;
        std::int64_t done = 0;
        if (picked.CanPick() && row >= 0 && row + 1 < source.height) {
            ScaleBilinearTested(source, block, to, x.start, x.column, position, {0, inner.first});
            done = ScaleBilinearPicked(source, picked, to, x.start, x.column, position, inner);
        }
        ScaleBilinearTested(source, block, to, x.start, x.column, position, {done, destination.width});
    }
}

// Walks the destination in blocks of a row, band by band, and calls `sample(i, j, count, inner)` for each
// stretch of at most 64 pixels whose positions lie in the source, or less than `margin` before its first or
// behind its last pixel. `inner` is the part of the stretch, counted from its start, where the position and
// the next pixel of both axes lie in the source.
template <class Function>
KS_INLINE void WalkRotated(const SourcePixels& source, const DestinationPixels& destination, const Axis& x,
                           const Axis& y, std::int64_t margin, Function sample) {
    for (std::int64_t band = 0; band < destination.height; band += kBand) {
        const std::int64_t rows = least<std::int64_t>(kBand, destination.height - band);
        Interval outer[kBand], inner[kBand], all = {destination.width, 0};
        for (std::int64_t j = 0; j < rows; ++j) {
            const std::int64_t start_x = x.start + (band + j) * x.row, start_y = y.start + (band + j) * y.row;
            outer[j] = Clip({0, destination.width}, start_x, x.column, -margin, source.width * kOne);
            outer[j] = Clip(outer[j], start_y, y.column, -margin, source.height * kOne);
            inner[j] = Clip(outer[j], start_x, x.column, 0, (source.width - 1) * kOne);
            inner[j] = Clip(inner[j], start_y, y.column, 0, (source.height - 1) * kOne);
            if (outer[j].first < outer[j].last)
                all = {least<std::int64_t>(all.first, outer[j].first),
                       greatest<std::int64_t>(all.last, outer[j].last)};
        }
        for (std::int64_t tile = all.first; tile < all.last; tile += kBlock)
            for (std::int64_t j = 0; j < rows; ++j) {
                const std::int64_t first = greatest<std::int64_t>(tile, outer[j].first);
                const std::int64_t count = least<std::int64_t>(tile + kBlock, outer[j].last) - first;
                if (count <= 0)
                    continue;
                const std::int64_t inner_first =
                    greatest<std::int64_t>(0, least<std::int64_t>(inner[j].first - first, count));
                const std::int64_t inner_last =
                    greatest<std::int64_t>(inner_first, least<std::int64_t>(inner[j].last - first, count));
                sample(first, band + j, count, Interval{inner_first, inner_last});
            }
    }
}

// Source positions of up to 64 pixels.
template <class Int> struct Positions {
    alignas(64) Int x[kBlock];  // in 1/4096 of a pixel, or whole
    alignas(64) Int y[kBlock];
    alignas(64) Int offset[kBlock];    // of the source word that holds the position, if there is one
    alignas(64) Int accepted[kBlock];  // by transforms: 0 for pixels without position
};

// Sets the offsets and fractions of a vector of positions.
template <class Int, class Vector>
KS_INLINE void Locate(const SourcePixels& source, Positions<Int>& positions, Block& block, std::int64_t k,
                      const Vector& x, const Vector& y) {
    const Vector offset = (y >> kFractionBits) * static_cast<Int>(source.row_length) + (x >> kFractionBits);
    store(positions.offset + k, offset);
    if constexpr (sizeof(Int) == 4) {
        store(block.fx + k, x & static_cast<Int>(kOne - 1));
        store(block.fy + k, y & static_cast<Int>(kOne - 1));
    } else {
        store(block.fx + k, __builtin_convertvector(x & (kOne - 1), HalfVector));
        store(block.fy + k, __builtin_convertvector(y & (kOne - 1), HalfVector));
    }
}

// Locates `count` positions from (x, y) on, a column step apart.
template <class Int, class Vector>
KS_INLINE void LocateLine(const SourcePixels& source, Positions<Int>& positions, Block& block,
                          const Axis& axis_x, const Axis& axis_y, std::int64_t x, std::int64_t y,
                          std::int64_t count) {
    constexpr int kStep = sizeof(Vector) / sizeof(Int);
    Vector positions_x, positions_y;
    for (int k = 0; k < kStep; ++k) {
        positions_x[k] = static_cast<Int>(x + k * axis_x.column);
        positions_y[k] = static_cast<Int>(y + k * axis_y.column);
    }
    for (std::int64_t k = 0; k < count; k += kStep) {
        Locate<Int, Vector>(source, positions, block, k, positions_x, positions_y);
        positions_x += static_cast<Int>(kStep * axis_x.column);
        positions_y += static_cast<Int>(kStep * axis_y.column);
    }
}

// Collects the neighbours of the located positions first <= k < last, all of which are in the source.
template <class Int>
KS_INLINE void CollectInner(const SourcePixels& source, const Positions<Int>& positions, Block& block,
                            Interval interval) {
    if (interval.first >= interval.last)
        return;
    const std::uint32_t* const words = source.words;
    const std::uint32_t* const words_below = words + source.row_length;
    std::uint32_t *const top = block.top, *const bottom = block.bottom;
    for (std::int64_t k = interval.first; k < interval.last; ++k) {
        CollectPair(words + positions.offset[k], top, k);
        CollectPair(words_below + positions.offset[k], bottom, k);
    }
}

template <class Int, class Vector>
void RotatePlain(const SourcePixels& source, const DestinationPixels& destination, const Axis& x,
                 const Axis& y) {
    Block block;
    Positions<Int> positions;
    WalkRotated(
        source, destination, x, y, 0, [&](std::int64_t i, std::int64_t j, std::int64_t count, Interval) {
            std::uint32_t* to = destination.words + j * destination.row_length + i;
            LocateLine<Int, Vector>(source, positions, block, x, y, x.start + i * x.column + j * x.row,
                                    y.start + i * y.column + j * y.row, count);
            CopyIndexed(to, source.words, positions.offset, count);
        });
}

template <class Int, class Vector>
void RotateBilinear(const SourcePixels& source, const DestinationPixels& destination, const Axis& x,
                    const Axis& y) {
    Block block;
    Positions<Int> positions;
    WalkRotated(source, destination, x, y, kOne,
                [&](std::int64_t i, std::int64_t j, std::int64_t count, Interval inner) {
                    const std::int64_t start_x = x.start + i * x.column + j * x.row;
                    const std::int64_t start_y = y.start + i * y.column + j * y.row;
                    LocateLine<Int, Vector>(source, positions, block, x, y, start_x, start_y, count);
                    const auto tested = [&](std::int64_t k) {
                        const std::int64_t ix = (start_x + k * x.column) >> kFractionBits;
                        const std::int64_t iy = (start_y + k * y.column) >> kFractionBits;
                        CollectTested(source, block.top, k, ix, iy);
                        CollectTested(source, block.bottom, k, ix, iy + 1);
                    };
                    for (std::int64_t k = 0; k < inner.first; ++k)
                        tested(k);
                    CollectInner(source, positions, block, inner);
                    for (std::int64_t k = inner.last; k < count; ++k)
                        tested(k);
                    StoreSamples(block, destination.words + j * destination.row_length + i, count);
                });
}

KS_INLINE Doubles SquareRoot(const Doubles& d) {
    double items[kDoubleLanes];
    store(items, d);
    for (double& item : items)
        item = __builtin_sqrt(item);
    return load<Doubles>(items);
}

// The source fractions of a vector of destination pixels; `accepted` is -1 in the lanes whose fractions lie
// in the accepted range, and the others' are 0.
struct Fractions {
    Doubles t, v;
    Longs accepted;
};

// Solves for the fractions of the pixels `x` of row `y`. The sums keep their written order, which decides
// their last bits.
KS_INLINE Fractions Solve(const InverseMap& map, const Doubles& x, double y) {
    const Doubles b =
        map.ay * x - map.ax * y + map.ax * map.y3 - map.x3 * map.ay + map.cx * map.by - map.cy * map.bx;
    const Doubles c = map.cy * x - map.cx * y + map.cx * map.y3 - map.x3 * map.cy;
    const Doubles d = b * b - 4 * map.curvature * c;
    const Longs real = d >= 0;
    const Doubles root = SquareRoot(reinterpret_cast<Doubles>(reinterpret_cast<Longs>(d) & real));
    Doubles t = (root - b) / (2 * map.curvature);
    Doubles v = (x - map.bx * t - map.x3) / (map.ax * t + map.cx);  // accepted only where it is finite
    const Longs accepted = real & (t >= map.least) & (t <= map.most) & (v >= map.least) & (v <= map.most);
    t = reinterpret_cast<Doubles>(reinterpret_cast<Longs>(t) & accepted);
    v = reinterpret_cast<Doubles>(reinterpret_cast<Longs>(v) & accepted);
    return {t, v, accepted};
}

// Returns the smaller of each pair of lanes.
template <class Vector, class Int> KS_INLINE Vector Capped(const Vector& items, Int most) {
    const Vector above = items > most;
    return (items & ~above) | (most & above);
}

// Calls `use(k, x, y, accepted)` for each vector of `count` pixels from (i, j) on, with its source positions
// in 1 / `unit` of a pixel.
template <class Vector, class Function>
KS_INLINE void SolveLine(const SourcePixels& source, const InverseMap& map, double unit, std::int64_t i,
                         std::int64_t j, std::int64_t count, Function use) {
    const double width = static_cast<double>(source.width), height = static_cast<double>(source.height);
    const double y = map.top + static_cast<double>(j);
    Doubles x;
    for (int k = 0; k < kDoubleLanes; ++k)
        x[k] = map.left + static_cast<double>(i + k);
    for (std::int64_t k = 0; k < count; k += kDoubleLanes, x += static_cast<double>(kDoubleLanes)) {
        const Fractions found = Solve(map, x, y);
        use(k, __builtin_convertvector(found.t * width * unit, Vector),
            __builtin_convertvector((1 - found.v) * height * unit, Vector),
            __builtin_convertvector(found.accepted, Vector));
    }
}

// Walks the destination in blocks of a row, band by band, and calls `transform(i, j, count)` for each.
template <class Function>
KS_INLINE void WalkBlocks(const DestinationPixels& destination, Function transform) {
    for (std::int64_t band = 0; band < destination.height; band += kBand)
        for (std::int64_t i = 0; i < destination.width; i += kBlock)
            for (std::int64_t j = band; j < least<std::int64_t>(band + kBand, destination.height); ++j)
                transform(i, j, least<std::int64_t>(kBlock, destination.width - i));
}

template <class Int, class Vector>
void TransformPlain(const SourcePixels& source, const DestinationPixels& destination, const InverseMap& map) {
    Positions<Int> positions;
    WalkBlocks(destination, [&](std::int64_t i, std::int64_t j, std::int64_t count) {
        Vector all = ~Vector{};
        SolveLine<Vector>(source, map, 1, i, j, count,
                          [&](std::int64_t k, Vector x, Vector y, const Vector& accepted) {
                              // The far sides belong to the last column and row.
                              x = Capped(x, static_cast<Int>(source.width - 1));
                              y = Capped(y, static_cast<Int>(source.height - 1));
                              store(positions.offset + k, y * static_cast<Int>(source.row_length) + x);
                              store(positions.accepted + k, accepted);
                              all &= accepted;
                          });
        std::uint32_t* to = destination.words + j * destination.row_length + i;
        if (!any(~all)) {
            CopyIndexed(to, source.words, positions.offset, count);
        } else {
            for (std::int64_t k = 0; k < count; ++k)
                if (positions.accepted[k])
                    to[k] = source.words[positions.offset[k]];
        }
    });
}

// Collects the neighbours of the accepted ones among the first `count` positions, with a test of each;
// returns which of them have any, one bit each.
template <class Int>
KS_INLINE std::uint64_t CollectAccepted(const SourcePixels& source, const Positions<Int>& positions,
                                        Block& block, std::int64_t count) {
    std::uint64_t found = 0;
    for (std::int64_t k = 0; k < count; ++k) {
        const std::int64_t ix = positions.x[k] >> kFractionBits, iy = positions.y[k] >> kFractionBits;
        if (!positions.accepted[k] || ix < -1 || ix >= source.width || iy < -1 || iy >= source.height)
            continue;
        found |= std::uint64_t{1} << k;
        CollectTested(source, block.top, k, ix, iy);
        CollectTested(source, block.bottom, k, ix, iy + 1);
    }
    return found;
}

template <class Int, class Vector>
void TransformBilinear(const SourcePixels& source, const DestinationPixels& destination,
                       const InverseMap& map) {
    Block block;
    Positions<Int> positions;
    const auto last_x = static_cast<Int>((source.width - 1) * kOne),
               last_y = static_cast<Int>((source.height - 1) * kOne);
    WalkBlocks(destination, [&](std::int64_t i, std::int64_t j, std::int64_t count) {
        Vector inner = ~Vector{};
        SolveLine<Vector>(source, map, kOne, i, j, count,
                          [&](std::int64_t k, Vector x, Vector y, const Vector& accepted) {
                              x -= 2047;
                              y -= 2047;
                              Locate<Int, Vector>(source, positions, block, k, x, y);
                              store(positions.x + k, x);
                              store(positions.y + k, y);
                              store(positions.accepted + k, accepted);
                              inner &= accepted & (x >= 0) & (x < last_x) & (y >= 0) & (y < last_y);
                          });
        std::uint32_t* to = destination.words + j * destination.row_length + i;
        if (!any(~inner)) {
            CollectInner(source, positions, block, {0, count});
            StoreSamples(block, to, count);
        } else if (const std::uint64_t found = CollectAccepted(source, positions, block, count)) {
            std::uint32_t samples[kBlock];
            StoreSamples(block, samples, count);
            for (std::uint64_t left = found; left != 0; left &= left - 1)
                to[__builtin_ctzll(left)] = samples[__builtin_ctzll(left)];
        }
    });
}

// Says whether all positions and offsets fit 32 bits: transforms look for them up to a tenth of the source's
// size beyond its sides.
bool IsSmall(const SourcePixels& source) {
    constexpr std::int64_t kMost = 1 << 18, kEnd = std::int64_t{1} << 31;
    static_assert((kMost * 11 / 10 + 1) * kOne <= kEnd);
    return source.width < kMost && source.height < kMost && source.row_length >= 0 &&
           source.row_length < kEnd / (source.height * 11 / 10 + 2);
}

void RotatePlainAny(const SourcePixels& source, const DestinationPixels& destination, const Axis& x,
                    const Axis& y) {
    (IsSmall(source) ? RotatePlain<std::int32_t, Offsets>
                     : RotatePlain<std::int64_t, Longs>)(source, destination, x, y);
}

void RotateBilinearAny(const SourcePixels& source, const DestinationPixels& destination, const Axis& x,
                       const Axis& y) {
    (IsSmall(source) ? RotateBilinear<std::int32_t, Offsets>
                     : RotateBilinear<std::int64_t, Longs>)(source, destination, x, y);
}

void TransformPlainAny(const SourcePixels& source, const DestinationPixels& destination,
                       const InverseMap& map) {
    (IsSmall(source) ? TransformPlain<std::int32_t, HalfVector>
                     : TransformPlain<std::int64_t, Longs>)(source, destination, map);
}

void TransformBilinearAny(const SourcePixels& source, const DestinationPixels& destination,
                          const InverseMap& map) {
    (IsSmall(source) ? TransformBilinear<std::int32_t, HalfVector>
                     : TransformBilinear<std::int64_t, Longs>)(source, destination, map);
}

}  // namespace
}  // namespace ks_bitmaptools
