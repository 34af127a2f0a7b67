// SPDX-License-Identifier: MIT
// Reduction by area; included once for each level.
//
// The destination is made in blocks of pixels that cover up to 512 source columns. Of each row first the
// covered rows are summed up column by column, then the columns pixel by pixel. The sums are exact: of a
// column in 32 bits, of a pixel in doubles.
#pragma once

#include "bitmaptools/levels.h"
#include "bitmaptools/sampling_inl.h"

#include <utility>

namespace ks_bitmaptools {
namespace {

using FourInts [[gnu::vector_size(16)]] = std::int32_t;
using FourWords [[gnu::vector_size(16)]] = std::uint32_t;
using FourDoubles [[gnu::vector_size(32)]] = double;

// The rows that a destination row covers, and their weights. Those of weight 0 are not read.
struct CoveredRows {
    const std::uint32_t* first;  // the first whole row, or the edge below; the edge above is before it
    std::ptrdiff_t row_length;
    std::int64_t whole;                  // how many are covered to their full height
    std::uint32_t above, weight, below;  // of the edge above, of each whole row, of the edge below
};

// The sums of a vector of columns: blue, red, green, alpha.
struct ColumnSums {
    Words channel[4] = {};

    KS_INLINE void Add(const Halves& red_blue, const Halves& alpha_green) {
        const Words rb = reinterpret_cast<Words>(red_blue), ag = reinterpret_cast<Words>(alpha_green);
        channel[0] += rb & 0xFFFF;
        channel[1] += rb >> 16;
        channel[2] += ag & 0xFFFF;
        channel[3] += ag >> 16;
    }
    KS_INLINE void AddScaled(const ColumnSums& other, std::uint32_t weight) {
        for (int c = 0; c < 4; ++c)
            channel[c] += weight == 1 ? other.channel[c] : other.channel[c] * weight;
    }
};

// Loads `lanes` pixels, or a whole vector. The other lanes are opaque.
template <bool kPart> KS_INLINE Words LoadColumns(const std::uint32_t* pixels, std::int64_t lanes) {
    if constexpr (!kPart)
        return load<Words>(pixels);
    Words part = ~Words{};
    __builtin_memcpy(&part, pixels, static_cast<std::size_t>(lanes) * 4);
    return part;
}

KS_INLINE Halves RedBlue(const Words& w) {
    return reinterpret_cast<Halves>(w & 0x00FF00FFu);
}

KS_INLINE Halves AlphaGreen(const Words& w) {
    return reinterpret_cast<Halves>(w >> 8 & 0x00FF00FFu);
}

// Adds a row whose colours are multiplied by their alphas, unless kOpaque promises that all alphas are 255.
template <bool kOpaque> KS_INLINE void AddRow(ColumnSums& sums, const Words& w) {
    if constexpr (kOpaque) {
        sums.Add(RedBlue(w), AlphaGreen(w));
    } else {
        const Words alpha = w >> 24;
        const Halves both = reinterpret_cast<Halves>(alpha | alpha << 16);
        const Halves green_only = reinterpret_cast<Halves>(alpha | 1 << 16);
        sums.Add(RedBlue(w) * both, AlphaGreen(w) * green_only);
    }
}

// Adds the row at an offset with a weight; nothing is loaded for the weight 0.
template <bool kOpaque, bool kPart>
KS_INLINE void AddEdge(const std::uint32_t* column, std::ptrdiff_t offset, std::int64_t lanes,
                       std::uint32_t weight, ColumnSums& sums, Words& common) {
    if (weight == 0)
        return;
    const Words w = LoadColumns<kPart>(column + offset, lanes);
    common &= w;
    ColumnSums row;
    AddRow<kOpaque>(row, w);
    sums.AddScaled(row, weight);
}

// Sums up a vector of columns; returns false if kOpaque was promised and is not so.
template <bool kOpaque, bool kPart>
KS_INLINE bool SumColumns(const CoveredRows& rows, const std::uint32_t* column, std::int64_t lanes,
                          ColumnSums& result) {
    constexpr std::int64_t kMostAdded = 256;  // whose bytes a half can sum up
    Words common = ~Words{};
    ColumnSums sums;
    const std::uint32_t* row = column;
    for (std::int64_t left = rows.whole; left > 0; left -= kMostAdded) {
        Halves red_blue{}, alpha_green{};
        for (std::int64_t k = least(left, kMostAdded); k > 0; --k, row += rows.row_length) {
            const Words w = LoadColumns<kPart>(row, lanes);
            if constexpr (kOpaque) {
                common &= w;
                red_blue += RedBlue(w);
                alpha_green += AlphaGreen(w);
            } else {
                AddRow<false>(sums, w);
            }
        }
        if constexpr (kOpaque)
            sums.Add(red_blue, alpha_green);
    }
    if (rows.whole > 0)
        result.AddScaled(sums, rows.weight);
    AddEdge<kOpaque, kPart>(column, -rows.row_length, lanes, rows.above, result, common);
    AddEdge<kOpaque, kPart>(row, 0, lanes, rows.below, result, common);
    return !kOpaque || !any(~common & 0xFF000000u);
}

template <class Vector, std::size_t... kLane>
KS_INLINE void Interleave(const Vector& a, const Vector& b, Vector& low, Vector& high,
                          std::index_sequence<kLane...>) {
    constexpr std::size_t kCount = sizeof...(kLane);
    low = __builtin_shufflevector(a, b, (kLane / 2 + kLane % 2 * kCount)...);
    high = __builtin_shufflevector(a, b, (kCount / 2 + kLane / 2 + kLane % 2 * kCount)...);
}

// Stores the sums column by column: blue, green, red, alpha.
KS_INLINE void StoreColumns(FourInts* to, const ColumnSums& sums) {
    constexpr auto kWordLanes = std::make_index_sequence<kLanes>();
    constexpr auto kLongLanes = std::make_index_sequence<kLanes / 2>();
    Words pairs[4];
    Interleave(sums.channel[0], sums.channel[2], pairs[0], pairs[1], kWordLanes);
    Interleave(sums.channel[1], sums.channel[3], pairs[2], pairs[3], kWordLanes);
    for (int k = 0; k < 2; ++k) {
        Longs low, high;
        Interleave(reinterpret_cast<Longs>(pairs[k]), reinterpret_cast<Longs>(pairs[k + 2]), low, high,
                   kLongLanes);
        store(to + k * (kLanes / 2), low);
        store(to + k * (kLanes / 2) + kLanes / 4, high);
    }
}

// Sums up the columns first <= k < last of rows that are `width` long, and stores them behind one another;
// returns as SumColumns does. Up to a vector of columns before them may be stored too.
template <bool kOpaque>
bool SumAllColumns(const CoveredRows& rows, std::int64_t width, std::int64_t first, std::int64_t last,
                   FourInts* to) {
    if (width < kLanes) {
        ColumnSums sums;
        const bool kept = SumColumns<kOpaque, true>(rows, rows.first, width, sums);
        StoreColumns(to - first, sums);
        return kept;
    }
    for (std::int64_t k = first; k < last; k += kLanes) {
        const std::int64_t column = least<std::int64_t>(k, width - kLanes);
        ColumnSums sums;
        if (!SumColumns<kOpaque, false>(rows, rows.first + column, kLanes, sums))
            return false;
        StoreColumns(to + (column - first), sums);
    }
    return true;
}

// The columns that a destination pixel covers: an edge, those covered to their full width, and one or two
// edges, of which the second has weight 0 if the pixel does not reach that far.
struct CoveredColumns {
    std::int64_t first;
    double before, behind, last;
};

KS_INLINE void AddScaled(FourDoubles& sum, const FourInts& column, double weight) {
#if defined(__AVX2__)  // GCC 12 converts them two by two
    const auto wide = reinterpret_cast<FourDoubles>(_mm256_cvtepi32_pd(reinterpret_cast<__m128i>(column)));
#else
    const auto wide = __builtin_convertvector(column, FourDoubles);
#endif
    sum += wide * weight;
}

// Returns the channels of the mean whose sums these are. A quarter is added to the sums, which are integers,
// so that the products' errors do not matter: they are below 2^-44, and a quarter of 1 / total is more.
template <bool kOpaque> KS_INLINE FourInts MeanOf(const FourDoubles& sum, double total, double of_total) {
    FourDoubles divisor = FourDoubles{} + total, reciprocal = FourDoubles{} + of_total;
    if constexpr (!kOpaque) {
        const double alpha = greatest(sum[3], 0.5), of_alpha = 1 / alpha;  // an integer, or 0
        divisor = FourDoubles{alpha, alpha, alpha, total};
        reciprocal = FourDoubles{of_alpha, of_alpha, of_alpha, of_total};
    }
    return __builtin_convertvector((sum + (divisor * 0.5 + 0.25)) * reciprocal, FourInts);
}

// Returns four pixels as words: the word 0 where alpha is 0.
KS_INLINE FourWords Packed(const FourInts& a, const FourInts& b, const FourInts& c, const FourInts& d) {
#if defined(__SSE2__)
    const auto halves = [](const FourInts& low, const FourInts& high) {
        return _mm_packs_epi32(reinterpret_cast<__m128i>(low), reinterpret_cast<__m128i>(high));
    };
    const FourWords words = reinterpret_cast<FourWords>(_mm_packus_epi16(halves(a, b), halves(c, d)));
#else
    const auto word = [](const FourInts& channels) {
        const FourWords w = reinterpret_cast<FourWords>(channels) << FourWords{0, 8, 16, 24};
        return w[0] | w[1] | w[2] | w[3];
    };
    const FourWords words = {word(a), word(b), word(c), word(d)};
#endif
    return reinterpret_cast<FourWords>(words >> 24 != 0) & words;
}

// A block of a row: its pixels, and the sums of their columns. Nothing here is zeroed when it is made.
struct ReductionBlock {
    static constexpr std::int64_t kColumns = 2 * kMostCovered;

    std::int64_t count;        // of pixels
    std::int64_t first, last;  // first <= column < last are summed up
    std::int64_t whole;        // columns of each pixel
    bool has_edges;            // or else all columns are whole
    CoveredColumns covered[kColumns];
    alignas(64) FourInts sums[kLanes + kColumns + kLanes];

    ReductionBlock() {}

    // Sets the block to up to `most` pixels from `pixel` on, whose columns fit it.
    void Set(const Reduction& r, std::int64_t pixel, std::int64_t most) {
        const std::int64_t weight = r.column_weight, start = pixel * r.columns;
        count = least((kColumns - 2) * weight / r.columns, most);
        first = start / weight;
        last = (start + count * r.columns + weight - 1) / weight;
        has_edges = weight > 1;
        whole = r.columns / weight - has_edges;
        for (std::int64_t k = 0; k < count && has_edges; ++k) {
            const std::int64_t from = start + k * r.columns, before = weight - from % weight;
            const std::int64_t rest = r.columns - before - whole * weight, behind = least(rest, weight);
            covered[k] = {from / weight - first, static_cast<double>(before), static_cast<double>(behind),
                          static_cast<double>(rest - behind)};
        }
    }

    FourInts* Sums() { return sums + kLanes; }
};

// Adds `count` columns; the sum of up to `most` fits 32 bits.
KS_INLINE void AddWhole(FourDoubles& sum, const FourInts* column, std::int64_t count, std::int64_t most,
                        double weight) {
    const auto add_part = [&](std::int64_t columns) {
        FourInts part = column[0];
        for (std::int64_t k = 1; k < columns; ++k)
            part += column[k];
        AddScaled(sum, part, weight);
    };
    if (count > 0 && count <= most)
        return add_part(count);
    for (std::int64_t left = count; left > 0; left -= most) {
        add_part(least(left, most));
        column += least(left, most);
    }
}

// Makes the block's pixels of the sums of their columns.
template <bool kOpaque>
void MakePixels(const Reduction& reduction, ReductionBlock& block, std::uint32_t* to) {
    const double weight = static_cast<double>(reduction.column_weight), total = reduction.total,
                 of_total = 1 / total;
    const std::int64_t most = 0x7FFFFFFF / (65025 * reduction.rows), whole = block.whole;
    block.Sums()[block.last - block.first] = FourInts{};  // is behind the last pixel, with weight 0
    const auto pixel = [&](std::int64_t k) {
        FourDoubles sum{};
        if (!block.has_edges) {
            AddWhole(sum, block.Sums() + k * whole, whole, most, 1);
        } else {
            const CoveredColumns& covered = block.covered[k];
            const FourInts* const column = block.Sums() + covered.first;
            AddScaled(sum, column[0], covered.before);
            AddWhole(sum, column + 1, whole, most, weight);
            AddScaled(sum, column[whole + 1], covered.behind);
            AddScaled(sum, column[whole + 2], covered.last);
        }
        return MeanOf<kOpaque>(sum, total, of_total);
    };
    const FourInts none{};
    std::int64_t k = 0;
    for (; k + 4 <= block.count; k += 4)
        store(to + k, Packed(pixel(k), pixel(k + 1), pixel(k + 2), pixel(k + 3)));
    for (; k < block.count; ++k)
        to[k] = Packed(pixel(k), none, none, none)[0];
}

template <bool kOpaque>
bool ReduceRow(const SourcePixels& source, const Reduction& reduction, const CoveredRows& rows,
               ReductionBlock& block, std::uint32_t* to) {
    if (!SumAllColumns<kOpaque>(rows, source.width, block.first, block.last, block.Sums()))
        return false;
    MakePixels<kOpaque>(reduction, block, to);
    return true;
}

void Reduce(const SourcePixels& source, const DestinationPixels& destination, const Reduction& reduction) {
    const std::int64_t size = reduction.rows, weight = reduction.row_weight;
    ReductionBlock block;
    for (std::int64_t i = 0; i < destination.width; i += block.count) {
        block.Set(reduction, reduction.first_column + i, destination.width - i);
        for (std::int64_t j = 0; j < destination.height; ++j) {
            const std::int64_t top = (reduction.first_row + j) * size, bottom = top + size;
            const std::int64_t first = DivideRoundingUp(top, weight), last = bottom / weight;
            const CoveredRows rows = {source.words + first * source.row_length,
                                      source.row_length,
                                      last - first,
                                      static_cast<std::uint32_t>(first * weight - top),
                                      static_cast<std::uint32_t>(weight),
                                      static_cast<std::uint32_t>(bottom - last * weight)};
            std::uint32_t* const to = destination.words + j * destination.row_length + i;
            if (!ReduceRow<true>(source, reduction, rows, block, to))
                ReduceRow<false>(source, reduction, rows, block, to);
        }
    }
}

}  // namespace
}  // namespace ks_bitmaptools
