// SPDX-License-Identifier: MIT
// Colour by coverage: masks, shapes with smooth edges, blurred shadows.
//
// Coverage is one byte for each pixel: 0 for none of it, 255 for all. A colour that is composed by coverage
// is a layer of pixels of that colour, whose alpha is the colour's times the coverage / 255, rounded down,
// and which ks_compose composes. So all modes work, kMergeErase takes the shape out, kMergeCopy stores the
// layer itself, and kMergeAlphaMask, with an opaque colour, keeps only what the coverage covers within the
// mask's frame or the shape's box.
//
// A page is any pixels; a KSRaster converts to them. Nothing is painted beyond the page, no pixel is painted
// twice, and no pixel outside the mask's frame or the shape's box is touched. Several threads may paint on
// parts of a page that have no pixel in common, and get what one call paints; see ks_compose for
// kMergeDissolve. Results are the same on every processor. Coordinates may be any long. Modes are asserted to
// be one of the modes.
#pragma once

#include "hdr/KSPixels.h"
#include "hdr/KSRect.h"
#include "hdr/ks_color.h"
#include "hdr/ks_export.h"
#include "merge/KSMerge.h"

#include <cstdint>
#include <vector>

// Composes a colour by a mask of the caller's: its bytes, row length and place. Allocates nothing. On a page
// of opaque black, white by kMergeOverlay makes a picture of the mask's bytes as grey levels.
KS_EXPORT void ks_compose_mask(KSPixels<std::uint32_t> page, KSPixels<const std::uint8_t> mask,
                               ks_color color, ks_composition_mode mode = kMergeNormal,
                               std::uint32_t opacity = 255);

// Fills the ellipse that touches the four sides of a box of pixels. The coverage of a pixel is the share of
// it that lies within the ellipse, in 1/255, off by less than 1. Pixels of the box that the ellipse leaves
// free have coverage 0. Does nothing for an invalid box, or one wider or higher than 2^31. Allocates nothing.
KS_EXPORT void ks_fill_ellipse(KSPixels<std::uint32_t> page, const KSRect<long>& box, ks_color color,
                               ks_composition_mode mode = kMergeNormal, std::uint32_t opacity = 255);

// Fills a box whose corners are quarters of a circle. A radius below 0 counts as 0, and one of more than half
// the shorter side as that half. Otherwise like ks_fill_ellipse.
KS_EXPORT void ks_fill_round_rect(KSPixels<std::uint32_t> page, const KSRect<long>& box, long radius,
                                  ks_color color, ks_composition_mode mode = kMergeNormal,
                                  std::uint32_t opacity = 255);

// Stores in each item of `to` the mean of the mask over the square of 2 * radius + 1 items around it, rounded
// to the nearest, halves up. Beyond its frame the mask is 0. `to` may be any part of the result; parts equal
// the whole. It takes time in proportion to the mask and to `to`, whatever the radius, and memory in
// proportion to the mask's width. The two must not share memory. A radius below 0 counts as 0, one above 2^19
// as that. Throws std::bad_alloc, with nothing stored.
KS_EXPORT void ks_blur(KSPixels<const std::uint8_t> mask, KSPixels<std::uint8_t> to, long radius);

// A mask that has its bytes, row by row without gaps, in a vector. An invalid frame has none. Converts to the
// view that the functions above take; MovedTo of that view gives another place, and leaves the mask where it
// is. The functions that make one throw std::bad_alloc.
struct KSMask {
    KSRect<long> frame;
    std::vector<std::uint8_t> bytes;

    KSMask() = default;
    // Makes a mask of coverage 0.
    KS_EXPORT explicit KSMask(const KSRect<long>& frame);
    // Make the coverage of the shapes above.
    KS_EXPORT static KSMask Ellipse(const KSRect<long>& box);
    KS_EXPORT static KSMask RoundRect(const KSRect<long>& box, long radius);
    // Makes a mask of the alphas of some pixels.
    KS_EXPORT static KSMask OfAlpha(KSPixels<const std::uint32_t> pixels);

    // Returns the mask blurred as by ks_blur, and larger by the radius on each side. It is what a soft shadow
    // is composed with. Blurred three times, it looks like a Gaussian blur of standard deviation `radius`.
    KS_EXPORT KSMask Blurred(long radius) const;

    KSPixels<std::uint8_t> Items() { return {bytes.data(), frame.PixelWidth(), frame}; }
    KSPixels<const std::uint8_t> Items() const { return {bytes.data(), frame.PixelWidth(), frame}; }
    operator KSPixels<std::uint8_t>() { return Items(); }
    operator KSPixels<const std::uint8_t>() const { return Items(); }
};
