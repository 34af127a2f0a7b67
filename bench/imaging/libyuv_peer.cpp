// SPDX-License-Identifier: MIT
// What libyuv can do of the benchmarks' tasks: copies, fills, blending onto opaque images, and arithmetic on
// channels that knows no alpha.
#include "bench/imaging/tasks.h"

#include <libyuv.h>

namespace {

using Arithmetic = int (*)(const std::uint8_t*, int, const std::uint8_t*, int, std::uint8_t*, int, int, int);

int average(const std::uint8_t* a, int a_stride, const std::uint8_t* b, int b_stride, std::uint8_t* result,
            int stride, int width, int height) {
    return libyuv::ARGBInterpolate(a, a_stride, b, b_stride, result, stride, width, height, 128);
}

Arithmetic arithmetic_of(ks_composition_mode mode) {
    switch (mode) {
    case kMergeMultiply:
        return libyuv::ARGBMultiply;
    case kMergeAdd:
        return libyuv::ARGBAdd;
    case kMergeSubtract:
        return libyuv::ARGBSubtract;
    case kMergeAverage:
        return average;
    default:
        return nullptr;
    }
}

void add_run(Contest& contest, const Composition& task) {
    if (task.mode != kMergeCopy)
        return;
    Scene& scene = *task.scene;
    contest.Add(
        "libyuv", Picture::kStraight,
        [&image = scene.destination] {
            libyuv::ARGBRect(image.Data(), image.BytesPerRow(), 0, 0, image.Width(), image.Height(), kColour);
        },
        scene.RestoreStraight());
}

void add_arithmetic(Contest& contest, const Composition& task, const char* name, Arithmetic operation,
                    bool premultiplied) {
    Scene& scene = *task.scene;
    const Image& source = premultiplied ? scene.premultiplied_source : scene.straight_source;
    const bool destination_first = task.mode == kMergeSubtract;
    contest.Add(
        name, premultiplied ? Picture::kPremultiplied : Picture::kStraight,
        [=, &image = scene.destination, &source] {
            const std::uint8_t* first = destination_first ? image.Data() : source.Data();
            const std::uint8_t* second = destination_first ? source.Data() : image.Data();
            operation(first, image.BytesPerRow(), second, image.BytesPerRow(), image.Data(),
                      image.BytesPerRow(), image.Width(), image.Height());
        },
        premultiplied ? scene.RestorePremultiplied() : scene.RestoreStraight());
}

}  // namespace

void add_libyuv(Contest& contest, const Composition& task) {
    if (task.family == Family::kRun)
        return add_run(contest, task);
    Scene& scene = *task.scene;
    if (task.mode == kMergeCopy)
        contest.Add(
            "libyuv", Picture::kStraight,
            [&scene] {
                libyuv::ARGBCopy(scene.straight_source.Data(), scene.straight_source.BytesPerRow(),
                                 scene.destination.Data(), scene.destination.BytesPerRow(),
                                 scene.destination.Width(), scene.destination.Height());
            },
            scene.RestoreStraight());
    // Blending leaves every pixel opaque.
    if (task.mode == kMergeNormal && task.destination_alphas == Alphas::kOpaque)
        add_arithmetic(contest, task, "libyuv", libyuv::ARGBBlend, true);
    if (const Arithmetic operation = arithmetic_of(task.mode))
        add_arithmetic(contest, task, "libyuv (channels only)", operation, false);
}

void add_libyuv(Contest& contest, Resampling& task) {
    if (task.kind != Resampling::Kind::kScale)
        return;
    const Image& source = task.premultiplied_source;
    contest.Add("libyuv", Picture::kPremultiplied, [&source, &task] {
        libyuv::ARGBScale(source.Data(), source.BytesPerRow(), source.Width(), source.Height(),
                          task.destination.Data(), task.destination.BytesPerRow(), task.destination.Width(),
                          task.destination.Height(),
                          task.is_bilinear ? libyuv::kFilterBilinear : libyuv::kFilterNone);
    });
}
