// SPDX-License-Identifier: MIT
// Rasters and SDL surfaces show the same pixels.
#include "examples/adapters/sdl_surface.h"

#include <gtest/gtest.h>

namespace {

TEST(SdlSurfaceAdapter, ShowsTheRastersOwnPixels) {
    KSRaster raster({5, 5, 12, 8});
    const SdlSurface view = view_as_sdl_surface(raster);
    const SDL_Rect dot = {1, 2, 1, 1};
    SDL_FillRect(view.get(), &dot, SDL_MapRGBA(view->format, 10, 20, 30, 40));
    EXPECT_EQ(0x280A141Eu, static_cast<const std::uint32_t*>(raster.Bits())[2 * 8 + 1]);
}

TEST(SdlSurfaceAdapter, CopiesSurfacesOfAnyFormat) {
    for (const std::uint32_t format :
         {SDL_PIXELFORMAT_ARGB8888, SDL_PIXELFORMAT_RGBA32, SDL_PIXELFORMAT_RGB24}) {
        const SdlSurface surface(SDL_CreateRGBSurfaceWithFormat(0, 3, 2, 32, format));
        SDL_FillRect(surface.get(), nullptr, SDL_MapRGBA(surface->format, 9, 8, 7, 255));
        const auto raster = copy_from_sdl_surface(*surface);
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ(0xFF090807u, static_cast<const std::uint32_t*>(raster->Bits())[i]);
    }
}

}  // namespace
