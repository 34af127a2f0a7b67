// SPDX-License-Identifier: MIT
// The kinds of work that contests are made of, and the peers that take part in them.
//
// Each peer's file adds the contenders that its library has for a task, set up as fast as the library can do
// it, and nothing where it has none. Most peers keep premultiplied colour, an easier problem; they are given
// premultiplied pixels and compared all the same.
#pragma once

#include "bench/imaging/contest.h"
#include "hdr/KSPoint.h"
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

// Sampling a picture into the whole destination, which starts transparent.
struct Resampling {
    enum class Kind { kScale, kRotate, kTransform };

    Resampling(Kind kind, bool is_bilinear, Alphas alphas, int source_size, int destination_size);

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

void add_agg(Contest& contest, const Composition& task);
void add_cairo(Contest& contest, const Composition& task);
void add_libyuv(Contest& contest, const Composition& task);
void add_opencv(Contest& contest, const Composition& task);
void add_pixman(Contest& contest, const Composition& task);
void add_qt(Contest& contest, const Composition& task);
void add_sdl(Contest& contest, const Composition& task);

// The task outlives the contest.
void add_agg(Contest& contest, Resampling& task);
void add_cairo(Contest& contest, Resampling& task);
void add_libyuv(Contest& contest, Resampling& task);
void add_opencv(Contest& contest, Resampling& task);
void add_pixman(Contest& contest, Resampling& task);
void add_qt(Contest& contest, Resampling& task);
void add_sdl(Contest& contest, Resampling& task);
void add_stb(Contest& contest, Resampling& task);
