// SPDX-License-Identifier: MIT
// What libyuv can do of the benchmarks' tasks: copies, fills, blending onto opaque images, scaling.
#include "bench/imaging/tasks.h"

#include <libyuv.h>

namespace {

std::function<void()> composing_pass(const Composition& task) {
    Scene& scene = *task.scene;
    Image& to = scene.destination;
    if (task.family == Family::kRun) {
        if (task.mode == kMergeCopy)
            return [&to] {
                libyuv::ARGBRect(to.Data(), to.BytesPerRow(), 0, 0, to.Width(), to.Height(), kColour);
            };
        return {};
    }
    if (task.mode == kMergeCopy)
        return [&to, &from = scene.straight_source] {
            libyuv::ARGBCopy(from.Data(), from.BytesPerRow(), to.Data(), to.BytesPerRow(), to.Width(),
                             to.Height());
        };
    // Blending leaves every pixel opaque.
    if (task.mode == kMergeNormal && task.destination_alphas == Alphas::kOpaque)
        return [&to, &from = scene.premultiplied_source] {
            libyuv::ARGBBlend(from.Data(), from.BytesPerRow(), to.Data(), to.BytesPerRow(), to.Data(),
                              to.BytesPerRow(), to.Width(), to.Height());
        };
    return {};
}

}  // namespace

void add_libyuv(Contest& contest, const Composition& task) {
    const bool copies = task.mode == kMergeCopy;
    if (std::function<void()> pass = composing_pass(task))
        contest.Add(Kind::kPeer, "libyuv", copies ? Picture::kStraight : Picture::kPremultiplied,
                    std::move(pass),
                    copies ? task.scene->RestoreStraight() : task.scene->RestorePremultiplied());
}

void add_libyuv(Contest& contest, Resampling& task) {
    if (task.kind != Resampling::Kind::kScale)
        return;
    const Image& source = task.premultiplied_source;
    contest.Add(Kind::kPeer, "libyuv", Picture::kPremultiplied, [&source, &task] {
        libyuv::ARGBScale(source.Data(), source.BytesPerRow(), source.Width(), source.Height(),
                          task.destination.Data(), task.destination.BytesPerRow(), task.destination.Width(),
                          task.destination.Height(),
                          task.is_bilinear ? libyuv::kFilterBilinear : libyuv::kFilterNone);
    });
}
