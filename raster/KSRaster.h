// SPDX-License-Identifier: MIT
// The raster: an image of 32-bit pixels with a place in a coordinate plane. It can be drawn on and copied.
#pragma once

#include "hdr/KSList.h"
#include "hdr/KSPixels.h"
#include "hdr/KSPoint.h"
#include "hdr/KSRect.h"
#include "hdr/ks_color.h"
#include "hdr/ks_export.h"
#include "merge/KSMerge.h"

#include <cstdint>
#include <memory>

class BBitmap;
class KSMessage;
class ks_painter;

// Where a raster keeps its pixels.
enum ks_raster_native : std::int32_t {
    kRasterNativeDontChange = 0,  // as the raster that is copied; for DuplicateRaster only
    kRasterInBBitmap = 1,         // in a BBitmap that the raster owns
    kRasterInMemory = 2,          // in memory of its own, rows without gaps, all pixels 0 at first
    kRasterNativeAuto = 3,        // the raster chooses: kRasterInMemory
};

// The layout of a raster's pixels. Drawing, scaling and everything that looks at alpha is for
// KS_RGBA_COLOR_SPACE. Of the other layouts a raster only knows the size of a pixel.
enum ks_color_space : std::int32_t {
    KS_GRAY8_COLOR_SPACE = 0,     // one byte
    KS_INDEXED8_COLOR_SPACE = 1,  // one byte
    KS_RGB16_COLOR_SPACE = 2,     // two bytes
    KS_RGBA_COLOR_SPACE = 3,      // four bytes: the word 0xAARRGGBB; unnamed values take four too
    KS_RGBA64_COLOR_SPACE = 4,    // eight bytes
};

// Where a polygon's edges cross one row: what KSRaster::polyline records.
struct ks_polyline_entry {
    std::int32_t scanline;  // the row
    std::int32_t first;     // the column of the edge that was recorded first
    std::int32_t second;    // the column of the latest further edge; below -32000 there is none
};

// A rectangle of pixels with a place in the plane (its frame), drawing state, and a counter of users.
//
// Coordinates are those of the plane, x to the right and y downwards, rectangles with both ends included.
// The pixel (x, y) lies at Bits() + (y - top) * BytesPerRow() + (x - left) * BytesPerPixel(). It is the word
// 0xAARRGGBB in host byte order, with straight colour and alpha 255 for opaque.
//
// Drawing. A primitive composes every pixel that it paints with the pixel that is there, by the drawing mode
// at opacity 255: rectangles and spans of one colour as KSMerge::hash_color_func does, pixels and patterns as
// KSMerge::hash_pixel_func does (only kMergeErase tells the two apart). Primitives clip to the frame, report
// nothing, and take time in proportion to what lies inside the frame. Where a primitive says that it paints a
// pixel twice, modes like kMergeAdd show it. Coordinates may be any long. Rectangles and pixels are exact for
// all of them; any other shape with a coordinate outside the signed 32-bit range paints nothing. Nothing is
// painted on a raster whose pixels do not take four bytes. Primitives take no raster lock.
//
// A raster with an invalid frame is valid and has no pixels. The constructors throw std::bad_alloc if the
// pixels would take more than 2^31 - 1 bytes, as for any lack of memory.
//
// Contracts are checked by assertions, which abort the process. A raster may be used by one thread at a time,
// or by several that only call const operations. Functions that work on views of its pixels may run on
// several threads as far as these have no pixel in common.
class KS_EXPORT KSRaster {
public:
    // Makes a raster for `frame`, with a copy of `name` unless that is null or empty. An in-memory raster is
    // locked once until it is destroyed. Asserts that `native` is a storage kind, and that a
    // kRasterInBBitmap raster is KS_RGBA_COLOR_SPACE.
    KSRaster(KSRect<long> frame, const char* name = nullptr, ks_color_space space = KS_RGBA_COLOR_SPACE,
             ks_raster_native native = kRasterInMemory);
    // Makes a raster from the fields that Archive writes. A field that is missing keeps its initial value; a
    // null archive, or one without a valid frame, gives a raster without pixels. As many bytes of pixels are
    // copied as both the archive and the raster have. Storage kind and colour space are asserted as above, so
    // ask ArchiveFault first if the archive comes from outside.
    explicit KSRaster(const KSMessage* archive);
    // Makes a raster from a bitmap, which it owns from now on. The frame starts at (0, 0) and ends at the
    // bitmap's right and bottom, without their fractions, wherever its left and top are. A null bitmap gives
    // a raster without pixels. Holds no lock. Throws std::bad_alloc, with the bitmap deleted.
    explicit KSRaster(BBitmap* bitmap, const char* name = nullptr);

    // Makes a raster on pixels of the caller's, who frees them after the raster is gone. The first one is at
    // the frame's top left; `bytes_per_row` is the distance to the next row, at least the width, and a
    // multiple of the size of a pixel, at a multiple of which `pixels` lies too. The bytes between the rows
    // are neither read nor written. Otherwise the raster is like one in memory, and so are its duplicates and
    // archives. Null pixels or an invalid frame give a raster without pixels. Throws std::bad_alloc if
    // Height() * bytes_per_row is above 2^31 - 1.
    KSRaster(void* pixels, std::int32_t bytes_per_row, KSRect<long> frame, const char* name = nullptr,
             ks_color_space space = KS_RGBA_COLOR_SPACE);

    KSRaster(const KSRaster&) = delete;
    KSRaster& operator=(const KSRaster&) = delete;
    // Takes all that the other raster is: pixels, place, name, drawing state and locks. What is left is a
    // raster without pixels. Views and pointers to the pixels stay valid.
    KSRaster(KSRaster&& other) noexcept;
    // Asserts of the raster that is replaced what the destructor asserts.
    KSRaster& operator=(KSRaster&& other) noexcept;

    // Frees the pixels, unless they are the caller's, and the bitmap. Asserts that all locks are released but
    // the one that an in-memory raster holds itself.
    virtual ~KSRaster();

    // Sets all bytes of the pixels to 255 (opaque white) if the raster is locked, as one in memory always is.
    void InitEmpty();

    // Counts one more user of the pixels; always true. This is no thread lock.
    bool Lock();
    // Counts one user less; asserts that there is one. The lock that an in-memory raster holds itself counts
    // too: one Unlock too many then stops the process only when the raster is destroyed.
    void Unlock();
    bool IsLocked() const { return _lock_count > 0; }

    // Returns the first byte of the top row, or null if there are no pixels. The pointer is valid as long as
    // the raster lives.
    void* Bits() const { return _data; }
    // Returns the size of the pixels in bytes: Height() * BytesPerRow(), or 0 if there are none.
    std::int32_t BitsLength() const;
    // Returns the distance in bytes from one row to the next; 0 if there are no pixels.
    std::int32_t BytesPerRow() const { return _bytes_per_row; }
    std::int32_t BytesPerPixel() const { return _bytes_per_pixel; }
    ks_color_space ColorSpace() const { return _color_space; }
    // Returns the pixels with their place, for functions that work on any pixels. The view is empty if there
    // are none or if they do not take four bytes. It is valid as long as the raster lives and is not moved or
    // assigned.
    KSPixels<std::uint32_t> Pixels() {
        return _data && _bytes_per_pixel == 4
                   ? KSPixels(reinterpret_cast<std::uint32_t*>(_data), _bytes_per_row / 4, _frame)
                   : KSPixels<std::uint32_t>();
    }
    KSPixels<const std::uint32_t> Pixels() const { return const_cast<KSRaster*>(this)->Pixels(); }
    operator KSPixels<std::uint32_t>() { return Pixels(); }
    operator KSPixels<const std::uint32_t>() const { return Pixels(); }
    // Return the frame, and its size in pixels.
    long Width() const { return _frame.PixelWidth(); }
    long Height() const { return _frame.PixelHeight(); }
    KSRect<long> Frame() const { return _frame; }
    // Returns the frame moved to (0, 0).
    KSRect<long> Bounds() const;
    // Returns the frame's top left pixel.
    KSPoint<long> Origin() const { return {_frame.left, _frame.top}; }
    // Returns true for every raster that was made: one without pixels is valid too, and a lack of memory
    // throws. Ask for Bits() whether there are pixels.
    bool IsValid() const { return _valid; }
    // Returns the name, or "KSRaster" if there is none.
    const char* Name() const { return _name ? _name.get() : "KSRaster"; }
    // Returns the bitmap that holds the pixels, or null if none does. The raster still owns it.
    BBitmap* GetBBitmap() const { return _bitmap; }

    // Returns the bounding box of the pixels whose alpha is not 0, as ResetOptmizedFrame last found it. It
    // has since moved with the frame. It is (1, 1, -1, -1) at first, and if there are no such pixels.
    KSRect<long> OptimizedFrame() const { return _optimized_frame; }
    // Finds that bounding box anew; does nothing unless the colour space is KS_RGBA_COLOR_SPACE.
    void ResetOptmizedFrame();

    // Moves the frame and the optimized frame; the pixels stay where they are in memory. Does nothing if the
    // frame is invalid, or if a coordinate would leave the range of long.
    void OffsetBy(long dx, long dy);
    void OffsetBy(KSPoint<long> delta) { OffsetBy(delta.x, delta.y); }
    // Moves the frame so that its top left pixel is (x, y).
    void OffsetTo(long x, long y);
    void OffsetTo(KSPoint<long> where) { OffsetTo(where.x, where.y); }

    // Writes name, label (if not null) and frame to standard output.
    void PrintToStream(const char* label = nullptr) const;

    // Adds name, frame, colour space, storage kind and pixels to a message; docs/archive-format.md lists the
    // fields. Does nothing for a null message. Throws std::bad_alloc.
    void Archive(KSMessage* archive) const;
    // Returns null if the archive constructor would take everything in `archive` as it is, or a static
    // English text that says what is wrong: a storage kind or colour space that constructors refuse, a frame
    // that is too large, or pixel data of another size than the frame's. Returns null for a null archive.
    static const char* ArchiveFault(const KSMessage* archive);

    // Reverses the bytes of each pixel of two or four bytes in place; does nothing for other sizes.
    void SwapEndian();
    // Sets the alpha of every pixel and leaves its colour; does nothing unless pixels take four bytes.
    void FillAlpha(unsigned char alpha);

    // Returns a new raster with this one's frame, name, colour space and pixels, or null if it cannot be
    // made. Drawing state and optimized frame are those of a new raster. The caller deletes it.
    KSRaster* DuplicateRaster(ks_raster_native native = kRasterNativeDontChange) const;
    // Returns the same as an owner.
    std::unique_ptr<KSRaster> Duplicate(ks_raster_native native = kRasterNativeDontChange) const {
        return std::unique_ptr<KSRaster>(DuplicateRaster(native));
    }
    // Copies the rows and bytes that both rasters have, from top left to top left, whatever their frames and
    // colour spaces. Does nothing for a null source.
    void CopyFrom(const KSRaster* source);

    // Returns a new raster for `frame` that holds this image resized to it, bilinearly (with the sides that
    // KSBitmapTools::ScaleBiLin describes) or by nearest neighbour; an image of the same size is copied. The
    // new raster has this one's name, and the drawing state and optimized frame of a new raster. The caller
    // deletes it. `native` is as for the constructor. Returns null if the frame is invalid, or if this
    // raster's pixels do not take four bytes. If this raster has no pixels, the new one is transparent.
    // Throws std::bad_alloc.
    KSRaster* CreateScaled(KSRect<long> frame, bool bilinear, ks_raster_native native) const;
    // Returns the same as an owner.
    std::unique_ptr<KSRaster> Scaled(KSRect<long> frame, bool bilinear = true,
                                     ks_raster_native native = kRasterInMemory) const {
        return std::unique_ptr<KSRaster>(CreateScaled(frame, bilinear, native));
    }
    // Returns a new in-memory raster for `frame` that holds this image reduced to it by ks_reduce. What that
    // does not do stays transparent: use Scaled to enlarge. Name and state are as above. Returns null and
    // throws as above.
    std::unique_ptr<KSRaster> Reduced(KSRect<long> frame) const;
    // Returns the largest frame with this image's proportions that fits a box, in its middle: at most as
    // large as the image itself, and at least one pixel wide and high. Sides are rounded to the nearest.
    // Returns an invalid frame if this one or the box is invalid.
    KSRect<long> FittedInto(KSRect<long> box) const;
    // Returns a new in-memory raster that holds this image with its top left, top right, bottom right and
    // bottom left corners at p1 to p4, then rotated about `center` by `angle` radians if that is not 0 (pi /
    // 2 moves the content to the right of the centre up). An upright rectangle is resized to the rounded
    // corners. Any other shape has a transparent margin of 16 pixels around it, and so has a rotated image.
    //
    // Corners are places in the plane of the result; the place of this raster's frame does not matter. The
    // right and lower corners are the last pixels of an upright rectangle; of any other shape they are where
    // the last pixels end. Mirror images are not made: an upright rectangle with its sides swapped gives
    // null, and other corners for which KSBitmapTools::TransformPlain writes nothing give a transparent
    // raster.
    //
    // Name, state and ownership are as above. Returns null as above, and if an argument is not finite. Throws
    // std::bad_alloc.
    KSRaster* CreateScaled(KSPoint<double> p1, KSPoint<double> p2, KSPoint<double> p3, KSPoint<double> p4,
                           bool bilinear, double angle, KSPoint<double> center) const;

    // Sets the mode by which primitives compose; it is kMergeOver at first. Primitives assert that it is one
    // of the kMergeCount modes.
    void SetDrawingMode(ks_composition_mode mode) { _drawing_mode = mode; }
    // Set the colour that primitives paint in (opaque white at first), and the colour of a pattern's clear
    // bits (transparent at first). Components are 0 to 255 and are not clamped: a component's higher bits are
    // set in the components before it in 0xAARRGGBB (a red of 300 changes alpha, a green of 300 changes red).
    void SetHighColor(ks_color color) { _high_color = ks_pixel_word(color); }
    void SetHighColor(long red, long green, long blue, long alpha);
    void SetLowColor(ks_color color) { _low_color = ks_pixel_word(color); }
    void SetLowColor(long red, long green, long blue, long alpha);
    // Sets the pattern of eight bytes that primitives paint; null paints solid. The pixel (x, y) takes the
    // high colour if bit x & 7 (bit 0 is the least) of byte y & 7 is set, so a pattern is fixed to the plane.
    // The caller owns the bytes, which must live as long as the pattern is set.
    void SetPattern(const unsigned char* pattern) { _pattern = pattern; }

    // Fills a rectangle; a reversed one paints nothing.
    void FillRect(long left, long top, long right, long bottom);
    void FillRect(KSPoint<long> a, KSPoint<long> b) { FillRect(a.x, a.y, b.x, b.y); }
    void FillRect(KSRect<long> r) { FillRect(r.left, r.top, r.right, r.bottom); }

    // Fills the four edges of a rectangle: top, bottom, left, right. Corners are painted twice.
    void StrokeRect(long left, long top, long right, long bottom);
    void StrokeRect(KSPoint<long> a, KSPoint<long> b) { StrokeRect(a.x, a.y, b.x, b.y); }
    void StrokeRect(KSRect<long> r) { StrokeRect(r.left, r.top, r.right, r.bottom); }

    // Draws a line with both its ends by Bresenham's algorithm. An upright or level line is a rectangle.
    void StrokeLine(long x1, long y1, long x2, long y2);
    void StrokeLine(KSPoint<long> a, KSPoint<long> b) { StrokeLine(a.x, a.y, b.x, b.y); }
    void StrokeLine(KSRect<long> r) { StrokeLine(r.left, r.top, r.right, r.bottom); }

    // Paints one pixel.
    void PutPixel(long x, long y);
    void PutPixel(KSPoint<long> p) { PutPixel(p.x, p.y); }

    // Draws the outline of the ellipse in the box from (x1, y1) to (x2, y2) by the midpoint algorithm. Its
    // centre is the box's centre, rounded towards zero, and its radii reach to x1 and y1, so the last column
    // or row of a box of even size stays free. Pixels on the axes are painted twice. A reversed box paints
    // nothing.
    void StrokeEllipse(long x1, long y1, long x2, long y2);
    void StrokeEllipse(KSPoint<long> a, KSPoint<long> b) { StrokeEllipse(a.x, a.y, b.x, b.y); }
    void StrokeEllipse(KSRect<long> r) { StrokeEllipse(r.left, r.top, r.right, r.bottom); }

    // Fills the same ellipse by spans that start at its axes: level ones where the outline is steep, upright
    // ones where it is flat. A pixel is painted once for each span that it lies in, the centre eight times.
    void FillEllipse(long x1, long y1, long x2, long y2);
    void FillEllipse(KSPoint<long> a, KSPoint<long> b) { FillEllipse(a.x, a.y, b.x, b.y); }
    void FillEllipse(KSRect<long> r) { FillEllipse(r.left, r.top, r.right, r.bottom); }

    // Fills the polygon of points[0] to points[count - 1], which should be convex: each row is painted
    // between the first and the latest edge that crosses it. The topmost row is not painted, and crossings
    // left of column -32000 do not count. A count below 1 reads and paints nothing. Throws std::bad_alloc.
    void FillPolygon(const KSPoint<long>* points, long count);
    // Fills a triangle row by row, except rows where it is one column wide. The row of the middle corner is
    // painted twice unless another corner lies on it.
    void FillTriangle(KSPoint<long> a, KSPoint<long> b, KSPoint<long> c);

    // Records for FillPolygon where the edge from (x1, y1) to (x2, y2) crosses the rows of the frame: in the
    // row's record if there is one, or else in a new one at the end. The row of the upper end is not crossed.
    // Throws std::bad_alloc.
    void polyline(long x1, long y1, long x2, long y2, KSList<ks_polyline_entry>& crossings) const;

private:
    friend class ks_painter;

    // How much of a row belongs to the raster: what lies behind the caller's pixels does not.
    std::int32_t RowBytes() const;
    void Swap(KSRaster& other) noexcept;
    void MakeStorage();
    void AllocateBitmap();
    void AllocateMemory();

    std::unique_ptr<char[]> _name;
    unsigned char* _data = nullptr;
    const unsigned char* _pattern = nullptr;
    KSRect<long> _frame;
    KSRect<long> _optimized_frame;
    ks_color_space _color_space = KS_RGBA_COLOR_SPACE;
    ks_composition_mode _drawing_mode = kMergeOver;
    std::int32_t _bytes_per_row = 0;
    std::int32_t _bytes_per_pixel = 0;
    std::int32_t _lock_count = 0;
    std::uint32_t _high_color = 0xFFFFFFFF;
    std::uint32_t _low_color = 0x00000000;
    bool _owns_data = true;
    ks_raster_native _native = kRasterInMemory;
    bool _valid = true;
    BBitmap* _bitmap = nullptr;
};
