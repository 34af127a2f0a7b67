// SPDX-License-Identifier: MIT
// The platform's bitmap: a block of 32-bit pixels with bounds.
#pragma once

#include "hdr/KSRect.h"
#include "hdr/ks_export.h"
#include "exchange/BRect.h"

#include <cstdint>
#include <memory>

// How a bitmap's pixels are laid out. The bytes of a B_RGB32 pixel lie in memory as blue, green, red, alpha
// on a little-endian processor: it is the word 0xAARRGGBB.
enum color_space : std::int32_t { B_RGB32 = 0x0008 };

// A bitmap owns its pixels, which start out as 0. Rows follow each other from top to bottom without padding,
// and every pixel takes four bytes, whatever the colour space says.
//
// Memory reaches from column 0 and row 0 to the last column and row of the bounds, even if the bounds start
// further right or further down, so that code which takes the bounds to start at (0, 0) stays inside.
class KS_EXPORT BBitmap {
public:
    // Makes a bitmap for the whole columns and rows that `bounds` touches between its floored corners. Bounds
    // without a pixel, or with a coordinate that is not a number, give a bitmap without pixels. No view can
    // draw into a bitmap, and its memory is always contiguous: both flags change nothing. Throws
    // std::bad_alloc if the pixels do not fit the memory, or 2^31 - 1 bytes.
    BBitmap(BRect bounds, color_space space, bool accepts_views = false, bool contiguous = false);
    virtual ~BBitmap();

    BBitmap(const BBitmap&) = delete;
    BBitmap& operator=(const BBitmap&) = delete;

    // Returns the first pixel of the first row, aligned to four bytes; null if there are no pixels. Valid as
    // long as the bitmap.
    void* Bits() const { return _pixels.get(); }
    // Returns the size of the pixels in bytes.
    std::int32_t BitsLength() const { return _bytes_per_row * _rows; }
    // Returns the distance in bytes from a row to the next.
    std::int32_t BytesPerRow() const { return _bytes_per_row; }
    // Returns the bounds and the colour space given to the constructor.
    BRect Bounds() const { return _bounds; }
    color_space ColorSpace() const { return _color_space; }

protected:
    // Makes a bitmap of exactly the pixels of a valid frame, which must fit the memory's 2^31 - 1 bytes. The
    // bounds are the frame's coordinates.
    BBitmap(color_space space, const KSRect<long>& frame);

private:
    void Allocate(long columns, long rows);

    BRect _bounds;
    color_space _color_space;
    std::int32_t _bytes_per_row = 0;
    std::int32_t _rows = 0;
    std::unique_ptr<std::uint32_t[]> _pixels;
};
