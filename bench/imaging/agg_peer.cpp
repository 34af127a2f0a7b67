// SPDX-License-Identifier: MIT
// What AGG's pixel formats and renderers can do of the benchmarks' tasks, on premultiplied and on straight
// images. AGG consists of headers, and this unit is compiled for this processor.
#include "bench/imaging/tasks.h"

#include <agg_image_accessors.h>
#include <agg_pixfmt_rgba.h>
#include <agg_rasterizer_scanline_aa.h>
#include <agg_renderer_base.h>
#include <agg_renderer_primitives.h>
#include <agg_renderer_scanline.h>
#include <agg_rendering_buffer.h>
#include <agg_scanline_bin.h>
#include <agg_span_image_filter_rgba.h>
#include <agg_span_interpolator_linear.h>
#include <agg_span_pattern_rgba.h>
#include <agg_trans_affine.h>
#include <agg_trans_bilinear.h>

namespace {

template <template <class, class> class Adaptor>
using CompositingFormat =
    agg::pixfmt_custom_blend_rgba<Adaptor<agg::rgba8, agg::order_bgra>, agg::rendering_buffer>;

agg::rendering_buffer wrap(Image& image) {
    return agg::rendering_buffer(image.Data(), static_cast<unsigned>(image.Width()),
                                 static_cast<unsigned>(image.Height()), image.BytesPerRow());
}

agg::rgba8 agg_colour(std::uint32_t pixel) {
    return agg::rgba8(pixel >> 16 & 255, pixel >> 8 & 255, pixel & 255, pixel >> 24);
}

constexpr ModeRow<agg::comp_op_e> kOperators[] = {
    {kMergeMultiply, agg::comp_op_multiply},     {kMergeScreen, agg::comp_op_screen},
    {kMergeErase, agg::comp_op_dst_out},         {kMergeAdd, agg::comp_op_plus},
    {kMergeDarkest, agg::comp_op_darken},        {kMergeLightest, agg::comp_op_lighten},
    {kMergeDifference, agg::comp_op_difference}, {kMergeAlphaMask, agg::comp_op_dst_in},
};

// Adds a contender that composes row by row through the pixel format `Format`, made with `options`.
template <class Format, class... Options>
void add_format(Contest& contest, const Composition& task, bool premultiplied, Options... options) {
    Scene& scene = *task.scene;
    const auto buffer = std::make_shared<agg::rendering_buffer>(wrap(scene.destination));
    const auto source_buffer = std::make_shared<agg::rendering_buffer>(
        wrap(premultiplied ? scene.premultiplied_source : scene.straight_source));
    const auto colour = agg_colour(premultiplied ? premultiplied_pixel(kColour) : kColour);
    const bool copies = task.mode == kMergeCopy;
    const bool run = task.family == Family::kRun;
    contest.Add(
        Kind::kPeer, premultiplied ? "AGG native premultiplied" : "AGG native straight",
        premultiplied ? Picture::kPremultiplied : Picture::kStraight,
        [=, width = static_cast<unsigned>(scene.destination.Width()), height = scene.destination.Height()] {
            Format format(*buffer, options...);
            const Format source(*source_buffer, options...);
            for (int y = 0; y < height; ++y) {
                if (copies && run)
                    format.copy_hline(0, y, width, colour);
                else if (copies)
                    format.copy_from(*source_buffer, 0, y, 0, y, width);
                else if (run)
                    format.blend_hline(0, y, width, colour, agg::cover_full);
                else
                    format.blend_from(source, 0, y, 0, y, width, agg::cover_full);
            }
        },
        premultiplied ? scene.RestorePremultiplied() : scene.RestoreStraight());
}

// Spans hold red before blue; a source read so too keeps the bytes in their places.
using SourceFormat = agg::pixfmt_rgba32_pre;
using Accessor = agg::image_accessor_clip<SourceFormat>;

// What generates the spans of a destination from a source through a map.
template <class Interpolator, class Map> std::function<void()> sampling_pass(Resampling& task, Map map) {
    return [&task, map]() mutable {
        agg::rendering_buffer source_buffer = wrap(task.premultiplied_source);
        SourceFormat format(source_buffer);
        Accessor accessor(format, agg::rgba8(0, 0, 0, 0));
        Interpolator interpolator(map);
        const auto generate = [&](auto spans) {
            for (int y = 0; y < task.destination.Height(); ++y)
                spans.generate(reinterpret_cast<agg::rgba8*>(task.destination.Row(y)), 0, y,
                               static_cast<unsigned>(task.destination.Width()));
        };
        if (task.is_bilinear)
            generate(agg::span_image_filter_rgba_bilinear<Accessor, Interpolator>(accessor, interpolator));
        else
            generate(agg::span_image_filter_rgba_nn<Accessor, Interpolator>(accessor, interpolator));
    };
}

std::function<void()> transforming_pass(Resampling& task) {
    const auto& c = task.corners;
    const double quad[8] = {c[0].x, c[0].y, c[1].x, c[1].y, c[2].x, c[2].y, c[3].x, c[3].y};
    return sampling_pass<agg::span_interpolator_linear<agg::trans_bilinear>>(
        task, agg::trans_bilinear(quad, 0, 0, task.straight_source.Width(), task.straight_source.Height()));
}

}  // namespace

void add_agg(Contest& contest, const Composition& task) {
    if (task.mode == kMergeNormal || task.mode == kMergeCopy) {
        add_format<agg::pixfmt_bgra32_pre>(contest, task, true);
        add_format<agg::pixfmt_bgra32_plain>(contest, task, false);
        return;
    }
    const auto operation = operation_of(task.mode, kOperators);
    if (!operation)
        return;
    add_format<CompositingFormat<agg::comp_op_adaptor_rgba_pre>>(contest, task, true,
                                                                 static_cast<unsigned>(*operation));
    add_format<CompositingFormat<agg::comp_op_adaptor_rgba_plain>>(contest, task, false,
                                                                   static_cast<unsigned>(*operation));
}

void add_agg(Contest& contest, Resampling& task) {
    if (task.kind == Resampling::Kind::kTransform) {
        contest.Add(Kind::kPeer, "AGG native", Picture::kPremultiplied, transforming_pass(task));
        return;
    }
    const auto& m = task.to_source;
    contest.Add(Kind::kPeer, "AGG native", Picture::kPremultiplied,
                sampling_pass<agg::span_interpolator_linear<>>(
                    task, agg::trans_affine(m[0], m[3], m[1], m[4], m[2], m[5])));
}

namespace {

template <class Base> void draw_polygons(Base& base, const Drawing& task, agg::rgba8 colour) {
    agg::rasterizer_scanline_aa<> rasterizer;
    agg::scanline_bin scanline;
    for (const Drawing::Polygon& polygon : task.polygons) {
        rasterizer.reset();
        rasterizer.move_to_d(static_cast<double>(polygon[0].x), static_cast<double>(polygon[0].y));
        for (std::size_t i = 1; i < polygon.size(); ++i)
            rasterizer.line_to_d(static_cast<double>(polygon[i].x), static_cast<double>(polygon[i].y));
        agg::render_scanlines_bin_solid(rasterizer, scanline, base, colour);
    }
}

template <class Format, class Base> void draw_patterns(Base& base, const Drawing& task) {
    using Wrap = agg::image_accessor_wrap<Format, agg::wrap_mode_repeat_pow2, agg::wrap_mode_repeat_pow2>;
    Image tile = pattern_tile(task);
    agg::rendering_buffer buffer = wrap(tile);
    Format format(buffer);
    Wrap accessor(format);
    agg::span_pattern_rgba<Wrap> pattern(accessor, 0, 0);
    std::vector<agg::rgba8> span(static_cast<std::size_t>(task.scene->destination.Width()));
    for (const KSRect<long>& box : task.boxes)
        for (int y = static_cast<int>(box.top); y <= box.bottom; ++y) {
            const auto x = static_cast<int>(box.left), length = static_cast<int>(box.PixelWidth());
            pattern.generate(span.data(), x, y, static_cast<unsigned>(length));
            base.blend_color_hspan(x, y, length, span.data(), nullptr, agg::cover_full);
        }
}

template <class Primitives>
void draw_box(Primitives& primitives, Drawing::Kind kind, const KSRect<long>& box) {
    const auto left = static_cast<int>(box.left), top = static_cast<int>(box.top);
    const auto right = static_cast<int>(box.right), bottom = static_cast<int>(box.bottom);
    const int x = (left + right) / 2, y = (top + bottom) / 2;
    switch (kind) {
    case Drawing::Kind::kRectangles:
        return primitives.solid_rectangle(left, top, right, bottom);
    case Drawing::Kind::kLines:
        // From the middle of a pixel to the middle of another, in 1/256.
        return primitives.line(left * 256 + 128, top * 256 + 128, right * 256 + 128, bottom * 256 + 128,
                               true);
    case Drawing::Kind::kFilledEllipses:
        return primitives.solid_ellipse(x, y, x - left, y - top);
    default:
        return primitives.ellipse(x, y, x - left, y - top);
    }
}

template <class Format> void add_drawing(Contest& contest, const Drawing& task, bool premultiplied) {
    const agg::rgba8 colour = agg_colour(premultiplied ? premultiplied_pixel(task.colour) : task.colour);
    contest.Add(
        Kind::kPeer, premultiplied ? "AGG native premultiplied" : "AGG native straight",
        premultiplied ? Picture::kPremultiplied : Picture::kStraight,
        [=, &task] {
            agg::rendering_buffer buffer = wrap(task.scene->destination);
            Format format(buffer);
            agg::renderer_base<Format> base(format);
            agg::renderer_primitives<agg::renderer_base<Format>> primitives(base);
            primitives.fill_color(colour);
            primitives.line_color(colour);
            if (task.kind == Drawing::Kind::kPolygons)
                return draw_polygons(base, task, colour);
            if (task.kind == Drawing::Kind::kPatterns)
                return draw_patterns<Format>(base, task);
            for (const KSRect<long>& box : task.boxes)
                draw_box(primitives, task.kind, box);
        },
        premultiplied ? task.scene->RestorePremultiplied() : task.scene->RestoreStraight());
}

}  // namespace

void add_agg(Contest& contest, const Drawing& task) {
    add_drawing<agg::pixfmt_bgra32_pre>(contest, task, true);
    // The pattern's tile is premultiplied.
    if (task.kind != Drawing::Kind::kPatterns)
        add_drawing<agg::pixfmt_bgra32_plain>(contest, task, false);
}
