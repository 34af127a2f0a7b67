// SPDX-License-Identifier: MIT
// The contests of drawing shapes, and of making scaled copies.
#include "bench/imaging/contests.h"
#include "bench/imaging/tasks.h"
#include "bitmaptools/KSBitmapTools.h"
#include "raster/KSRaster.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>

Image pattern_tile(const Drawing& task) {
    Image tile(8, 8);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x) {
            const bool set = task.pattern[static_cast<std::size_t>(y)] >> x & 1;
            tile.Row(y)[x] = premultiplied_pixel(set ? task.colour : task.other_colour);
        }
    return tile;
}

namespace {

constexpr int kSize = 512;
constexpr int kShapes = 200;

ks_color colour_of(std::uint32_t pixel) {
    const auto channel = [&](int shift) { return static_cast<std::uint8_t>(pixel >> shift); };
    return {channel(16), channel(8), channel(0), channel(24)};
}

void copy_into(KSRaster& raster, const Image& image) {
    std::memcpy(raster.Bits(), image.Pixels(), image.Bytes());
}

void draw_shape(KSRaster& raster, const Drawing& task, std::size_t index) {
    switch (task.kind) {
    case Drawing::Kind::kRectangles:
    case Drawing::Kind::kPatterns:
        return raster.FillRect(task.boxes[index]);
    case Drawing::Kind::kLines:
        return raster.StrokeLine(task.boxes[index]);
    case Drawing::Kind::kFilledEllipses:
        return raster.FillEllipse(task.boxes[index]);
    case Drawing::Kind::kOutlinedEllipses:
        return raster.StrokeEllipse(task.boxes[index]);
    case Drawing::Kind::kPolygons:
        return raster.FillPolygon(task.polygons[index].data(),
                                  static_cast<long>(task.polygons[index].size()));
    }
}

void set_up(KSRaster& raster, const Drawing& task) {
    raster.SetDrawingMode(kMergeNormal);
    raster.SetHighColor(colour_of(task.colour));
    raster.SetLowColor(colour_of(task.other_colour));
    raster.SetPattern(task.kind == Drawing::Kind::kPatterns ? task.pattern.data() : nullptr);
}

std::size_t shape_count(const Drawing& task) {
    return std::max(task.boxes.size(), task.polygons.size());
}

// Returns how many pixels the shapes cover, each shape counted by itself.
double covered_pixels(Drawing task) {
    KSRaster raster({0, 0, kSize - 1, kSize - 1});
    task.colour = task.other_colour = 0xFFFFFFFF;
    set_up(raster, task);
    const auto* words = static_cast<const std::uint32_t*>(raster.Bits());
    std::ptrdiff_t covered = 0;
    for (std::size_t i = 0; i < shape_count(task); ++i) {
        std::memset(raster.Bits(), 0, static_cast<std::size_t>(raster.BitsLength()));
        draw_shape(raster, task, i);
        covered += std::count(words, words + kSize * kSize, 0xFFFFFFFFu);
    }
    return static_cast<double>(covered);
}

void add_own(Contest& contest, const Drawing& task) {
    const auto raster = std::make_shared<KSRaster>(KSRect<long>(0, 0, kSize - 1, kSize - 1));
    set_up(*raster, task);
    Scene& scene = *task.scene;
    contest.AddOwn(
        Picture::kSame,
        [raster, &task] {
            for (std::size_t i = 0; i < shape_count(task); ++i)
                draw_shape(*raster, task, i);
        },
        [raster, &scene] {
            copy_into(*raster, scene.straight_start);
            scene.destination.CopyFrom(scene.straight_start);
        },
        [raster, &scene] {
            std::memcpy(scene.destination.Pixels(), raster->Bits(), scene.destination.Bytes());
        });
}

// Returns boxes of least to most pixels a side that lie inside the image.
std::vector<KSRect<long>> random_boxes(long least, long most) {
    std::mt19937 random(7);
    const auto between = [&](long low, long high) {
        return std::uniform_int_distribution<long>(low, high)(random);
    };
    std::vector<KSRect<long>> boxes;
    for (int i = 0; i < kShapes; ++i) {
        const long width = between(least, most), height = between(least, most);
        const long left = between(0, kSize - width), top = between(0, kSize - height);
        boxes.emplace_back(left, top, left + width - 1, top + height - 1);
    }
    return boxes;
}

std::vector<Drawing::Polygon> random_polygons() {
    std::vector<Drawing::Polygon> polygons;
    for (const KSRect<long>& box : random_boxes(20, 120)) {
        const double x = static_cast<double>(box.left + box.right) / 2,
                     y = static_cast<double>(box.top + box.bottom) / 2;
        polygons.emplace_back();
        for (std::size_t corner = 0; corner < 6; ++corner) {
            const double angle = static_cast<double>(corner) * 1.0471975511965976 + 0.3;
            polygons.back()[corner] = {
                std::lround(x + std::cos(angle) * static_cast<double>(box.PixelWidth()) / 2),
                std::lround(y + std::sin(angle) * static_cast<double>(box.PixelHeight()) / 2)};
        }
    }
    return polygons;
}

using AddPeer = void (*)(Contest&, const Drawing&);
constexpr AddPeer kPeers[] = {add_pixman, add_qt, add_sdl, add_agg, add_cairo};

void run_shape(Runner& runner, const std::string& shape, Drawing task) {
    for (const bool is_opaque : {true, false}) {
        const std::string name = shape + (is_opaque ? "/opaque" : "/half");
        if (!runner.Wants(name))
            continue;
        Scene scene(kSize, kSize, Alphas::kOpaque);
        task.scene = &scene;
        task.colour = is_opaque ? 0xFFC86432 : 0x80C86432;
        task.other_colour = is_opaque ? 0xFF3264C8 : 0x803264C8;
        Contest contest(name, covered_pixels(task), &scene.destination);
        add_own(contest, task);
        for (const AddPeer add : kPeers)
            add(contest, task);
        runner.Run(std::move(contest));
    }
}

// What CreateScaled adds to the tool that it calls: its result's memory, which starts transparent.
void run_copies(Runner& runner) {
    const std::string name = "CreateScaled/bilinear";
    if (!runner.Wants(name))
        return;
    KSRaster raster({0, 0, 399, 399});
    std::memcpy(raster.Bits(), picture(400, 400, Alphas::kOpaque).Pixels(),
                static_cast<std::size_t>(raster.BitsLength()));
    Contest contest(name, kSize * kSize, nullptr);
    contest.Add(Kind::kOurs, "ksimaging", Picture::kUnrelated, [&] {
        delete raster.CreateScaled(KSRect<long>(0, 0, kSize - 1, kSize - 1), true, kRasterInMemory);
    });
    const auto tool = [&](std::uint32_t* destination) {
        KSBitmapTools::ScaleBiLin(400, 400, kSize, kSize, static_cast<const std::uint32_t*>(raster.Bits()),
                                  destination, 400, kSize);
    };
    contest.Add(Kind::kOther, "the tool alone", Picture::kUnrelated,
                [tool, image = std::make_shared<Image>(kSize, kSize)] { tool(image->Pixels()); });
    contest.Add(Kind::kOther, "the tool into a new raster", Picture::kUnrelated, [tool] {
        KSRaster result({0, 0, kSize - 1, kSize - 1});
        tool(static_cast<std::uint32_t*>(result.Bits()));
    });
    runner.Run(std::move(contest));
}

}  // namespace

void run_drawing_contests(Runner& runner) {
    using Shape = Drawing::Kind;
    const std::array<std::uint8_t, 8> pattern = {0x99, 0xCC, 0x66, 0x33, 0x99, 0xCC, 0x66, 0x33};
    const auto drawing = [&](Shape shape, long least, long most) {
        return Drawing{shape, 0, nullptr, random_boxes(least, most), {}, pattern, 0};
    };
    run_shape(runner, "Rectangles of 4 to 16 pixels", drawing(Shape::kRectangles, 4, 16));
    run_shape(runner, "Rectangles of 16 to 128 pixels", drawing(Shape::kRectangles, 16, 128));
    run_shape(runner, "Lines", drawing(Shape::kLines, 8, 128));
    run_shape(runner, "Filled ellipses", drawing(Shape::kFilledEllipses, 8, 128));
    run_shape(runner, "Outlined ellipses", drawing(Shape::kOutlinedEllipses, 8, 128));
    run_shape(runner, "Patterned rectangles", drawing(Shape::kPatterns, 16, 128));
    run_shape(runner, "Polygons", Drawing{Shape::kPolygons, 0, nullptr, {}, random_polygons(), pattern, 0});
    run_copies(runner);
}
