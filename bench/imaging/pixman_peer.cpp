// SPDX-License-Identifier: MIT
// What pixman can do of the benchmarks' tasks. It keeps premultiplied colour.
#include "bench/imaging/tasks.h"

#include <pixman.h>

namespace {

using Handle = std::shared_ptr<pixman_image_t>;

Handle adopt(pixman_image_t* image) {
    return Handle(image, pixman_image_unref);
}

Handle wrap(Image& image) {
    return adopt(pixman_image_create_bits(PIXMAN_a8r8g8b8, image.Width(), image.Height(), image.Pixels(),
                                          image.BytesPerRow()));
}

pixman_color_t pixman_colour(std::uint32_t straight) {
    const std::uint32_t pixel = premultiplied_pixel(straight);
    const auto wide = [&](int shift) { return static_cast<std::uint16_t>((pixel >> shift & 255) * 257); };
    return {wide(16), wide(8), wide(0), wide(24)};
}

Handle solid(std::uint32_t straight) {
    const pixman_color_t colour = pixman_colour(straight);
    return adopt(pixman_image_create_solid_fill(&colour));
}

constexpr ModeRow<pixman_op_t> kOperators[] = {
    {kMergeNormal, PIXMAN_OP_OVER},
    {kMergeMultiply, PIXMAN_OP_MULTIPLY},
    {kMergeScreen, PIXMAN_OP_SCREEN},
    {kMergeErase, PIXMAN_OP_OUT_REVERSE},
    {kMergeAdd, PIXMAN_OP_ADD},
    {kMergeDarkest, PIXMAN_OP_DARKEN},
    {kMergeLightest, PIXMAN_OP_LIGHTEN},
    {kMergeDifference, PIXMAN_OP_DIFFERENCE},
    {kMergeReplaceHue, PIXMAN_OP_HSL_HUE},
    {kMergeReplaceSaturation, PIXMAN_OP_HSL_SATURATION},
    {kMergeReplaceLuminosity, PIXMAN_OP_HSL_LUMINOSITY},
    {kMergeReplaceColor, PIXMAN_OP_HSL_COLOR},
    {kMergeAlphaMask, PIXMAN_OP_IN_REVERSE},
    {kMergeCopy, PIXMAN_OP_SRC},
};

void add_operator(Contest& contest, const Composition& task, Kind kind, const char* name, Picture picture,
                  pixman_op_t operation) {
    Scene& scene = *task.scene;
    const Handle destination = wrap(scene.destination);
    const Handle source = task.family == Family::kRun ? solid(kColour) : wrap(scene.premultiplied_source);
    contest.Add(
        kind, name, picture,
        [=, &scene] {
            pixman_image_composite32(operation, source.get(), nullptr, destination.get(), 0, 0, 0, 0, 0, 0,
                                     scene.destination.Width(), scene.destination.Height());
        },
        scene.RestorePremultiplied());
}

Handle wrap_source(const Resampling& task) {
    // Pixman does not write to a source.
    const Handle source = wrap(const_cast<Image&>(task.premultiplied_source));
    // Pixman keeps 16 bits on each side of the point: a projective map, whose scale is free, is made as large
    // as the coordinates allow.
    const double scale =
        task.kind == Resampling::Kind::kTransform ? 16000.0 / task.straight_source.Width() : 1;
    pixman_transform_t transform;
    for (int i = 0; i < 9; ++i)
        transform.matrix[i / 3][i % 3] =
            pixman_double_to_fixed(scale * task.to_source[static_cast<std::size_t>(i)]);
    pixman_image_set_transform(source.get(), &transform);
    pixman_image_set_filter(source.get(), task.is_bilinear ? PIXMAN_FILTER_BILINEAR : PIXMAN_FILTER_NEAREST,
                            nullptr, 0);
    return source;
}

}  // namespace

void add_pixman(Contest& contest, const Composition& task) {
    if (const auto operation = operation_of(task.mode, kOperators))
        add_operator(contest, task, Kind::kPeer, "pixman", Picture::kPremultiplied, *operation);
    // What composing costs at least, to hold the modes against that no peer has.
    if (task.mode != kMergeNormal)
        add_operator(contest, task, Kind::kOther, "pixman OVER", Picture::kUnrelated, PIXMAN_OP_OVER);
}

void add_pixman(Contest& contest, Resampling& task) {
    contest.Add(Kind::kPeer, "pixman", Picture::kPremultiplied,
                [source = wrap_source(task), destination = wrap(task.destination), &task] {
                    pixman_image_composite32(PIXMAN_OP_SRC, source.get(), nullptr, destination.get(), 0, 0, 0,
                                             0, 0, 0, task.destination.Width(), task.destination.Height());
                });
}

namespace {

// Of several opaque boxes at once, pixman forms the union and paints each pixel once, however many cover it.
std::function<void()> boxes_pass(const Drawing& task, const Handle& destination, bool at_once) {
    std::vector<pixman_box32_t> boxes;
    for (const KSRect<long>& box : task.boxes)
        boxes.push_back({static_cast<int>(box.left), static_cast<int>(box.top),
                         static_cast<int>(box.right) + 1, static_cast<int>(box.bottom) + 1});
    return [=, colour = pixman_colour(task.colour)] {
        const std::size_t count = at_once ? boxes.size() : 1;
        for (std::size_t i = 0; i < boxes.size(); i += count)
            pixman_image_fill_boxes(PIXMAN_OP_OVER, destination.get(), &colour, static_cast<int>(count),
                                    &boxes[i]);
    };
}

std::function<void()> patterns_pass(const Drawing& task, const Handle& destination) {
    const auto tile = std::make_shared<Image>(pattern_tile(task));
    const Handle source = wrap(*tile);
    pixman_image_set_repeat(source.get(), PIXMAN_REPEAT_NORMAL);
    return [=, &task] {
        for (const KSRect<long>& box : task.boxes) {
            const int x = static_cast<int>(box.left), y = static_cast<int>(box.top);
            pixman_image_composite32(PIXMAN_OP_OVER, source.get(), nullptr, destination.get(), x, y, 0, 0, x,
                                     y, static_cast<int>(box.PixelWidth()),
                                     static_cast<int>(box.PixelHeight()));
        }
        static_cast<void>(tile);  // The source's pixels.
    };
}

std::function<void()> polygons_pass(const Drawing& task, const Handle& destination) {
    const auto fixed = [](KSPoint<long> p) {
        return pixman_point_fixed_t{pixman_int_to_fixed(static_cast<int>(p.x)),
                                    pixman_int_to_fixed(static_cast<int>(p.y))};
    };
    std::vector<std::array<pixman_triangle_t, 4>> fans;
    for (const Drawing::Polygon& p : task.polygons) {
        fans.emplace_back();
        for (std::size_t i = 0; i < 4; ++i)
            fans.back()[i] = {fixed(p[0]), fixed(p[i + 1]), fixed(p[i + 2])};
    }
    return [=, source = solid(task.colour)] {
        for (const auto& fan : fans)
            pixman_composite_triangles(PIXMAN_OP_OVER, source.get(), destination.get(), PIXMAN_a1, 0, 0, 0, 0,
                                       4, fan.data());
    };
}

}  // namespace

void add_pixman(Contest& contest, const Drawing& task) {
    const Handle destination = wrap(task.scene->destination);
    std::function<void()> pass;
    switch (task.kind) {
    case Drawing::Kind::kRectangles:
        contest.Add(Kind::kOther, "pixman at once", Picture::kPremultiplied,
                    boxes_pass(task, destination, true), task.scene->RestorePremultiplied());
        pass = boxes_pass(task, destination, false);
        break;
    case Drawing::Kind::kPatterns:
        pass = patterns_pass(task, destination);
        break;
    case Drawing::Kind::kPolygons:
        pass = polygons_pass(task, destination);
        break;
    default:
        return;  // Pixman draws neither lines nor ellipses.
    }
    contest.Add(Kind::kPeer, "pixman", Picture::kPremultiplied, std::move(pass),
                task.scene->RestorePremultiplied());
}
