// SPDX-License-Identifier: MIT
// Reduction by area; included once for each level.
//
// A row of the destination is made in two steps, for up to 1024 source columns at once: the covered rows are
// summed up column by column, then the columns pixel by pixel. The sums are exact: of a column in 32 bits, of
// a pixel in doubles.
#pragma once

#include "bitmaptools/levels.h"
#include "bitmaptools/sampling_inl.h"

#include <utility>

namespace ks_bitmaptools {
namespace {

using FourInts [[gnu::vector_size(16)]] = std::int32_t;
using FourWords [[gnu::vector_size(16)]] = std::uint32_t;
using FourDoubles [[gnu::vector_size(32)]] = double;

// The rows that a destination row covers, and their weights.
struct CoveredRows {
    const std::uint32_t* first;
    std::ptrdiff_t row_length;
    std::int64_t whole;  // how many are covered to their full height, after the first
    std::uint32_t above, weight,
        below;  // of the first row, of the whole ones, and of the one behind them or 0
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

// Sums up a vector of columns; returns false if kOpaque was promised and is not so.
template <bool kOpaque, bool kPart>
KS_INLINE bool SumColumns(const CoveredRows& rows, const std::uint32_t* column, std::int64_t lanes,
                          ColumnSums& result) {
    constexpr std::int64_t kMostRows = 256;  // whose bytes a half can sum up
    Words w = LoadColumns<kPart>(column, lanes), common = w;
    ColumnSums edge, sums;
    AddRow<kOpaque>(edge, w);
    result.AddScaled(edge, rows.above);
    column += rows.row_length;
    for (std::int64_t left = rows.whole; left > 0; left -= kMostRows) {
        Halves red_blue{}, alpha_green{};
        for (std::int64_t k = least(left, kMostRows); k > 0; --k, column += rows.row_length) {
            w = LoadColumns<kPart>(column, lanes);
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
    if (rows.below > 0) {
        w = LoadColumns<kPart>(column, lanes);
        common &= w;
        ColumnSums last;
        AddRow<kOpaque>(last, w);
        result.AddScaled(last, rows.below);
    }
    return !kOpaque || !any(~common & 0xFF000000u);
}

template <class Vector, std::size_t... kLane>
KS_INLINE void Interleave(const Vector& a, const Vector& b, Vector& low, Vector& high,
                          std::index_sequence<kLane...>) {
    constexpr std::size_t kCount = sizeof...(kLane);
    low = __builtin_shufflevector(a, b, (kLane / 2 + kLane % 2 * kCount)...);
    high = __builtin_shufflevector(a, b, (kCount / 2 + kLane / 2 + kLane % 2 * kCount)...);
}

// Stores the sums column by column.
KS_INLINE void StoreColumns(FourInts* to, const ColumnSums& sums) {
    constexpr auto kWordLanes = std::make_index_sequence<kLanes>();
    constexpr auto kLongLanes = std::make_index_sequence<kLanes / 2>();
    Words pairs[4];
    Interleave(sums.channel[0], sums.channel[1], pairs[0], pairs[1], kWordLanes);
    Interleave(sums.channel[2], sums.channel[3], pairs[2], pairs[3], kWordLanes);
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

// The columns that destination pixels cover, one after the other. Each is `weight` wide, each pixel `size`.
struct ColumnWalk {
    std::int64_t size, weight;
    std::int64_t column;  // the pixel's first
    std::int64_t before;  // how much of that the pixels before it cover
    std::int64_t wholes = (size - weight) / weight, rest = (size - weight) % weight;

    ColumnWalk(const Reduction& r, std::int64_t pixel)
        : size(r.columns),
          weight(r.column_weight),
          column(pixel * size / weight),
          before(pixel * size % weight) {}

    // How many columns behind the first one are covered to their full width, and what is covered of the next.
    KS_INLINE std::int64_t Whole() const { return wholes + (rest + before >= weight); }
    KS_INLINE std::int64_t Behind() const {
        return rest + before >= weight ? rest + before - weight : rest + before;
    }
    KS_INLINE void Next() {
        const std::int64_t behind = Behind();
        column += Whole() + 1;
        before = behind;
    }
};

KS_INLINE void AddColumn(FourDoubles& sum, const FourInts& column, std::int64_t weight) {
    sum += __builtin_convertvector(column, FourDoubles) * static_cast<double>(weight);
}

// Returns the pixel of a sum over all that it covers. A quarter is added to the sums, which are integers, so
// that the products' errors do not matter: they are below 2^-44, and a quarter of 1 / total is more.
template <bool kOpaque> KS_INLINE std::uint32_t PixelOf(const FourDoubles& sum, double total) {
    const double alpha = sum[3];
    FourDoubles divisor = FourDoubles{} + total;
    if constexpr (!kOpaque) {
        if (alpha == 0)
            return 0;
        divisor = FourDoubles{alpha, alpha, alpha, total};
    }
    const double of_total = 1 / total, of_alpha = kOpaque ? of_total : 1 / alpha;
    const FourDoubles reciprocal = {of_alpha, of_alpha, of_alpha, of_total};
    const FourDoubles mean = (sum + (divisor * 0.5 + 0.25)) * reciprocal;
    const FourWords channels = reinterpret_cast<FourWords>(__builtin_convertvector(mean, FourInts))
                               << FourWords{0, 16, 8, 24};
    const std::uint32_t pixel = channels[0] | channels[1] | channels[2] | channels[3];
    return pixel >> 24 == 0 ? 0 : pixel;
}

// Makes `count` pixels from the sums of their columns; `walk` is at the first, whose column is columns[0].
template <bool kOpaque>
void MakePixels(const Reduction& reduction, ColumnWalk walk, const FourInts* columns, std::uint32_t* to,
                std::int64_t count) {
    // Sums of so many columns fit 32 bits.
    const std::int64_t most = 0x7FFFFFFF / (65025 * reduction.rows);
    const std::int64_t start = walk.column;
    for (std::int64_t k = 0; k < count; ++k, walk.Next()) {
        const FourInts* column = columns + (walk.column - start);
        FourDoubles sum{};
        AddColumn(sum, *column++, walk.weight - walk.before);
        for (std::int64_t left = walk.Whole(); left > 0; left -= most) {
            const FourInts* const end = column + least(left, most);
            FourInts part = *column++;
            for (; column < end; ++column)
                part += *column;
            AddColumn(sum, part, walk.weight);
        }
        if (const std::int64_t behind = walk.Behind(); behind > 0)
            AddColumn(sum, *column, behind);
        to[k] = PixelOf<kOpaque>(sum, reduction.total);
    }
}

// Makes a row, a block of columns after the other; returns false where kOpaque is not so.
template <bool kOpaque>
bool ReduceRow(const SourcePixels& source, const Reduction& reduction, const CoveredRows& rows,
               std::uint32_t* to, std::int64_t width) {
    constexpr std::int64_t kColumns = kMostCovered * 2;
    alignas(64) FourInts memory[kLanes + kColumns + kLanes];
    const std::int64_t block = (kColumns - 2) * reduction.column_weight / reduction.columns;
    for (std::int64_t i = 0; i < width; i += block) {
        const std::int64_t count = least(block, width - i);
        const ColumnWalk walk(reduction, reduction.first_column + i);
        const std::int64_t end =
            ((reduction.first_column + i + count) * reduction.columns + reduction.column_weight - 1) /
            reduction.column_weight;
        if (!SumAllColumns<kOpaque>(rows, source.width, walk.column, end, memory + kLanes))
            return false;
        MakePixels<kOpaque>(reduction, walk, memory + kLanes, to + i, count);
    }
    return true;
}

void Reduce(const SourcePixels& source, const DestinationPixels& destination, const Reduction& reduction) {
    const std::int64_t size = reduction.rows, weight = reduction.row_weight;
    for (std::int64_t j = 0; j < destination.height; ++j) {
        const std::int64_t top = (reduction.first_row + j) * size, bottom = top + size;
        const std::int64_t first = top / weight, above = (first + 1) * weight - top;
        const CoveredRows rows = {source.words + first * source.row_length,
                                  source.row_length,
                                  bottom / weight - first - 1,
                                  static_cast<std::uint32_t>(above),
                                  static_cast<std::uint32_t>(weight),
                                  static_cast<std::uint32_t>(bottom % weight)};
        std::uint32_t* const to = destination.words + j * destination.row_length;
        if (!ReduceRow<true>(source, reduction, rows, to, destination.width))
            ReduceRow<false>(source, reduction, rows, to, destination.width);
    }
}

}  // namespace
}  // namespace ks_bitmaptools
