// SPDX-License-Identifier: MIT
// PNG files through libpng's simplified interface.
#include "examples/picture_file.h"

#include <bit>
#include <png.h>
#include <stdexcept>

namespace {

// The order of the bytes of a pixel word in memory.
constexpr png_uint_32 kWordFormat =
    std::endian::native == std::endian::little ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;

// libpng's record of one file, freed whatever happens.
struct PngImage : png_image {
    PngImage() : png_image{} { version = PNG_IMAGE_VERSION; }
    PngImage(const PngImage&) = delete;
    PngImage& operator=(const PngImage&) = delete;
    ~PngImage() { png_image_free(this); }

    // Throws unless libpng says that it did what it was asked for.
    void Check(int done, const std::string& path) const {
        if (!done)
            throw std::runtime_error(path + ": " + message);
    }
};

}  // namespace

std::unique_ptr<KSRaster> read_png(const std::string& path) {
    PngImage file;
    file.Check(png_image_begin_read_from_file(&file, path.c_str()), path);
    file.format = kWordFormat;
    auto raster = std::make_unique<KSRaster>(
        KSRect<long>(0, 0, static_cast<long>(file.width) - 1, static_cast<long>(file.height) - 1));
    file.Check(png_image_finish_read(&file, nullptr, raster->Bits(), raster->BytesPerRow(), nullptr), path);
    return raster;
}

void write_png(const KSRaster& raster, const std::string& path) {
    PngImage file;
    file.width = static_cast<png_uint_32>(raster.Width());
    file.height = static_cast<png_uint_32>(raster.Height());
    file.format = kWordFormat;
    file.Check(png_image_write_to_file(&file, path.c_str(), 0, raster.Bits(), raster.BytesPerRow(), nullptr),
               path);
}
