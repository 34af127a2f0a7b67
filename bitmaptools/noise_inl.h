// SPDX-License-Identifier: MIT
// Comparing and counting bytes for the noise remover; included once for each level.
#pragma once

#include "bitmaptools/levels.h"
#include "simd/vectors.h"

#include <utility>

namespace ks_bitmaptools {
namespace {

using namespace ks_simd;

constexpr std::int64_t kByteLanes = kVectorBytes;

// Returns a bit for each pixel from `x` on that equals none of its neighbours. These have to lie in the rows.
template <bool kOneRow>
KS_INLINE std::uint64_t LonelyLanes(const std::uint8_t* above, const std::uint8_t* row,
                                    const std::uint8_t* below, std::int64_t x) {
    const Bytes value = load<Bytes>(row + x);
    Bytes lowest = least(value ^ load<Bytes>(row + x - 1), value ^ load<Bytes>(row + x + 1));
    if (kOneRow || !any(lowest))  // in quiet images the row alone tells
        return nonzero_bytes(lowest);
    for (int dx = -1; dx <= 1; ++dx) {
        lowest = least(lowest, value ^ load<Bytes>(above + x + dx));
        lowest = least(lowest, value ^ load<Bytes>(below + x + dx));
    }
    return nonzero_bytes(lowest);
}

KS_INLINE bool IsLonely(const std::uint8_t* const (&rows)[3], std::int64_t width, std::int64_t x) {
    for (int k = 0; k < 3; ++k)
        for (std::int64_t u = greatest<std::int64_t>(x - 1, 0); u <= least<std::int64_t>(x + 1, width - 1);
             ++u)
            if (u != x && rows[k][u] == rows[1][x])
                return false;
    return rows[0] == rows[1] || (rows[0][x] != rows[1][x] && rows[2][x] != rows[1][x]);
}

template <bool kOneRow>
std::int64_t FindLonely(const std::uint8_t* const (&rows)[3], std::int64_t width, std::int64_t first,
                        std::int64_t last, std::uint32_t* lonely) {
    const std::uint8_t *const above = rows[0], *const row = rows[1], *const below = rows[2];
    std::int64_t count = 0;
    const auto test = [&](std::int64_t from, std::int64_t to) {
        for (std::int64_t x = from; x < to; ++x)
            if (IsLonely(rows, width, x))
                lonely[count++] = static_cast<std::uint32_t>(x);
    };
    const std::int64_t inner_first = greatest<std::int64_t>(first, 1);
    const std::int64_t inner_last = least<std::int64_t>(last, width - 1);
    test(first, inner_first);
    const auto take = [&](std::uint64_t bits, std::int64_t x) {
        for (; bits != 0; bits &= bits - 1)
            lonely[count++] = static_cast<std::uint32_t>(x + __builtin_ctzll(bits));
    };
    if (inner_last - inner_first >= kByteLanes) {
        std::int64_t x = inner_first;
        for (; x <= inner_last - kByteLanes; x += kByteLanes)
            take(LonelyLanes<kOneRow>(above, row, below, x), x);
        // The last vector overlaps the one before it, so that no pixels are left.
        const std::int64_t at = inner_last - kByteLanes;
        if (x < inner_last)
            take(LonelyLanes<kOneRow>(above, row, below, at) >> (x - at), x);
    } else {
        test(inner_first, inner_last);
    }
    test(greatest(inner_last, inner_first), last);
    return count;
}

std::int64_t FindLonelyAny(const std::uint8_t* const (&rows)[3], std::int64_t width, std::int64_t first,
                           std::int64_t last, std::uint32_t* lonely) {
    return (rows[0] == rows[1] ? FindLonely<true> : FindLonely<false>)(rows, width, first, last, lonely);
}

// The lanes below `count`, as all bits or none.
template <class Lanes, class Item> KS_INLINE Lanes FirstLanes(std::int64_t count) {
    Lanes lane;
    for (std::size_t k = 0; k < sizeof(Lanes) / sizeof(Item); ++k)
        lane[k] = static_cast<Item>(k);
    return reinterpret_cast<Lanes>(lane < static_cast<Item>(count));
}

// Returns words that have the same sum as the bytes.
KS_INLINE Words Gathered(const Bytes& bytes) {
#if defined(__AVX512BW__)
    return reinterpret_cast<Words>(_mm512_sad_epu8(reinterpret_cast<__m512i>(bytes), __m512i{}));
#elif defined(__AVX2__)
    return reinterpret_cast<Words>(_mm256_sad_epu8(reinterpret_cast<__m256i>(bytes), __m256i{}));
#elif defined(__SSE2__)
    return reinterpret_cast<Words>(_mm_sad_epu8(reinterpret_cast<__m128i>(bytes), __m128i{}));
#else
    const Words odd = reinterpret_cast<Words>(bytes) & 0x00FF00FF,
                even = reinterpret_cast<Words>(bytes) >> 8 & 0x00FF00FF;
    return ((odd + even) & 0xFFFF) + ((odd + even) >> 16);
#endif
}

template <class Vector, std::size_t... kLane>
KS_INLINE auto HalvesAdded(const Vector& words, std::index_sequence<kLane...>) {
    return __builtin_shufflevector(words, words, kLane...) +
           __builtin_shufflevector(words, words, (kLane + sizeof...(kLane))...);
}

// Returns the sum of the words, which is below 2^32.
template <class Vector> KS_INLINE std::uint32_t SumWords(const Vector& words) {
    if constexpr (sizeof words > 8)
        return SumWords(HalvesAdded(words, std::make_index_sequence<sizeof words / 8>()));
    else
        return words[0] + words[1];
}

std::uint32_t CountEqual(const std::uint8_t* bytes, std::int64_t row_length, std::int64_t rows,
                         std::int64_t count, std::uint8_t value) {
    // A lane counts up to 255 before it is emptied into the total.
    constexpr std::int64_t kRowsAtOnce = 255 / (511 / kByteLanes + 1);
    const Bytes last = FirstLanes<Bytes, std::uint8_t>(count % kByteLanes);
    const std::int64_t whole = count - count % kByteLanes;
    std::uint32_t total = 0;
    while (rows > 0) {
        Bytes sum = {};
        for (std::int64_t n = least(rows, kRowsAtOnce); n > 0; --n, --rows, bytes += row_length) {
            for (std::int64_t k = 0; k < whole; k += kByteLanes)
                sum -= reinterpret_cast<Bytes>(load<Bytes>(bytes + k) == value);
            sum -= reinterpret_cast<Bytes>(load<Bytes>(bytes + whole) == value) & last;
        }
        total += SumWords(Gathered(sum));
    }
    return total;
}

std::uint32_t SumBytes(const std::uint8_t* bytes, std::int64_t count) {
    Words sum = {};
    for (; count >= kByteLanes; count -= kByteLanes, bytes += kByteLanes)
        sum += Gathered(load<Bytes>(bytes));
    return SumWords(sum + Gathered(load<Bytes>(bytes) & FirstLanes<Bytes, std::uint8_t>(count)));
}

std::uint32_t SumHalves(const std::uint16_t* halves, std::int64_t count) {
    constexpr std::int64_t kHalfLanes = kVectorBytes / 2;
    Halves sum = {};  // of at most 32 items of at most 511
    for (; count >= kHalfLanes; count -= kHalfLanes, halves += kHalfLanes)
        sum += load<Halves>(halves);
    sum += load<Halves>(halves) & FirstLanes<Halves, std::uint16_t>(count);
    const Words pairs = reinterpret_cast<Words>(sum);
    return SumWords((pairs & 0xFFFF) + (pairs >> 16));
}

}  // namespace
}  // namespace ks_bitmaptools
