// SPDX-License-Identifier: MIT
// Whole-image operations on arrays of pixels: scaling, rotation, transformation, noise removal.
#pragma once

#include "hdr/KSPoint.h"
#include "hdr/KSRect.h"
#include "hdr/ks_export.h"

#include <cstdint>

// Stateless operations on pixel arrays that the caller owns.
//
// A pixel is 0xAARRGGBB in host byte order; its colour is straight, not multiplied by its alpha. Pointers
// point to the top left pixel. A row length is the distance in pixels from one row to the next, at least the
// width. Source and destination must not overlap. The source is only read, and only inside its width and
// height. A destination pixel without a source position is neither read nor written, and neither is anything
// outside the destination's width and height, so threads may work on disjoint parts of one image.
//
// No values are an error, but pointers have to point to pixels. Nothing is written for a size of zero or
// less, or for a rectangle that is invalid or leaves the 32-bit range. A rotation also writes nothing if its
// angle is not finite, or if its centre lies outside that range. Only NoiseRemover allocates memory and can
// fail.
//
// The BiLin operations sample the four neighbours of a position in 1/4096 of a pixel, weighted by area and
// alpha. With ix, iy the whole and fx, fy the fractional part of the position:
//
//     share  = (4096 - fx)(4096 - fy), fx(4096 - fy), (4096 - fx)fy, fx fy
//              for the pixels (ix, iy), (ix + 1, iy), (ix, iy + 1), (ix + 1, iy + 1)
//     weight = (v + (v >> 8) + 1) >> 8 where v = share * alpha
//     W      = sum of the weights
//     alpha  = W >> 16,  colour = sum of colour * weight, divided by W and rounded down
//
// A neighbour outside the source is transparent black. Where W is 0 the result is the word 0. Positions and
// colours are the same on every processor.
class KS_EXPORT KSBitmapTools {
public:
    KSBitmapTools() = delete;

    // Scales by nearest neighbour. Destination pixel i of a row takes source pixel (i * step) >> 12, where
    // step = source width * 4096 / destination width; rows likewise. Words are copied unchanged.
    static void ScalePlain(std::int32_t source_width, std::int32_t source_height,
                           std::int32_t destination_width, std::int32_t destination_height,
                           const std::uint32_t* source, std::uint32_t* destination,
                           std::int32_t source_row_length, std::int32_t destination_row_length);

    // Scales bilinearly. The positions have the steps of ScalePlain and start at (-2047, -2047) / 4096, so
    // the top row and the left column of the result are partly transparent. In an enlarged image half a
    // source pixel fades out there, and if it is more than doubled, on the other two sides too.
    static void ScaleBiLin(std::int32_t source_width, std::int32_t source_height,
                           std::int32_t destination_width, std::int32_t destination_height,
                           const std::uint32_t* source, std::uint32_t* destination,
                           std::int32_t source_row_length, std::int32_t destination_row_length);

    // Rotates about `center` by `angle` radians: pi / 2 moves the content to the right of the centre to above
    // the centre. Each pixel takes the source pixel at its position rounded down. Both rectangles (inclusive)
    // and the centre lie in one plane of pixel coordinates; x grows to the right and y downwards.
    //
    // Positions are stepped in 1/4096 of a pixel from the destination rectangle's top left on, and drift by
    // up to 1/4096 for each column and row. A part that is rotated by itself therefore differs a little from
    // that part of the whole. Transforms have no drift.
    static void RotatePlain(KSRect<long> source_rect, KSRect<long> destination_rect, KSPoint<double> center,
                            double angle, const std::uint32_t* source, std::uint32_t* destination,
                            std::uint32_t source_row_length, std::uint32_t destination_row_length);

    // Rotates like RotatePlain, but samples bilinearly. There is no half-pixel offset.
    static void RotateBiLin(KSRect<long> source_rect, KSRect<long> destination_rect, KSPoint<double> center,
                            double angle, const std::uint32_t* source, std::uint32_t* destination,
                            std::uint32_t source_row_length, std::uint32_t destination_row_length);

    // Maps the source rectangle bilinearly onto the quadrilateral with these corners; the right and lower
    // ones are where its last pixels end. This is no perspective: ks_project_plain is. Each pixel takes the
    // source pixel at its position rounded down. Rectangles (inclusive) and corners lie in one plane of pixel
    // coordinates.
    //
    // If the top and bottom sides have the same width (rounded down), the top left corner is moved right by
    // 0.1; if the left and right sides have the same height, it is moved down by 0.1. Nothing is written if
    // top and bottom are still parallel, as in a parallelogram whose top goes down to the right at 45 degrees
    // or in a slanting trapezoid, nor for corners that are not finite or go round the other way (a mirror
    // image).
    static void TransformPlain(KSRect<long> source_rect, KSPoint<double> top_left, KSPoint<double> top_right,
                               KSPoint<double> bottom_right, KSPoint<double> bottom_left,
                               KSRect<long> destination_rect, const std::uint32_t* source,
                               std::uint32_t* destination, std::uint32_t source_row_length,
                               std::uint32_t destination_row_length);

    // Transforms like TransformPlain, but samples bilinearly, half a pixel further up and to the left, and up
    // to a tenth of the source's size beyond its sides.
    static void TransformBiLin(KSRect<long> source_rect, KSPoint<double> top_left, KSPoint<double> top_right,
                               KSPoint<double> bottom_right, KSPoint<double> bottom_left,
                               KSRect<long> destination_rect, const std::uint32_t* source,
                               std::uint32_t* destination, std::uint32_t source_row_length,
                               std::uint32_t destination_row_length);

    // Replaces isolated specks in an image of width * height bytes without gaps between the rows, in place.
    // Bytes are compared for equality only, so it is for images of two levels or a few, and for indices. Grey
    // scans and photos become worse: there, few pixels equal a neighbour. Radius 1 and threshold 1 take out
    // every pixel without an equal neighbour; a greater radius with a low threshold keeps dots of a screen.
    //
    // Strips equal the whole if each has radius + 1 more rows on both sides, which are then thrown away.
    //
    // A pixel is a speck if none of its eight neighbours has its value, and fewer than `threshold` pixels of
    // the square of `radius` around it have it; the centre row and centre column of the square do not count.
    // The speck takes the value to its left or right (at a side of the image the only one there is),
    // whichever is more frequent on its row up to `radius` away; on a tie, the right one. All tests see the
    // image as it was. An image one pixel wide stays as it is. Throws std::bad_alloc, with the image
    // untouched, if there is no memory for a copy of it.
    static void NoiseRemover(std::uint8_t* image, std::uint32_t width, std::uint32_t height,
                             std::uint8_t radius, std::uint8_t threshold);
};
