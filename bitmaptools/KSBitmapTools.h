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
// address the top-left pixel, and a row length is the distance in pixels from one row to the next, at least
// the width. The source is only read, and only inside its width and height; source and destination must not
// overlap. A destination pixel that has no source position is neither read nor written, nor is anything
// beside the destination's width and height, so threads may work on disjoint parts of one image.
//
// No argument values are an error: sizes of zero or less, rectangles that are not valid or leave the 32-bit
// range and, in rotations, an angle that is not finite or a centre outside that range write nothing. Nothing
// but NoiseRemover allocates memory or fails.
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
// A neighbour outside the source is transparent black. Where W is 0 the result is the word 0. All positions
// and colours are the same on every processor.
class KS_EXPORT KSBitmapTools {
public:
    KSBitmapTools() = delete;

    // Scales by nearest neighbour. Destination pixel i of a row takes source pixel (i * step) >> 12, where
    // step = source width * 4096 / destination width; rows likewise. Words are copied unchanged.
    static void ScalePlain(std::int32_t source_width, std::int32_t source_height,
                           std::int32_t destination_width, std::int32_t destination_height,
                           const std::uint32_t* source, std::uint32_t* destination,
                           std::int32_t source_row_length, std::int32_t destination_row_length);

    // Scales bilinearly, with the steps of ScalePlain from the position (-2047, -2047) / 4096 on, so that the
    // top row and left column of the result are partly transparent. Where the image is enlarged, half a
    // source pixel fades out there; on the other two sides too, if it is more than doubled.
    static void ScaleBiLin(std::int32_t source_width, std::int32_t source_height,
                           std::int32_t destination_width, std::int32_t destination_height,
                           const std::uint32_t* source, std::uint32_t* destination,
                           std::int32_t source_row_length, std::int32_t destination_row_length);

    // Rotates about `center` by `angle` radians and copies the source pixel at the position rounded down: for
    // pi / 2 the content to the right of the centre moves to above the centre. Both rectangles (inclusive)
    // and the centre lie in one plane of pixel coordinates, whose x is to the right and whose y is downwards.
    //
    // Positions are stepped in 1/4096 of a pixel from the destination rectangle's top left on, and drift by
    // up to 1/4096 for each column and row. So a part that is rotated by itself differs a little from that
    // part of the whole; transforms have no drift.
    static void RotatePlain(KSRect<long> source_rect, KSRect<long> destination_rect, KSPoint<double> center,
                            double angle, const std::uint32_t* source, std::uint32_t* destination,
                            std::uint32_t source_row_length, std::uint32_t destination_row_length);

    // RotatePlain, sampled bilinearly. There is no half-pixel offset.
    static void RotateBiLin(KSRect<long> source_rect, KSRect<long> destination_rect, KSPoint<double> center,
                            double angle, const std::uint32_t* source, std::uint32_t* destination,
                            std::uint32_t source_row_length, std::uint32_t destination_row_length);

    // Maps the source rectangle bilinearly onto the quadrilateral whose corners say where its corners go (the
    // right and lower ones are where its last pixels end), and copies the source pixel at the position
    // rounded down. Where the top and bottom sides have the same width (rounded down), the top-left corner is
    // moved right by 0.1; where the left and right sides have the same height, it is moved down by 0.1. Top
    // and bottom sides that are parallel even so write nothing: those of a parallelogram whose top goes down
    // to the right at 45 degrees, or of a slanting trapezoid. Nor do corners that go round the other way (a
    // mirror image) or are not finite. Rectangles (inclusive) and corners lie in one plane of pixel
    // coordinates.
    static void TransformPlain(KSRect<long> source_rect, KSPoint<double> top_left, KSPoint<double> top_right,
                               KSPoint<double> bottom_right, KSPoint<double> bottom_left,
                               KSRect<long> destination_rect, const std::uint32_t* source,
                               std::uint32_t* destination, std::uint32_t source_row_length,
                               std::uint32_t destination_row_length);

    // TransformPlain, sampled bilinearly half a pixel up and to the left, up to a tenth of the source's size
    // beyond its sides.
    static void TransformBiLin(KSRect<long> source_rect, KSPoint<double> top_left, KSPoint<double> top_right,
                               KSPoint<double> bottom_right, KSPoint<double> bottom_left,
                               KSRect<long> destination_rect, const std::uint32_t* source,
                               std::uint32_t* destination, std::uint32_t source_row_length,
                               std::uint32_t destination_row_length);

    // Replaces isolated specks of an image of width * height bytes without gaps between the rows, in place.
    // Bytes are compared for equality only, so they may be grey levels or indices.
    //
    // A pixel is a speck if its value is that of none of its eight neighbours and of fewer than `threshold`
    // pixels of the square of `radius` around it, whose centre row and centre column do not count. It takes
    // the value beside it (left or right; where one is missing, the other) that is the more frequent on its
    // own row up to `radius` away, the right one on a tie. All tests see the image as it was. An image one
    // pixel wide is left as it is. Throws std::bad_alloc, with the image untouched, if there is no memory for
    // a copy of it.
    static void NoiseRemover(std::uint8_t* image, std::uint32_t width, std::uint32_t height,
                             std::uint8_t radius, std::uint8_t threshold);
};
