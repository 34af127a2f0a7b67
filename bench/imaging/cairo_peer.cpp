// SPDX-License-Identifier: MIT
// Drawing onto Cairo's image surfaces, without antialiasing. It keeps premultiplied colour.
#include "bench/imaging/tasks.h"

#include <cairo.h>

namespace {

using Surface = std::shared_ptr<cairo_surface_t>;
using Context = std::shared_ptr<cairo_t>;

Surface wrap(Image& image) {
    return Surface(cairo_image_surface_create_for_data(image.Data(), CAIRO_FORMAT_ARGB32, image.Width(),
                                                       image.Height(), image.BytesPerRow()),
                   cairo_surface_destroy);
}

Context context_on(const Surface& surface) {
    const Context context(cairo_create(surface.get()), cairo_destroy);
    cairo_set_antialias(context.get(), CAIRO_ANTIALIAS_NONE);
    return context;
}

void set_colour(cairo_t* context, std::uint32_t colour) {
    const auto channel = [&](int shift) { return (colour >> shift & 255) / 255.0; };
    cairo_set_source_rgba(context, channel(16), channel(8), channel(0), channel(24));
}

void add_path(cairo_t* context, const Drawing& task, std::size_t index) {
    if (task.kind == Drawing::Kind::kPolygons) {
        for (const KSPoint<long>& point : task.polygons[index])
            cairo_line_to(context, static_cast<double>(point.x), static_cast<double>(point.y));
        return cairo_close_path(context);
    }
    const KSRect<long>& box = task.boxes[index];
    const double x = static_cast<double>(box.left), y = static_cast<double>(box.top);
    const double width = static_cast<double>(box.PixelWidth()),
                 height = static_cast<double>(box.PixelHeight());
    switch (task.kind) {
    case Drawing::Kind::kLines:
        cairo_move_to(context, x + 0.5, y + 0.5);
        return cairo_line_to(context, static_cast<double>(box.right) + 0.5,
                             static_cast<double>(box.bottom) + 0.5);
    case Drawing::Kind::kFilledEllipses:
    case Drawing::Kind::kOutlinedEllipses:
        cairo_save(context);
        cairo_translate(context, x + width / 2, y + height / 2);
        cairo_scale(context, width / 2, height / 2);
        cairo_arc(context, 0, 0, 1, 0, 6.283185307179586);
        return cairo_restore(context);
    default:
        return cairo_rectangle(context, x, y, width, height);
    }
}

void set_source(cairo_t* context, const Drawing& task, Image& tile) {
    if (task.kind != Drawing::Kind::kPatterns)
        return set_colour(context, task.colour);
    cairo_set_source_surface(context, wrap(tile).get(), 0, 0);
    cairo_pattern_set_extend(cairo_get_source(context), CAIRO_EXTEND_REPEAT);
    cairo_pattern_set_filter(cairo_get_source(context), CAIRO_FILTER_NEAREST);
}

}  // namespace

void add_cairo(Contest& contest, const Drawing& task) {
    const Surface destination = wrap(task.scene->destination);
    const Context context = context_on(destination);
    const auto tile = std::make_shared<Image>(pattern_tile(task));
    set_source(context.get(), task, *tile);
    cairo_set_line_width(context.get(), 1);
    const bool strokes = task.kind == Drawing::Kind::kLines || task.kind == Drawing::Kind::kOutlinedEllipses;
    const std::size_t count = std::max(task.boxes.size(), task.polygons.size());
    contest.Add(
        Kind::kPeer, "Cairo", Picture::kPremultiplied,
        [=, &task] {
            cairo_surface_mark_dirty(destination.get());
            for (std::size_t i = 0; i < count; ++i) {
                add_path(context.get(), task, i);
                (strokes ? cairo_stroke : cairo_fill)(context.get());
            }
            cairo_surface_flush(destination.get());
            static_cast<void>(tile);  // The source's pixels.
        },
        task.scene->RestorePremultiplied());
}
