// SPDX-License-Identifier: MIT
// The contests of scaling, rotating and transforming.
#include "bench/imaging/contests.h"
#include "bench/imaging/tasks.h"
#include "bitmaptools/KSBitmapTools.h"

#include <cmath>
#include <cstring>
#include <opencv2/imgproc.hpp>

namespace {

std::array<double, 9> scale_map(double factor) {
    return {factor, 0, 0, 0, factor, 0, 0, 0, 1};
}

std::array<double, 9> rotation_map(double angle, double centre) {
    const double c = std::cos(angle), s = std::sin(angle);
    return {c, -s, centre * (1 - c + s), s, c, centre * (1 - s - c), 0, 0, 1};
}

std::array<double, 9> projective_map(const std::array<KSPoint<double>, 4>& corners, int source_size) {
    const auto size = static_cast<float>(source_size);
    std::array<cv::Point2f, 4> from;
    std::transform(corners.begin(), corners.end(), from.begin(),
                   [](KSPoint<double> p) { return cv::Point2d(p.x, p.y); });
    const std::array<cv::Point2f, 4> to = {cv::Point2f(0, 0), {size, 0}, {size, size}, {0, size}};
    const cv::Mat map = cv::getPerspectiveTransform(from.data(), to.data());
    std::array<double, 9> result;
    std::copy_n(map.ptr<double>(), 9, result.begin());
    return result;
}

KSRect<long> frame_of(const Image& image) {
    return {0, 0, image.Width() - 1, image.Height() - 1};
}

std::function<void()> own_pass(Resampling& task) {
    const Image& source = task.straight_source;
    Image& destination = task.destination;
    const auto source_row = static_cast<std::uint32_t>(source.Width());
    const auto destination_row = static_cast<std::uint32_t>(destination.Width());
    switch (task.kind) {
    case Resampling::Kind::kScale:
        return [&, scale = task.is_bilinear ? KSBitmapTools::ScaleBiLin : KSBitmapTools::ScalePlain] {
            scale(source.Width(), source.Height(), destination.Width(), destination.Height(), source.Pixels(),
                  destination.Pixels(), source.Width(), destination.Width());
        };
    case Resampling::Kind::kRotate: {
        const double middle = source.Width() / 2.0;
        return [&, middle, angle = task.angle, source_row, destination_row,
                rotate = task.is_bilinear ? KSBitmapTools::RotateBiLin : KSBitmapTools::RotatePlain] {
            rotate(frame_of(source), frame_of(destination), {middle, middle}, angle, source.Pixels(),
                   destination.Pixels(), source_row, destination_row);
        };
    }
    case Resampling::Kind::kTransform:
        break;
    }
    return [&, p = task.corners, source_row, destination_row,
            transform = task.is_bilinear ? KSBitmapTools::TransformBiLin : KSBitmapTools::TransformPlain] {
        transform(frame_of(source), p[0], p[1], p[2], p[3], frame_of(destination), source.Pixels(),
                  destination.Pixels(), source_row, destination_row);
    };
}

void add_memcpy(Contest& contest, Resampling& task) {
    const auto from = std::make_shared<Image>(
        random_image(task.destination.Width(), task.destination.Height(), Alphas::kOpaque, 5));
    contest.Add(Kind::kMemory, "memcpy", Picture::kUnrelated, [&task, from] {
        for (int y = 0; y < task.destination.Height(); ++y)
            std::memcpy(task.destination.Row(y), from->Row(y),
                        static_cast<std::size_t>(task.destination.BytesPerRow()));
    });
}

using AddPeer = void (*)(Contest&, Resampling&);
constexpr AddPeer kPeers[] = {add_pixman, add_qt, add_libyuv, add_sdl, add_agg, add_opencv};

struct Operation {
    const char* name;
    Resampling::Kind kind;
    bool is_bilinear;
};

constexpr Operation kScales[] = {{"ScalePlain", Resampling::Kind::kScale, false},
                                 {"ScaleBiLin", Resampling::Kind::kScale, true}};
constexpr Operation kTurns[] = {{"RotatePlain", Resampling::Kind::kRotate, false},
                                {"RotateBiLin", Resampling::Kind::kRotate, true},
                                {"TransformPlain", Resampling::Kind::kTransform, false},
                                {"TransformBiLin", Resampling::Kind::kTransform, true}};

void run_operation(Runner& runner, const Operation& operation, const std::string& variant, Alphas alphas,
                   int source_size, int destination_size, double angle = 0.5) {
    const std::string name = std::string(operation.name) + variant + "/" + name_of(alphas) + "/" +
                             std::to_string(destination_size);
    if (!runner.Wants(name))
        return;
    Resampling task(operation.kind, operation.is_bilinear, alphas, source_size, destination_size, angle);
    Contest contest(name, static_cast<double>(task.destination.Count()), &task.destination);
    contest.AddOwn(Picture::kSame, own_pass(task));
    add_memcpy(contest, task);
    for (const AddPeer add : kPeers)
        add(contest, task);
    runner.Run(std::move(contest));
}

}  // namespace

Resampling::Resampling(Kind kind_, bool is_bilinear_, Alphas alphas, int source_size, int destination_size,
                       double angle_)
    : kind(kind_),
      is_bilinear(is_bilinear_),
      straight_source(picture(source_size, source_size, alphas)),
      premultiplied_source(premultiplied(straight_source)),
      destination(destination_size, destination_size),
      angle(angle_) {
    const double size = destination_size;
    corners = {{{0.10 * size, 0.05 * size},
                {0.95 * size, 0.12 * size},
                {0.88 * size, 0.97 * size},
                {0.04 * size, 0.86 * size}}};
    to_source = kind == Kind::kScale    ? scale_map(source_size / size)
                : kind == Kind::kRotate ? rotation_map(angle, source_size / 2.0)
                                        : projective_map(corners, source_size);
}

void run_resampling_contests(Runner& runner) {
    for (const Alphas alphas : {Alphas::kOpaque, Alphas::kTranslucent, Alphas::kMixed}) {
        for (const Operation& operation : kScales) {
            run_operation(runner, operation, "/up", alphas, 400, 512);
            run_operation(runner, operation, "/down", alphas, 700, 512);
        }
        for (const Operation& operation : kTurns)
            run_operation(runner, operation, "", alphas, 512, 512);
    }
    for (const Alphas alphas : {Alphas::kOpaque, Alphas::kTranslucent}) {
        for (const Operation& operation : kScales)
            run_operation(runner, operation, "/up", alphas, 3200, 4096);
        for (const Operation& operation : kTurns)
            run_operation(runner, operation, "", alphas, 4096, 4096);
    }
    for (const Operation& operation : kScales)
        run_operation(runner, operation, "/down", Alphas::kOpaque, 4096, 1024);
    // Steep columns of the source, whose neighbours lie in a row of 16 KiB each.
    for (const Operation& operation : kTurns)
        if (operation.kind == Resampling::Kind::kRotate) {
            run_operation(runner, operation, "/1.2 rad", Alphas::kOpaque, 4096, 4096, 1.2);
            run_operation(runner, operation, "/quarter turn", Alphas::kOpaque, 4096, 4096, std::acos(0));
        }
}
