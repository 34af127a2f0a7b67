// SPDX-License-Identifier: MIT
// Reduction by area, and projective maps: pictures made smaller or seen from another side.
//
// These functions take any pixels with a place, and write only to `destination`, which may be any part of the
// result: parts that are made one by one, on one thread or several, equal the whole. A destination pixel that
// the result does not have is neither read nor written. Source and destination must not share memory. Results
// are the same on every processor. Nothing is allocated and nothing fails.
#pragma once

#include "hdr/KSPixels.h"
#include "hdr/KSPoint.h"
#include "hdr/KSRect.h"
#include "hdr/ks_export.h"

#include <array>
#include <cstdint>

// Makes the image smaller, so that it fills the rectangle `whole`; `destination` takes the part of it that it
// has pixels for. Each pixel is the mean of all that it covers, so nothing is lost, nothing moves, and what
// is opaque stays opaque to its sides.
//
// A pixel covers source width / whole width by source height / whole height pixels of the source, those at
// its sides in part. With w as the covered share of a source pixel, a as its alpha and c as a channel of it:
//
//     alpha  = sum of w a / sum of w,  colour = sum of w a c / sum of w a
//
// Both are computed exactly and rounded to the nearest, halves up. Where alpha is 0, the result is the word
// 0.
//
// Writes nothing if `whole` is wider or higher than the source: KSBitmapTools::ScaleBiLin enlarges. The
// source has at most 2^31 pixels, or nothing is written.
KS_EXPORT void ks_reduce(KSPixels<const std::uint32_t> source, const KSRect<long>& whole,
                         KSPixels<std::uint32_t> destination);

// Four corners: top left, top right, bottom right, bottom left. They are places between pixels: a pixel (x,
// y) reaches from (x, y) to (x + 1, y + 1), and so the corners of a frame are its left and top, and its right
// and bottom plus 1.
using ks_quadrilateral = std::array<KSPoint<double>, 4>;

// Returns the corners of a rectangle of pixels.
constexpr ks_quadrilateral ks_corners(const KSRect<long>& rect) {
    const auto left = static_cast<double>(rect.left), right = static_cast<double>(rect.right) + 1;
    const auto top = static_cast<double>(rect.top), bottom = static_cast<double>(rect.bottom) + 1;
    return {{{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
}

// A projective map from the plane of the destination to that of the source: what a camera does to a flat
// page. Straight lines stay straight.
//
// It maps (x, y) to (X / W, Y / W), where X = m0 x + (m1 y + m2), Y = m3 x + (m4 y + m5), W = m6 x + (m7 y +
// m8), computed in that order in doubles. Places where W is not above 0 lie on the horizon or behind it, and
// have no source. The default map gives no place a source.
struct ks_projection {
    double m[9] = {};

    // Returns the map that makes the part of the source within `corners` fill `rect`: it straightens a photo
    // of a page. Mirror images are made too.
    //
    // Returns the default map if a corner is not finite or beyond 2^31, if the first three, the last three or
    // any other three corners lie on one line, or if the rectangle is invalid or beyond 2^31. Of a
    // quadrilateral that is not convex, the part beyond the horizon has no source.
    KS_EXPORT static ks_projection FromQuadrilateral(const ks_quadrilateral& corners,
                                                     const KSRect<long>& rect);

    // Returns the map that makes the rectangle `rect` of the source fill the quadrilateral `corners` of the
    // destination: it puts a picture on a wall in a photo. Otherwise as above.
    KS_EXPORT static ks_projection ToQuadrilateral(const KSRect<long>& rect, const ks_quadrilateral& corners);

    // Returns where the source of a place of the destination lies. Its coordinates are not finite if there is
    // none.
    KS_EXPORT KSPoint<double> SourceOf(KSPoint<double> place) const;
};

// Both functions give each pixel of `destination` whose middle has its source within the frame of `source` a
// new value. Other pixels stay as they are.
//
// Places are relative to the source's top left pixel: the map's coefficients are changed from m0 to m0 - left
// m6 and so on before any place is computed.
//
// The plain one takes the source pixel in which the place lies.
KS_EXPORT void ks_project_plain(KSPixels<const std::uint32_t> source, const ks_projection& projection,
                                KSPixels<std::uint32_t> destination);

// The bilinear one takes the place, rounded down to 1/4096 of a pixel, and weighs the four pixels whose
// middles are around it as KSBitmapTools does, by area and alpha. Beyond the source's sides its outermost
// pixels go on, so what is opaque stays opaque. A picture that becomes much smaller is better reduced first.
KS_EXPORT void ks_project_bilinear(KSPixels<const std::uint32_t> source, const ks_projection& projection,
                                   KSPixels<std::uint32_t> destination);
