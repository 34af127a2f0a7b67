// SPDX-License-Identifier: MIT
// The raster as an object: its storage, locks, place, colours and archive, and conversions of its pixels.
#include "raster/KSRaster.h"

#include "exchange/BBitmap.h"
#include "exchange/KSMessage.h"
#include "hdr/ks_assert.h"
#include "hdr/ks_math.h"
#include "raster/raster_lock.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

namespace {

constexpr char kNameField[] = "KSRaster::_name";
constexpr char kFrameField[] = "KSRaster::_frame";
constexpr char kColorSpaceField[] = "KSRaster::_color_space";
constexpr char kNativeField[] = "KSRaster::_native";
constexpr char kDataField[] = "KSRaster::_data";
constexpr std::uint32_t kDataType = 0x52415754;  // 'RAWT'

constexpr std::int32_t BytesPerPixelOf(ks_color_space space) {
    switch (space) {
    case KS_GRAY8_COLOR_SPACE:
    case KS_INDEXED8_COLOR_SPACE:
        return 1;
    case KS_RGB16_COLOR_SPACE:
        return 2;
    case KS_RGBA64_COLOR_SPACE:
        return 8;
    default:
        return 4;
    }
}

// Returns the size of a valid frame's pixels in bytes, or -1 if it does not fit 31 bits.
long StorageSize(const KSRect<long>& frame, std::int32_t bytes_per_pixel) {
    constexpr long kLongest = std::numeric_limits<std::int32_t>::max();
    const long width = frame.PixelWidth(), height = frame.PixelHeight();
    if (width <= 0 || width > kLongest / bytes_per_pixel)
        return -1;
    const long row = width * bytes_per_pixel;
    return height <= 0 || height > kLongest / row ? -1 : row * height;
}

constexpr std::uint32_t Packed(long red, long green, long blue, long alpha) {
    return static_cast<std::uint32_t>(alpha) << 24 | static_cast<std::uint32_t>(red) << 16 |
           static_cast<std::uint32_t>(green) << 8 | static_cast<std::uint32_t>(blue);
}

// Returns a - b. A result that does not fit a long wraps around, which only happens in frames without pixels.
constexpr long WrappedDifference(long a, long b) {
    return static_cast<long>(static_cast<unsigned long>(a) - static_cast<unsigned long>(b));
}

// Moves a rectangle, and returns whether its coordinates are still in range.
bool Move(KSRect<long>& rect, long dx, long dy) {
    return !__builtin_add_overflow(rect.left, dx, &rect.left) &&
           !__builtin_add_overflow(rect.right, dx, &rect.right) &&
           !__builtin_add_overflow(rect.top, dy, &rect.top) &&
           !__builtin_add_overflow(rect.bottom, dy, &rect.bottom);
}

std::unique_ptr<char[]> CopyOf(const char* text) {
    const std::size_t size = std::strlen(text) + 1;
    std::unique_ptr<char[]> copy(new char[size]);
    std::memcpy(copy.get(), text, size);
    return copy;
}

// Returns the first byte of a row.
unsigned char* RowOf(const KSRaster& raster, long index) {
    return static_cast<unsigned char*>(raster.Bits()) + index * raster.BytesPerRow();
}

// Calls `change(unit)` for each of the `Unit`s in the first `row_bytes` of each row.
template <class Unit, class Change>
void ForEachUnit(const KSRaster& raster, std::int32_t row_bytes, Change change) {
    const long rows = raster.Bits() ? raster.Height() : 0;
    for (long y = 0; y < rows; y++) {
        auto* const unit = reinterpret_cast<Unit*>(RowOf(raster, y));
        std::for_each(unit, unit + row_bytes / static_cast<std::int32_t>(sizeof(Unit)), change);
    }
}

// A bitmap of exactly the pixels of a frame.
class frame_bitmap : public BBitmap {
public:
    explicit frame_bitmap(const KSRect<long>& frame) : BBitmap(B_RGB32, frame) {}
};

// Returns the last column or row of a bitmap's memory, or -1 if there is none.
long TruncatedBound(float bound) {
    constexpr float kFarthest = 0x1p31f;
    return bound >= -kFarthest ? static_cast<long>(MIN(bound, kFarthest)) : -1;
}

}  // namespace

KSRaster::KSRaster(KSRect<long> frame, const char* name, ks_color_space space, ks_raster_native native)
    : _frame(frame), _color_space(space), _native(native) {
    KS_ASSERT(_native != kRasterNativeDontChange);
    if (name && *name)
        _name = CopyOf(name);
    _bytes_per_pixel = BytesPerPixelOf(_color_space);
    if (_frame.IsValid())
        MakeStorage();
}

KSRaster::KSRaster(const KSMessage* archive) {
    if (archive == nullptr)
        return;
    const char* name = nullptr;
    if (archive->FindString(kNameField, &name))
        _name = CopyOf(name);

    std::int32_t space = _color_space, native = _native;
    archive->FindInt32(kColorSpaceField, &space);
    archive->FindInt32(kNativeField, &native);
    _color_space = static_cast<ks_color_space>(space);
    _bytes_per_pixel = BytesPerPixelOf(_color_space);
    _native = static_cast<ks_raster_native>(native);
    archive->FindRect(kFrameField, &_frame);
    if (!_frame.IsValid())
        return;

    MakeStorage();
    const void* data = nullptr;
    std::size_t size = 0;
    if (archive->FindData(kDataField, kDataType, &data, &size) && size > 0) {
        const ks_raster_lock lock(*this);
        std::memcpy(_data, data, MIN(size, static_cast<std::size_t>(BitsLength())));
    }
}

KSRaster::KSRaster(BBitmap* bitmap, const char* name)
    : _frame(0, 0, -1, -1),
      _bytes_per_pixel(4),
      _owns_data(false),
      _native(kRasterInBBitmap),
      _bitmap(bitmap) {
    std::unique_ptr<BBitmap> until_named(bitmap);
    if (name && *name)
        _name = CopyOf(name);
    until_named.release();
    if (bitmap == nullptr)
        return;
    _frame.right = TruncatedBound(bitmap->Bounds().right);
    _frame.bottom = TruncatedBound(bitmap->Bounds().bottom);
    if (!_frame.IsValid())
        return;
    _data = static_cast<unsigned char*>(bitmap->Bits());
    _bytes_per_row = bitmap->BytesPerRow();
}

KSRaster::KSRaster(void* pixels, std::int32_t bytes_per_row, KSRect<long> frame, const char* name,
                   ks_color_space space)
    : _frame(frame), _color_space(space), _bytes_per_pixel(BytesPerPixelOf(space)), _owns_data(false) {
    KS_ASSERT(bytes_per_row % _bytes_per_pixel == 0);
    if (name && *name)
        _name = CopyOf(name);
    if (pixels == nullptr || !frame.IsValid())
        return;
    if (StorageSize(frame, _bytes_per_pixel) < 0 ||
        frame.PixelHeight() > std::numeric_limits<std::int32_t>::max() / MAX(bytes_per_row, 1))
        throw std::bad_alloc();
    KS_ASSERT(bytes_per_row >= frame.PixelWidth() * _bytes_per_pixel);
    _data = static_cast<unsigned char*>(pixels);
    _bytes_per_row = bytes_per_row;
    Lock();
}

KSRaster::KSRaster(KSRaster&& other) noexcept : KSRaster(KSRect<long>()) {
    Swap(other);
}

KSRaster& KSRaster::operator=(KSRaster&& other) noexcept {
    if (this != &other) {
        KSRaster taken(std::move(other));
        Swap(taken);
    }
    return *this;
}

void KSRaster::Swap(KSRaster& other) noexcept {
    std::swap(_name, other._name);
    std::swap(_data, other._data);
    std::swap(_pattern, other._pattern);
    std::swap(_frame, other._frame);
    std::swap(_optimized_frame, other._optimized_frame);
    std::swap(_color_space, other._color_space);
    std::swap(_drawing_mode, other._drawing_mode);
    std::swap(_bytes_per_row, other._bytes_per_row);
    std::swap(_bytes_per_pixel, other._bytes_per_pixel);
    std::swap(_lock_count, other._lock_count);
    std::swap(_high_color, other._high_color);
    std::swap(_low_color, other._low_color);
    std::swap(_owns_data, other._owns_data);
    std::swap(_native, other._native);
    std::swap(_valid, other._valid);
    std::swap(_bitmap, other._bitmap);
}

KSRaster::~KSRaster() {
    if (_native == kRasterInMemory && _data)
        Unlock();
    KS_ASSERT(_lock_count == 0);
    if (_owns_data)
        delete[] _data;
    delete _bitmap;
}

void KSRaster::MakeStorage() {
    if (_native == kRasterNativeAuto)
        _native = kRasterInMemory;
    KS_ASSERT(_native == kRasterInMemory || _native == kRasterInBBitmap);
    if (_native == kRasterInMemory) {
        AllocateMemory();
    } else {
        KS_ASSERT(_color_space == KS_RGBA_COLOR_SPACE);
        AllocateBitmap();
    }
}

void KSRaster::AllocateBitmap() {
    try {
        if (StorageSize(_frame, _bytes_per_pixel) < 0)
            throw std::bad_alloc();
        _owns_data = false;
        _bitmap = new frame_bitmap(_frame);
    } catch (...) {
        _valid = false;
        throw;
    }
    _data = static_cast<unsigned char*>(_bitmap->Bits());
    _bytes_per_row = _bitmap->BytesPerRow();
}

void KSRaster::AllocateMemory() {
    try {
        const long size = StorageSize(_frame, _bytes_per_pixel);
        if (size < 0)
            throw std::bad_alloc();
        _data = new unsigned char[static_cast<std::size_t>(size)]();
    } catch (...) {
        _valid = false;
        throw;
    }
    _bytes_per_row = static_cast<std::int32_t>(Width() * _bytes_per_pixel);
    const bool locked = Lock();
    KS_ASSERT(locked);
}

void KSRaster::InitEmpty() {
    if (IsLocked())
        ForEachUnit<unsigned char>(*this, RowBytes(), [](unsigned char& byte) { byte = 0xFF; });
}

bool KSRaster::Lock() {
    _lock_count++;
    return true;
}

void KSRaster::Unlock() {
    KS_ASSERT(_lock_count > 0);
    _lock_count--;
}

std::int32_t KSRaster::BitsLength() const {
    return _data ? static_cast<std::int32_t>(Height()) * _bytes_per_row : 0;
}

KSRect<long> KSRaster::Bounds() const {
    return {0, 0, WrappedDifference(_frame.right, _frame.left), WrappedDifference(_frame.bottom, _frame.top)};
}

void KSRaster::ResetOptmizedFrame() {
    if (_color_space != KS_RGBA_COLOR_SPACE)
        return;
    const ks_raster_lock lock(*this);
    KSRect<long> found;
    const auto visible = [](std::uint32_t word) { return word >> 24 != 0; };
    const long width = Width(), height = _data ? Height() : 0;
    for (long y = 0; y < height; y++) {
        const auto* row = reinterpret_cast<const std::uint32_t*>(RowOf(*this, y));
        const long first = std::find_if(row, row + width, visible) - row;
        if (first == width)
            continue;
        long last = width - 1;
        while (!visible(row[last]))
            last--;
        const KSRect<long> span(_frame.left + first, _frame.top + y, _frame.left + last, _frame.top + y);
        found = found.IsValid() ? KSRect<long>(MIN(found.left, span.left), found.top,
                                               MAX(found.right, span.right), span.bottom)
                                : span;
    }
    _optimized_frame = found;
}

void KSRaster::OffsetBy(long dx, long dy) {
    KSRect<long> frame = _frame, optimized = _optimized_frame;
    if (!_frame.IsValid() || !Move(frame, dx, dy) || !Move(optimized, dx, dy))
        return;
    _frame = frame;
    _optimized_frame = optimized;
}

void KSRaster::OffsetTo(long x, long y) {
    long dx, dy;
    if (!__builtin_sub_overflow(x, _frame.left, &dx) && !__builtin_sub_overflow(y, _frame.top, &dy))
        OffsetBy(dx, dy);
}

void KSRaster::PrintToStream(const char* label) const {
    if (_name && label)
        std::printf("KSRaster %s, %s\n", _name.get(), label);
    else if (label)
        std::printf("KSRaster 'no name, %s\n", label);
    else if (_name)
        std::printf("KSRaster %s\n", _name.get());
    else
        std::printf("KSRaster 'no name'\n");
    _frame.PrintToStream("Frame for KSRaster:\n   ");
}

void KSRaster::Archive(KSMessage* archive) const {
    if (archive == nullptr)
        return;
    if (_data && RowBytes() != _bytes_per_row) {
        KSRaster compact(_frame, _name.get(), _color_space);
        compact.CopyFrom(this);
        return compact.Archive(archive);
    }
    if (_name)
        archive->AddString(kNameField, _name.get());
    archive->AddRect(kFrameField, _frame);
    archive->AddInt32(kColorSpaceField, _color_space);
    archive->AddInt32(kNativeField, _native);
    archive->AddData(kDataField, kDataType, Bits(), static_cast<std::size_t>(BitsLength()));
}

std::int32_t KSRaster::RowBytes() const {
    const bool is_callers = !_owns_data && !_bitmap;
    return is_callers ? static_cast<std::int32_t>(Width() * _bytes_per_pixel) : _bytes_per_row;
}

const char* KSRaster::ArchiveFault(const KSMessage* archive) {
    if (archive == nullptr)
        return nullptr;
    std::int32_t space = KS_RGBA_COLOR_SPACE, native = kRasterInMemory;
    archive->FindInt32(kColorSpaceField, &space);
    archive->FindInt32(kNativeField, &native);
    if (native != kRasterInBBitmap && native != kRasterInMemory && native != kRasterNativeAuto)
        return "unknown storage kind";
    if (native == kRasterInBBitmap && space != KS_RGBA_COLOR_SPACE)
        return "colour space that no bitmap can hold";
    KSRect<long> frame;
    if (!archive->FindRect(kFrameField, &frame) || !frame.IsValid())
        return nullptr;
    const long expected = StorageSize(frame, BytesPerPixelOf(static_cast<ks_color_space>(space)));
    if (expected < 0)
        return "frame too large";
    const void* data = nullptr;
    std::size_t size = 0;
    if (!archive->FindData(kDataField, kDataType, &data, &size))
        return nullptr;
    if (size < static_cast<std::size_t>(expected))
        return "less pixel data than the frame asks for";
    return size > static_cast<std::size_t>(expected) ? "more pixel data than the frame asks for" : nullptr;
}

void KSRaster::SetHighColor(long red, long green, long blue, long alpha) {
    _high_color = Packed(red, green, blue, alpha);
}

void KSRaster::SetLowColor(long red, long green, long blue, long alpha) {
    _low_color = Packed(red, green, blue, alpha);
}

void KSRaster::SwapEndian() {
    const ks_raster_lock lock(*this);
    if (_bytes_per_pixel == 2)
        ForEachUnit<std::uint16_t>(*this, RowBytes(), [](std::uint16_t& u) { u = __builtin_bswap16(u); });
    else if (_bytes_per_pixel == 4)
        ForEachUnit<std::uint32_t>(*this, RowBytes(), [](std::uint32_t& u) { u = __builtin_bswap32(u); });
}

void KSRaster::FillAlpha(unsigned char alpha) {
    if (_bytes_per_pixel != 4)
        return;
    const ks_raster_lock lock(*this);
    const std::uint32_t bits = std::uint32_t{alpha} << 24;
    ForEachUnit<std::uint32_t>(*this, RowBytes(), [bits](std::uint32_t& w) { w = (w & 0x00FFFFFF) | bits; });
}

KSRaster* KSRaster::DuplicateRaster(ks_raster_native native) const {
    std::unique_ptr<KSRaster> raster;
    try {
        raster = std::make_unique<KSRaster>(_frame, _name.get(), _color_space,
                                            native == kRasterNativeDontChange ? _native : native);
    } catch (...) {
        return nullptr;
    }
    KS_ASSERT(_frame.PixelHeight() == raster->_frame.PixelHeight());
    raster->CopyFrom(this);
    return raster.release();
}

void KSRaster::CopyFrom(const KSRaster* source) {
    if (source == nullptr)
        return;
    const ks_raster_lock lock(*this);
    if (!_data || !source->_data)
        return;
    const long rows = MIN(source->Height(), Height());
    const auto row_bytes = static_cast<std::size_t>(MIN(RowBytes(), source->RowBytes()));
    for (long y = 0; y < rows; y++)
        std::memmove(RowOf(*this, y), RowOf(*source, y), row_bytes);
}
