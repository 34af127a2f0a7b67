// SPDX-License-Identifier: MIT
// Rasters from and to PNG files.
#pragma once

#include "raster/KSRaster.h"

#include <memory>
#include <string>

// Returns the picture of a PNG file of any kind, as a raster with its top-left pixel at (0, 0). Throws
// std::runtime_error with the file's name if it cannot be read or is no PNG file.
std::unique_ptr<KSRaster> read_png(const std::string& path);

// Writes a raster with its alpha; PNG files hold straight colour too. Throws std::runtime_error with the
// file's name if it cannot be written.
void write_png(const KSRaster& raster, const std::string& path);
