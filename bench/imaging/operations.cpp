// SPDX-License-Identifier: MIT
// The contests of reduction by area, projective maps, smooth shapes, shadows and premultiplication, with what
// the peers have of them.
#include "bench/imaging/contests.h"
#include "bench/imaging/tasks.h"
#include "bitmaptools/ks_premultiply.h"
#include "bitmaptools/ks_resample.h"
#include "raster/ks_coverage.h"

#include <QImage>
#include <QPainter>
#include <cairo.h>
#include <libyuv.h>
#include <opencv2/imgproc.hpp>

#if defined(__GNUC__) && !defined(__clang__)  // GCC 12 cannot follow AGG's cells and vertices
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wuse-after-free"
#endif
#include <agg_ellipse.h>
#include <agg_pixfmt_gray.h>
#include <agg_pixfmt_rgba.h>
#include <agg_rasterizer_scanline_aa.h>
#include <agg_renderer_scanline.h>
#include <agg_rounded_rect.h>
#include <agg_scanline_u.h>

#include <agg_blur.h>  // needs the renderer's header

#define STB_IMAGE_RESIZE_STATIC
#define STB_IMAGE_RESIZE_IMPLEMENTATION
#include <stb/stb_image_resize.h>

namespace {

KSPixels<std::uint32_t> pixels_of(Image& image) {
    return {image.Pixels(), image.Width(), {0, 0, image.Width() - 1, image.Height() - 1}};
}

QImage wrap(Image& image, QImage::Format format) {
    return QImage(image.Data(), image.Width(), image.Height(), image.BytesPerRow(), format);
}

cv::Mat matrix_of(Image& image) {
    return cv::Mat(image.Height(), image.Width(), CV_8UC4, image.Pixels(),
                   static_cast<std::size_t>(image.BytesPerRow()));
}

// Qt makes an image of its own, which a program then shows; it is copied only for the comparison.
void add_qt_reduction(Contest& contest, Resampling& task, bool premultiplied) {
    const auto format = premultiplied ? QImage::Format_ARGB32_Premultiplied : QImage::Format_ARGB32;
    const QImage source = wrap(premultiplied ? task.premultiplied_source : task.straight_source, format);
    contest.Add(Kind::kPeer, premultiplied ? "Qt premultiplied" : "Qt straight",
                premultiplied ? Picture::kPremultiplied : Picture::kStraight, [=, &task] {
                    const QImage scaled = source
                                              .scaled(task.destination.Width(), task.destination.Height(),
                                                      Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                                              .convertedTo(format);
                    std::memcpy(task.destination.Pixels(), scaled.constBits(), task.destination.Bytes());
                });
}

void run_reduction(Runner& runner, Alphas alphas, int from, int to) {
    const std::string name =
        "Reduction/" + std::to_string(from) + " to " + std::to_string(to) + "/" + name_of(alphas);
    if (!runner.Wants(name))
        return;
    Resampling task(Resampling::Kind::kScale, true, alphas, from, to);
    Image &source = task.premultiplied_source, &destination = task.destination;
    Contest contest(name, static_cast<double>(source.Count()), &destination);
    contest.AddOwn(Picture::kSame, [&] {
        ks_reduce(pixels_of(task.straight_source), pixels_of(destination).frame, pixels_of(destination));
    });
    contest.Add(Kind::kPeer, "stb", Picture::kPremultiplied, [&] {
        stbir_resize_uint8_generic(source.Data(), from, from, 0, destination.Data(), to, to, 0, 4, 3,
                                   STBIR_FLAG_ALPHA_PREMULTIPLIED, STBIR_EDGE_CLAMP, STBIR_FILTER_BOX,
                                   STBIR_COLORSPACE_LINEAR, nullptr);
    });
    contest.Add(Kind::kPeer, "libyuv", Picture::kPremultiplied, [&] {
        libyuv::ARGBScale(source.Data(), source.BytesPerRow(), from, from, destination.Data(),
                          destination.BytesPerRow(), to, to, libyuv::kFilterBox);
    });
    contest.Add(Kind::kPeer, "OpenCV", Picture::kPremultiplied,
                [from = matrix_of(source), to = matrix_of(destination)] {
                    cv::resize(from, to, to.size(), 0, 0, cv::INTER_AREA);
                });
    add_qt_reduction(contest, task, true);
    add_qt_reduction(contest, task, false);
    runner.Run(std::move(contest));
}

void run_projection(Runner& runner, bool is_bilinear, Alphas alphas) {
    const std::string name =
        std::string("Projection/") + (is_bilinear ? "bilinear/" : "plain/") + name_of(alphas);
    if (!runner.Wants(name))
        return;
    Resampling task(Resampling::Kind::kTransform, is_bilinear, alphas, 512, 512);
    Contest contest(name, static_cast<double>(task.destination.Count()), &task.destination);
    const auto map = ks_projection::ToQuadrilateral(pixels_of(task.straight_source).frame, task.corners);
    contest.AddOwn(Picture::kSame, [&] {
        (is_bilinear ? ks_project_bilinear : ks_project_plain)(pixels_of(task.straight_source), map,
                                                               pixels_of(task.destination));
    });
    add_opencv(contest, task);
    add_qt(contest, task);
    add_pixman(contest, task);
    runner.Run(std::move(contest));
}

// Boxes with round corners, or ellipses, in one colour on an opaque image.
struct RoundShapes {
    bool ellipses;
    Scene* scene;
    std::vector<KSRect<long>> boxes;
};

constexpr long kRadius = 12;

void add_agg(Contest& contest, const RoundShapes& task) {
    Scene& scene = *task.scene;
    contest.Add(
        Kind::kPeer, "AGG", Picture::kStraight,
        [&] {
            agg::rendering_buffer buffer(
                scene.destination.Data(), static_cast<unsigned>(scene.destination.Width()),
                static_cast<unsigned>(scene.destination.Height()), scene.destination.BytesPerRow());
            agg::pixfmt_bgra32_plain format(buffer);
            agg::renderer_base<agg::pixfmt_bgra32_plain> base(format);
            agg::rasterizer_scanline_aa<> rasterizer;
            agg::scanline_u8 line;
            for (const KSRect<long>& box : task.boxes) {
                const double left = static_cast<double>(box.left), top = static_cast<double>(box.top);
                const double right = static_cast<double>(box.right + 1),
                             bottom = static_cast<double>(box.bottom + 1);
                if (task.ellipses) {
                    agg::ellipse ellipse((left + right) / 2, (top + bottom) / 2, (right - left) / 2,
                                         (bottom - top) / 2);
                    rasterizer.add_path(ellipse);
                } else {
                    agg::rounded_rect rect(left, top, right, bottom, kRadius);
                    rasterizer.add_path(rect);
                }
                agg::render_scanlines_aa_solid(rasterizer, line, base, agg::rgba8(0xC8, 0x64, 0x32, 0x90));
            }
        },
        scene.RestoreStraight());
}

void add_cairo(Contest& contest, const RoundShapes& task) {
    Scene& scene = *task.scene;
    const std::shared_ptr<cairo_surface_t> surface(
        cairo_image_surface_create_for_data(scene.destination.Data(), CAIRO_FORMAT_ARGB32,
                                            scene.destination.Width(), scene.destination.Height(),
                                            scene.destination.BytesPerRow()),
        cairo_surface_destroy);
    const std::shared_ptr<cairo_t> context(cairo_create(surface.get()), cairo_destroy);
    cairo_set_source_rgba(context.get(), 0xC8 / 255.0, 0x64 / 255.0, 0x32 / 255.0, 0x90 / 255.0);
    contest.Add(
        Kind::kPeer, "Cairo", Picture::kPremultiplied,
        [=, &task, c = context.get()] {
            constexpr double kQuarter = 1.5707963267948966;
            cairo_surface_mark_dirty(surface.get());
            for (const KSRect<long>& box : task.boxes) {
                const double x = static_cast<double>(box.left), y = static_cast<double>(box.top);
                const double w = static_cast<double>(box.PixelWidth()),
                             h = static_cast<double>(box.PixelHeight());
                if (task.ellipses) {
                    cairo_save(c);
                    cairo_translate(c, x + w / 2, y + h / 2);
                    cairo_scale(c, w / 2, h / 2);
                    cairo_arc(c, 0, 0, 1, 0, 4 * kQuarter);
                    cairo_restore(c);
                } else {
                    const double r = kRadius;
                    cairo_arc(c, x + w - r, y + r, r, -kQuarter, 0);
                    cairo_arc(c, x + w - r, y + h - r, r, 0, kQuarter);
                    cairo_arc(c, x + r, y + h - r, r, kQuarter, 2 * kQuarter);
                    cairo_arc(c, x + r, y + r, r, 2 * kQuarter, 3 * kQuarter);
                    cairo_close_path(c);
                }
                cairo_fill(c);
            }
            cairo_surface_flush(surface.get());
            static_cast<void>(context);
        },
        scene.RestorePremultiplied());
}

void add_qt(Contest& contest, const RoundShapes& task) {
    Scene& scene = *task.scene;
    const auto image = std::make_shared<QImage>(wrap(scene.destination, QImage::Format_ARGB32_Premultiplied));
    const auto painter = std::make_shared<QPainter>(image.get());
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor::fromRgba(kColour));
    contest.Add(
        Kind::kPeer, "Qt", Picture::kPremultiplied,
        [image, painter, &task] {
            for (const KSRect<long>& box : task.boxes) {
                const QRectF rect(static_cast<double>(box.left), static_cast<double>(box.top),
                                  static_cast<double>(box.PixelWidth()),
                                  static_cast<double>(box.PixelHeight()));
                if (task.ellipses)
                    painter->drawEllipse(rect);
                else
                    painter->drawRoundedRect(rect, kRadius, kRadius);
            }
        },
        scene.RestorePremultiplied());
}

void run_round_shapes(Runner& runner, bool ellipses, long side) {
    const std::string name =
        std::string(ellipses ? "Smooth ellipses" : "Round rectangles") + "/" + std::to_string(side);
    if (!runner.Wants(name))
        return;
    Scene scene(512, 512, Alphas::kOpaque);
    RoundShapes task{ellipses, &scene, {}};
    for (long k = 0; k < 64; ++k) {
        const long left = k * 37 % (512 - side), top = k * 83 % (512 - side);
        task.boxes.emplace_back(left, top, left + side - 1, top + side - 1 - k % 8);
    }
    Contest contest(name, static_cast<double>(64 * side * side), &scene.destination);
    contest.AddOwn(
        Picture::kSame,
        [&] {
            for (const KSRect<long>& box : task.boxes)
                if (ellipses)
                    ks_fill_ellipse(pixels_of(scene.destination), box, ks_color_of(kColour));
                else
                    ks_fill_round_rect(pixels_of(scene.destination), box, kRadius, ks_color_of(kColour));
        },
        scene.RestoreStraight());
    add_agg(contest, task);
    add_cairo(contest, task);
    add_qt(contest, task);
    runner.Run(std::move(contest));
}

// Blurs the alphas of a mask, which the image's bytes are, four to a word.
void run_blur(Runner& runner, int radius) {
    const std::string name = "Blur/radius " + std::to_string(radius);
    if (!runner.Wants(name))
        return;
    constexpr int kSide = 512;
    Image source = random_image(kSide / 4, kSide, Alphas::kMixed, 3), destination(kSide / 4, kSide);
    const KSPixels<std::uint8_t> from(source.Data(), kSide, {0, 0, kSide - 1, kSide - 1});
    const KSPixels<std::uint8_t> to(destination.Data(), kSide, from.frame);
    Contest contest(name, kSide * kSide, &destination);
    contest.AddOwn(Picture::kSame, [&] { ks_blur(from, to, radius); });
    const cv::Mat matrix(kSide, kSide, CV_8UC1, source.Data()),
        blurred(kSide, kSide, CV_8UC1, destination.Data());
    contest.Add(Kind::kPeer, "OpenCV", Picture::kUnrelated, [=] {
        cv::boxFilter(matrix, blurred, -1, {2 * radius + 1, 2 * radius + 1}, {-1, -1}, true,
                      cv::BORDER_CONSTANT);
    });
    contest.Add(
        Kind::kPeer, "AGG stack blur", Picture::kUnrelated,
        [&] {
            agg::rendering_buffer buffer(destination.Data(), kSide, kSide, kSide);
            agg::pixfmt_gray8 format(buffer);
            agg::stack_blur_gray8(format, static_cast<unsigned>(radius), static_cast<unsigned>(radius));
        },
        [&] { destination.CopyFrom(source); });
    runner.Run(std::move(contest));
}

void run_premultiplication(Runner& runner, bool back) {
    const std::string name = back ? "Unpremultiply" : "Premultiply";
    if (!runner.Wants(name))
        return;
    Scene scene(512, 512, Alphas::kTranslucent);
    Image &source = back ? scene.premultiplied_source : scene.straight_source, &to = scene.destination;
    Contest contest(name, static_cast<double>(to.Count()), &to);
    contest.AddOwn(Picture::kUnrelated,
                   [&] { (back ? ks_unpremultiply : ks_premultiply)(pixels_of(source), pixels_of(to)); });
    contest.Add(Kind::kMemory, "memcpy", Picture::kUnrelated,
                [&] { std::memcpy(to.Data(), source.Data(), to.Bytes()); });
    contest.Add(Kind::kPeer, "libyuv", Picture::kUnrelated, [&] {
        (back ? libyuv::ARGBUnattenuate : libyuv::ARGBAttenuate)(
            source.Data(), source.BytesPerRow(), to.Data(), to.BytesPerRow(), to.Width(), to.Height());
    });
    runner.Run(std::move(contest));
}

}  // namespace

void run_operation_contests(Runner& runner) {
    for (const Alphas alphas : {Alphas::kOpaque, Alphas::kTranslucent})
        for (const auto& [from, to] : {std::pair(1024, 150), {1024, 512}, {1024, 700}})
            run_reduction(runner, alphas, from, to);
    for (const Alphas alphas : {Alphas::kOpaque, Alphas::kTranslucent})
        for (const bool is_bilinear : {false, true})
            run_projection(runner, is_bilinear, alphas);
    for (const bool ellipses : {true, false})
        for (const long side : {40, 200})
            run_round_shapes(runner, ellipses, side);
    for (const int radius : {4, 30, 200})
        run_blur(runner, radius);
    for (const bool back : {false, true})
        run_premultiplication(runner, back);
}
