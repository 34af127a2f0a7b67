// SPDX-License-Identifier: MIT
// The inner functions of the public operations, which every level has.
//
// Holds plain data only, so that the units of the levels may include it: see nymbrel_level in
// cmake/NymbrelTargets.cmake.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ks_bitmaptools {

// Positions are in 1/4096 of a pixel.
inline constexpr int kFractionBits = 12;
inline constexpr std::int64_t kOne = 1 << kFractionBits;

// The pixels that may be read: `height` rows of `width` words, `row_length` apart. Both are at least 1.
struct SourcePixels {
    const std::uint32_t* words;
    std::int64_t width;
    std::int64_t height;
    std::ptrdiff_t row_length;
};

// The pixels that may be written, none of them in the source.
struct DestinationPixels {
    std::uint32_t* words;
    std::int64_t width;
    std::int64_t height;
    std::ptrdiff_t row_length;
};

// One coordinate of the source positions: destination pixel (i, j) lies at start + i * column + j * row,
// relative to the source's first pixel. All three are small enough that no position of a destination
// overflows.
struct Axis {
    std::int64_t start;
    std::int64_t column;
    std::int64_t row;
};

// The inverse of a bilinear map onto a quadrilateral; KSBitmapTools.cpp says how it is derived.
struct InverseMap {
    double left, top;  // the first destination pixel
    double ax, ay, bx, by, cx, cy;
    double x3, y3;
    double curvature;
    double least, most;  // the range of both source fractions
};

// A reduction by area. A destination pixel covers `columns` / `column_weight` columns and `rows` /
// `row_weight` rows, both fractions at least 1; `total` is columns * rows. The destination starts at a column
// and a row of the whole result. At most kMostCovered columns are covered, and `rows` is at most kMostRows.
struct Reduction {
    std::int64_t columns, column_weight, first_column;
    std::int64_t rows, row_weight, first_row;
    double total;
};
inline constexpr std::int64_t kMostCovered = 256;
inline constexpr std::int64_t kMostRows = 0x7FFFFFFF / 65025;

// A projective map from the plane of the destination to the source's first pixel: see ks_projection. The
// destination starts at (left, top).
struct Projection {
    double m[9];
    double left, top;
};

// How much count_equal, sum_bytes and sum_halves may read behind their arguments.
inline constexpr std::int64_t kReadBeyond = 64;

struct LevelFunctions {
    // Scaling: x.row and y.column are 0, all positions lie in the source or half a pixel outside.
    void (*scale_plain)(const SourcePixels&, const DestinationPixels&, const Axis& x, const Axis& y);
    void (*scale_bilinear)(const SourcePixels&, const DestinationPixels&, const Axis& x, const Axis& y);
    // Rotation: column steps are below 2^16 in magnitude.
    void (*rotate_plain)(const SourcePixels&, const DestinationPixels&, const Axis& x, const Axis& y);
    void (*rotate_bilinear)(const SourcePixels&, const DestinationPixels&, const Axis& x, const Axis& y);
    void (*transform_plain)(const SourcePixels&, const DestinationPixels&, const InverseMap&);
    void (*transform_bilinear)(const SourcePixels&, const DestinationPixels&, const InverseMap&);
    void (*project_plain)(const SourcePixels&, const DestinationPixels&, const Projection&);
    void (*project_bilinear)(const SourcePixels&, const DestinationPixels&, const Projection&);
    void (*reduce)(const SourcePixels&, const DestinationPixels&, const Reduction&);

    // See ks_premultiply.h. The two runs may be one.
    void (*premultiply)(std::uint32_t* to, const std::uint32_t* from, std::int64_t count);
    void (*unpremultiply)(std::uint32_t* to, const std::uint32_t* from, std::int64_t count);
    // Stores `color` with its alpha scaled by each coverage, rounded down.
    void (*cover)(std::uint32_t* to, const std::uint8_t* coverage, std::int64_t count, std::uint32_t color);
    // Adds one row of bytes to the sums and takes another one off. A row that is null counts as zeros.
    void (*slide)(std::uint32_t* sums, const std::uint8_t* in, const std::uint8_t* out, std::int64_t count);

    // Writes to `lonely`, in ascending order, which pixels first <= x < last of the middle row equal none of
    // their eight neighbours, and returns their number. At the top and bottom of an image the caller gives
    // the neighbouring row twice; for an image of one row, that row three times.
    std::int64_t (*find_lonely)(const std::uint8_t* const (&rows)[3], std::int64_t width, std::int64_t first,
                                std::int64_t last, std::uint32_t* lonely);
    // Returns how many of `rows` rows of `count` <= 511 bytes, `row_length` apart, are equal to `value`. May
    // read kReadBeyond bytes behind each row.
    std::uint32_t (*count_equal)(const std::uint8_t* bytes, std::int64_t row_length, std::int64_t rows,
                                 std::int64_t count, std::uint8_t value);
    // Returns the sum of `count` <= 511 items of at most 511. May read kReadBeyond items behind them.
    std::uint32_t (*sum_bytes)(const std::uint8_t* items, std::int64_t count);
    std::uint32_t (*sum_halves)(const std::uint16_t* items, std::int64_t count);
};

// Each in a unit of its own. Other processors than x86-64 have only the first.
extern const LevelFunctions level_baseline;
extern const LevelFunctions level_avx2;
extern const LevelFunctions level_avx512;

// Returns the functions of the level in use.
const LevelFunctions& ActiveFunctions();

}  // namespace ks_bitmaptools
