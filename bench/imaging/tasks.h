// SPDX-License-Identifier: MIT
// The kinds of work that contests are made of, and the peers that take part in them.
//
// Each peer's file adds the contenders that its library has for a task, set up as fast as the library can do
// it, and nothing where it has none. Most peers keep premultiplied colour, an easier problem; they are given
// premultiplied pixels and compared all the same.
#pragma once

#include "bench/imaging/contest.h"
#include "hdr/KSPoint.h"
#include "hdr/KSRect.h"
#include "merge/KSMerge.h"

#include <array>

// A destination, a source and what each of them starts as.
struct Scene {
    Scene(int width, int height, Alphas destination_alphas, Alphas source_alphas = Alphas::kTranslucent);

    Image destination;
    Image straight_start;
    Image premultiplied_start;
    Image straight_source;
    Image premultiplied_source;

    // Return what puts the destination back to its start.
    std::function<void()> RestoreStraight();
    std::function<void()> RestorePremultiplied();
};

enum class Family { kRun, kArray };

// Composing a colour (0x90C86432, straight) or the source onto the whole destination.
struct Composition {
    ks_composition_mode mode;
    Family family;
    Alphas destination_alphas;
    Scene* scene;
};

constexpr std::uint32_t kColour = 0x90C86432;

// What a peer calls a mode; its table has a row for each mode that it has.
template <class Operator> struct ModeRow {
    ks_composition_mode mode;
    Operator operation;
};

// Returns the peer's operation for the mode, or nothing where it has none.
template <class Operator, std::size_t count>
std::optional<Operator> operation_of(ks_composition_mode mode, const ModeRow<Operator> (&rows)[count]) {
    for (const ModeRow<Operator>& row : rows)
        if (row.mode == mode)
            return row.operation;
    return std::nullopt;
}

// Sampling a picture into the whole destination, which starts transparent.
struct Resampling {
    enum class Kind { kScale, kRotate, kTransform };

    Resampling(Kind kind, bool is_bilinear, Alphas alphas, int source_size, int destination_size,
               double angle = 0.5);

    Kind kind;
    bool is_bilinear;
    Image straight_source;
    Image premultiplied_source;
    Image destination;
    double angle;                            // of a rotation, about the centre of both images
    std::array<KSPoint<double>, 4> corners;  // where a transform puts the source's, clockwise from top left
    // From destination to source, both with pixel (0, 0) from 0 to 1: the affine map of a scale or rotation,
    // the projective one with the same corners for a transform.
    std::array<double, 9> to_source;
};

// Drawing shapes, one by one, all in one colour, onto an opaque image without antialiasing.
struct Drawing {
    enum class Kind { kRectangles, kLines, kFilledEllipses, kOutlinedEllipses, kPatterns, kPolygons };
    using Polygon = std::array<KSPoint<long>, 6>;  // convex

    Kind kind;
    std::uint32_t colour;
    Scene* scene;
    std::vector<KSRect<long>> boxes;  // inclusive; a line runs from left, top to right, bottom
    std::vector<Polygon> polygons;
    std::array<std::uint8_t, 8> pattern;  // bit x & 7 of byte y & 7: `colour`, or else `other_colour`
    std::uint32_t other_colour;
};

// The least that a mode does whose result depends on the destination: changes each pixel by kColour or by
// that of the source. Compiled for this processor.
void change_by_colour(std::uint32_t* destination, const std::uint32_t* source, int count);
void change_by_row(std::uint32_t* destination, const std::uint32_t* source, int count);

// Returns the 8 x 8 tile of a drawing's pattern, in premultiplied colour.
Image pattern_tile(const Drawing& task);

void add_agg(Contest& contest, const Composition& task);
void add_libyuv(Contest& contest, const Composition& task);
void add_pixman(Contest& contest, const Composition& task);
void add_qt(Contest& contest, const Composition& task);
void add_sdl(Contest& contest, const Composition& task);

// The task outlives the contest.
void add_agg(Contest& contest, Resampling& task);
void add_libyuv(Contest& contest, Resampling& task);
void add_opencv(Contest& contest, Resampling& task);
void add_pixman(Contest& contest, Resampling& task);
void add_qt(Contest& contest, Resampling& task);
void add_sdl(Contest& contest, Resampling& task);

// The task outlives the contest.
void add_agg(Contest& contest, const Drawing& task);
void add_cairo(Contest& contest, const Drawing& task);
void add_pixman(Contest& contest, const Drawing& task);
void add_qt(Contest& contest, const Drawing& task);
void add_sdl(Contest& contest, const Drawing& task);
