// SPDX-License-Identifier: MIT
// Sampling of source pixels at many positions at once; included once for each level.
//
// The work is done in blocks of 64 destination pixels of one row. Neighbours are collected one by one, which
// is faster than the processors' gather instructions, then mixed a vector at a time. Rotations and transforms
// go block by block through bands of 64 rows, so that the part of the source that they touch stays in the
// cache.
#pragma once

#include "bitmaptools/levels.h"
#include "simd/vectors.h"

#include <utility>

namespace ks_bitmaptools {
namespace {

using namespace ks_simd;

constexpr std::int64_t kBlock = 64;
constexpr std::int64_t kBand = 64;

using HalfVector [[gnu::vector_size(kVectorBytes / 2)]] = std::int32_t;

template <std::size_t... kLane>
KS_INLINE void SplitPairs(const Words& low, const Words& high, Words& left, Words& right,
                          std::index_sequence<kLane...>) {
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

// The neighbours of up to 64 positions, and the fractions of the positions in 1/4096. Unused lanes hold
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

// Divides n by w, rounding down, where n <= 255 w and w is a sum of opaque weights: it is at most 2^24, and
// so close to it that dividing by 2^24 instead falls short by less than 1.
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
// that all neighbours have alpha 255, so that the weights are close to the shares.
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
        const auto split = [&](const std::uint32_t* pairs, Words& left, Words& right) {
            SplitPairs(load<Words>(pairs), load<Words>(pairs + kLanes), left, right,
                       std::make_index_sequence<kLanes>());
        };
        split(block.top + 2 * k, neighbours[0], neighbours[1]);
        split(block.bottom + 2 * k, neighbours[2], neighbours[3]);
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

// Copies the words of `from` at `indices`, eight at a time: a loop of one at a time would wait for its
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

// Source positions of up to 64 pixels.
template <class Int> struct Positions {
    alignas(64) Int x[kBlock];  // in 1/4096 of a pixel, or whole
    alignas(64) Int y[kBlock];
    alignas(64) Int offset[kBlock];  // of the source word that holds the position, if there is one
    alignas(64) Int mapped[kBlock];  // 0 for pixels without a position; only transforms use it
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

// Returns the pairs of words at some of `indices`.
template <class Index, std::size_t... kPair>
KS_INLINE Words LoadPairs(const std::uint32_t* row, const Index* indices, std::index_sequence<kPair...>) {
    const auto pair = [&](std::size_t k) {
        std::int64_t words;
        __builtin_memcpy(&words, row + indices[k], 8);
        return words;
    };
    return reinterpret_cast<Words>(Longs{pair(kPair)...});
}

// Sets the left and right neighbours of a vector of positions: the words at `indices` and those behind them.
template <class Index>
KS_INLINE void LoadNeighbours(const std::uint32_t* words, const Index* indices, Words& left, Words& right) {
    constexpr auto kHalf = std::make_index_sequence<kLanes / 2>();
    SplitPairs(LoadPairs(words, indices, kHalf), LoadPairs(words, indices + kLanes / 2, kHalf), left, right,
               std::make_index_sequence<kLanes>());
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

// Stores the samples of whole vectors of located positions, all of whose neighbours are in the source;
// returns how many positions they are.
template <class Int>
KS_INLINE std::int64_t SampleInner(const SourcePixels& source, const Positions<Int>& positions,
                                   const Block& block, std::uint32_t* destination, std::int64_t count) {
    std::int64_t k = 0;
    for (; k + kLanes <= count; k += kLanes) {
        Words neighbours[4];
        LoadNeighbours(source.words, positions.offset + k, neighbours[0], neighbours[1]);
        LoadNeighbours(source.words + source.row_length, positions.offset + k, neighbours[2], neighbours[3]);
        const Words common = neighbours[0] & neighbours[1] & neighbours[2] & neighbours[3];
        const Words fx = load<Words>(block.fx + k), fy = load<Words>(block.fy + k);
        store(destination + k, any(~common & 0xFF000000) ? Sample<false>(neighbours, fx, fy)
                                                         : Sample<true>(neighbours, fx, fy));
    }
    return k;
}

// Whether the source is larger than what a processor has of cache for itself, so that it pays to fetch pixels
// before they are read.
bool IsFar(const SourcePixels& source) {
    constexpr std::int64_t kNear = 3 << 17;
    return source.height * source.row_length > kNear;
}

// Says whether all positions and offsets fit 32 bits. Transforms have some up to a tenth of the source's size
// beyond its sides.
bool IsSmall(const SourcePixels& source) {
    constexpr std::int64_t kMost = 1 << 18, kEnd = std::int64_t{1} << 31;
    static_assert((kMost * 11 / 10 + 1) * kOne <= kEnd);
    return source.width < kMost && source.height < kMost && source.row_length >= 0 &&
           source.row_length < kEnd / (source.height * 11 / 10 + 2);
}

}  // namespace
}  // namespace ks_bitmaptools
