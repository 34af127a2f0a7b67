// SPDX-License-Identifier: MIT
// What SDL's software blits and software renderer can do of the benchmarks' tasks. A blended source is
// straight, the destination premultiplied.
#include "bench/imaging/tasks.h"

#include <SDL2/SDL.h>

namespace {

using Surface = std::shared_ptr<SDL_Surface>;
using Renderer = std::shared_ptr<SDL_Renderer>;

Surface wrap(Image& image) {
    return Surface(SDL_CreateRGBSurfaceWithFormatFrom(image.Pixels(), image.Width(), image.Height(), 32,
                                                      image.BytesPerRow(), SDL_PIXELFORMAT_ARGB8888),
                   SDL_FreeSurface);
}

// The renderer keeps its surface alive.
Renderer renderer_on(const Surface& surface) {
    return Renderer(SDL_CreateSoftwareRenderer(surface.get()),
                    [surface](SDL_Renderer* renderer) { SDL_DestroyRenderer(renderer); });
}

void set_colour(SDL_Renderer* renderer, std::uint32_t colour) {
    const auto channel = [&](int shift) { return static_cast<std::uint8_t>(colour >> shift); };
    SDL_SetRenderDrawColor(renderer, channel(16), channel(8), channel(0), channel(24));
}

std::optional<SDL_BlendMode> blend_mode_of(ks_composition_mode mode) {
    switch (mode) {
    case kMergeNormal:
        return SDL_BLENDMODE_BLEND;
    case kMergeMultiply:
        return SDL_BLENDMODE_MUL;
    case kMergeAdd:
        return SDL_BLENDMODE_ADD;
    case kMergeCopy:
        return SDL_BLENDMODE_NONE;
    default:
        return std::nullopt;
    }
}

}  // namespace

void add_sdl(Contest& contest, const Composition& task) {
    const auto mode = blend_mode_of(task.mode);
    if (!mode)
        return;
    Scene& scene = *task.scene;
    const Surface destination = wrap(scene.destination);
    const bool copies = task.mode == kMergeCopy;
    std::function<void()> pass;
    if (task.family == Family::kArray) {
        const Surface source = wrap(scene.straight_source);
        SDL_SetSurfaceBlendMode(source.get(), *mode);
        pass = [=] { SDL_BlitSurface(source.get(), nullptr, destination.get(), nullptr); };
    } else if (copies) {
        pass = [=] { SDL_FillRect(destination.get(), nullptr, kColour); };
    } else {
        const Renderer renderer = renderer_on(destination);
        SDL_SetRenderDrawBlendMode(renderer.get(), *mode);
        set_colour(renderer.get(), kColour);
        pass = [=] {
            SDL_RenderFillRect(renderer.get(), nullptr);
            SDL_RenderFlush(renderer.get());
        };
    }
    contest.Add("SDL2", copies ? Picture::kStraight : Picture::kPremultiplied, std::move(pass),
                copies ? scene.RestoreStraight() : scene.RestorePremultiplied());
}

void add_sdl(Contest& contest, Resampling& task) {
    if (task.kind != Resampling::Kind::kScale)
        return;
    const Surface source = wrap(task.premultiplied_source), destination = wrap(task.destination);
    contest.Add("SDL2", Picture::kPremultiplied, [=, bilinear = task.is_bilinear] {
        (bilinear ? SDL_SoftStretchLinear : SDL_SoftStretch)(source.get(), nullptr, destination.get(),
                                                             nullptr);
    });
}
