// SPDX-License-Identifier: MIT
// The platform's bitmap: a block of 32-bit pixels with bounds.
#pragma once

#include "exchange/BRect.h"
#include "hdr/KSRect.h"
#include "hdr/ks_export.h"

#include <cstdint>
#include <memory>

// The layout of a bitmap's pixels. A pixel of B_RGB32 is the word 0xAARRGGBB: on a little-endian processor
// the bytes blue, green, red, alpha.
enum color_space : std::int32_t { B_RGB32 = 0x0008 };

// A bitmap owns its pixels, which are 0 at first. Rows follow each other from top to bottom without padding,
// and every pixel takes four bytes, whatever the colour space says.
//
// If the bounds start right of column 0 or below row 0, the memory also holds the columns and rows from 0 on,
// so that code which takes the bounds to start at (0, 0) stays inside.
class KS_EXPORT BBitmap {
public:
    // Makes a bitmap of the columns and rows from the floored left and top to the floored right and bottom.
    // Invalid bounds, and bounds with a coordinate that is not a number, give a bitmap without pixels. Both
    // flags change nothing: no view can draw into a bitmap, and its memory is always contiguous. Throws
    // std::bad_alloc if the pixels do not fit the memory, or 2^31 - 1 bytes.
    BBitmap(BRect bounds, color_space space, bool accepts_views = false, bool contiguous = false);
    virtual ~BBitmap();

    BBitmap(const BBitmap&) = delete;
    BBitmap& operator=(const BBitmap&) = delete;

    // Returns the first pixel of the top row, at a multiple of four, or null if there are no pixels. The
    // pointer is valid as long as the bitmap lives.
    void* Bits() const { return _pixels.get(); }
    // Returns the size of the pixels in bytes.
    std::int32_t BitsLength() const { return _bytes_per_row * _rows; }
    // Returns the distance in bytes from a row to the next.
    std::int32_t BytesPerRow() const { return _bytes_per_row; }
    // Returns the bounds and the colour space given to the constructor.
    BRect Bounds() const { return _bounds; }
    color_space ColorSpace() const { return _color_space; }

protected:
    // Makes a bitmap of exactly the pixels of a frame, which must be valid and take at most 2^31 - 1 bytes.
    // The bounds are the frame's coordinates. Throws std::bad_alloc.
    BBitmap(color_space space, const KSRect<long>& frame);

private:
    void Allocate(long columns, long rows);

    BRect _bounds;
    color_space _color_space;
    std::int32_t _bytes_per_row = 0;
    std::int32_t _rows = 0;
    std::unique_ptr<std::uint32_t[]> _pixels;
};
