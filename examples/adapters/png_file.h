// SPDX-License-Identifier: MIT
// Rasters from and to PNG files, by libpng.
#pragma once

#include "raster/KSRaster.h"
#include "raster/ks_coverage.h"

#include <bit>
#include <png.h>
#include <stdexcept>
#include <string>

// libpng's record of one file, freed whatever happens.
struct PngFile : png_image {
    explicit PngFile(const std::string& path_) : png_image{}, path(path_) { version = PNG_IMAGE_VERSION; }
    PngFile(const PngFile&) = delete;
    PngFile& operator=(const PngFile&) = delete;
    ~PngFile() { png_image_free(this); }

    // Throws unless libpng says that it did what it was asked for.
    void Check(int done) const {
        if (!done)
            throw std::runtime_error(path + ": " + message);
    }
    // Reads the file's size, and returns the frame of such a picture.
    KSRect<long> Begin() {
        Check(png_image_begin_read_from_file(this, path.c_str()));
        return {0, 0, static_cast<long>(width) - 1, static_cast<long>(height) - 1};
    }

    std::string path;
};

// The order of the bytes of a pixel word in memory.
inline constexpr png_uint_32 kPngWords =
    std::endian::native == std::endian::little ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;

// Returns the picture of a PNG file of any kind, as a raster with its top left pixel at (0, 0). Throws
// std::runtime_error with the file's name if it cannot be read or is no PNG file.
inline KSRaster read_png(const std::string& path) {
    PngFile file(path);
    KSRaster raster(file.Begin());
    file.format = kPngWords;
    file.Check(png_image_finish_read(&file, nullptr, raster.Bits(), raster.BytesPerRow(), nullptr));
    return raster;
}

// Returns its grey levels, one byte a pixel. Throws as above.
inline KSMask read_grey_png(const std::string& path) {
    PngFile file(path);
    KSMask levels(file.Begin());
    file.format = PNG_FORMAT_GRAY;
    const png_color black{};  // under pixels that are not opaque
    file.Check(png_image_finish_read(&file, &black, levels.bytes.data(), 0, nullptr));
    return levels;
}

// Writes a raster with its alpha; PNG files hold straight colour too. Throws std::runtime_error with the
// file's name if it cannot be written.
inline void write_png(const KSRaster& raster, const std::string& path) {
    PngFile file(path);
    file.width = static_cast<png_uint_32>(raster.Width());
    file.height = static_cast<png_uint_32>(raster.Height());
    file.format = kPngWords;
    file.Check(png_image_write_to_file(&file, path.c_str(), 0, raster.Bits(), raster.BytesPerRow(), nullptr));
}
