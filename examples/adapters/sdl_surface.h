// SPDX-License-Identifier: MIT
// Rasters and SDL's surfaces.
#pragma once

#include "raster/KSRaster.h"

#include <SDL.h>
#include <cstring>
#include <memory>

struct SdlSurfaceDeleter {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using SdlSurface = std::unique_ptr<SDL_Surface, SdlSurfaceDeleter>;

// Returns a surface that shows the raster's own pixels, without a copy: what either draws, both hold. Blits
// from it blend straight colour, as SDL does by itself. It is valid as long as the raster lives; null where
// SDL has no memory for it.
inline SdlSurface view_as_sdl_surface(KSRaster& raster) {
    return SdlSurface(SDL_CreateRGBSurfaceWithFormatFrom(raster.Bits(), static_cast<int>(raster.Width()),
                                                         static_cast<int>(raster.Height()), 32,
                                                         raster.BytesPerRow(), SDL_PIXELFORMAT_ARGB8888));
}

// Returns a raster with its top-left pixel at (0, 0) and the pixels of a surface of any format; null where
// SDL cannot convert it (SDL_GetError says why).
inline std::unique_ptr<KSRaster> copy_from_sdl_surface(SDL_Surface& surface) {
    const SdlSurface words(SDL_ConvertSurfaceFormat(&surface, SDL_PIXELFORMAT_ARGB8888, 0));
    if (!words)
        return nullptr;
    auto raster = std::make_unique<KSRaster>(KSRect<long>(0, 0, words->w - 1, words->h - 1));
    auto* rows = static_cast<unsigned char*>(raster->Bits());
    const auto row_bytes = static_cast<std::size_t>(raster->BytesPerRow());
    for (int y = 0; y < words->h; ++y)
        std::memcpy(rows + static_cast<std::size_t>(y) * row_bytes,
                    static_cast<const unsigned char*>(words->pixels) +
                        static_cast<std::ptrdiff_t>(y) * words->pitch,
                    row_bytes);
    return raster;
}
