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

constexpr ModeRow<SDL_BlendMode> kModes[] = {
    {kMergeNormal, SDL_BLENDMODE_BLEND},
    {kMergeMultiply, SDL_BLENDMODE_MUL},
    {kMergeAdd, SDL_BLENDMODE_ADD},
    {kMergeCopy, SDL_BLENDMODE_NONE},
};

}  // namespace

void add_sdl(Contest& contest, const Composition& task) {
    const auto mode = operation_of(task.mode, kModes);
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
    contest.Add(Kind::kPeer, "SDL2", copies ? Picture::kStraight : Picture::kPremultiplied, std::move(pass),
                copies ? scene.RestoreStraight() : scene.RestorePremultiplied());
}

void add_sdl(Contest& contest, Resampling& task) {
    if (task.kind != Resampling::Kind::kScale)
        return;
    const Surface source = wrap(task.premultiplied_source), destination = wrap(task.destination);
    contest.Add(Kind::kPeer, "SDL2", Picture::kPremultiplied, [=, bilinear = task.is_bilinear] {
        (bilinear ? SDL_SoftStretchLinear : SDL_SoftStretch)(source.get(), nullptr, destination.get(),
                                                             nullptr);
    });
}

namespace {

std::vector<SDL_Rect> sdl_rects(const Drawing& task) {
    std::vector<SDL_Rect> rects;
    for (const KSRect<long>& box : task.boxes)
        rects.push_back({static_cast<int>(box.left), static_cast<int>(box.top),
                         static_cast<int>(box.PixelWidth()), static_cast<int>(box.PixelHeight())});
    return rects;
}

std::function<void()> polygons_pass(const Drawing& task, SDL_Renderer* renderer) {
    const auto channel = [&](int shift) { return static_cast<std::uint8_t>(task.colour >> shift); };
    const SDL_Color colour = {channel(16), channel(8), channel(0), channel(24)};
    std::vector<SDL_Vertex> vertices;
    for (const Drawing::Polygon& p : task.polygons)
        for (std::size_t i = 1; i < 5; ++i)
            for (const KSPoint<long>& point : {p[0], p[i], p[i + 1]})
                vertices.push_back(
                    {{static_cast<float>(point.x), static_cast<float>(point.y)}, colour, {0, 0}});
    return [=] {
        SDL_RenderGeometry(renderer, nullptr, vertices.data(), static_cast<int>(vertices.size()), nullptr, 0);
    };
}

}  // namespace

void add_sdl(Contest& contest, const Drawing& task) {
    const Surface surface = wrap(task.scene->destination);
    const Renderer renderer = renderer_on(surface);
    SDL_SetRenderDrawBlendMode(renderer.get(), SDL_BLENDMODE_BLEND);
    set_colour(renderer.get(), task.colour);
    const std::vector<SDL_Rect> rects = sdl_rects(task);
    const auto count = static_cast<int>(rects.size());
    std::function<void()> pass;
    switch (task.kind) {
    case Drawing::Kind::kRectangles:
        if (task.colour >> 24 == 255)
            pass = [=] { SDL_FillRects(surface.get(), rects.data(), count, task.colour); };
        else
            pass = [=] { SDL_RenderFillRects(renderer.get(), rects.data(), count); };
        break;
    case Drawing::Kind::kLines:
        pass = [=, &task] {
            for (const KSRect<long>& box : task.boxes)
                SDL_RenderDrawLine(renderer.get(), static_cast<int>(box.left), static_cast<int>(box.top),
                                   static_cast<int>(box.right), static_cast<int>(box.bottom));
        };
        break;
    case Drawing::Kind::kPolygons:
        pass = polygons_pass(task, renderer.get());
        break;
    default:
        return;  // SDL has neither ellipses nor patterns.
    }
    contest.Add(
        Kind::kPeer, "SDL2", Picture::kPremultiplied,
        [=] {
            pass();
            SDL_RenderFlush(renderer.get());
        },
        task.scene->RestorePremultiplied());
}
