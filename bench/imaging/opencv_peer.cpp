// SPDX-License-Identifier: MIT
// What OpenCV can do of the benchmarks' tasks. It composes nothing, but has arithmetic on channels.
#include "bench/imaging/tasks.h"

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

namespace {

cv::Mat wrap(Image& image) {
    return cv::Mat(image.Height(), image.Width(), CV_8UC4, image.Pixels(),
                   static_cast<std::size_t>(image.BytesPerRow()));
}

using Arithmetic = void (*)(cv::Mat& destination, const cv::Mat& source);

Arithmetic arithmetic_of(ks_composition_mode mode) {
    switch (mode) {
    case kMergeAdd:
        return [](cv::Mat& d, const cv::Mat& s) { cv::add(d, s, d); };
    case kMergeSubtract:
        return [](cv::Mat& d, const cv::Mat& s) { cv::subtract(d, s, d); };
    case kMergeDarkest:
        return [](cv::Mat& d, const cv::Mat& s) { cv::min(d, s, d); };
    case kMergeLightest:
        return [](cv::Mat& d, const cv::Mat& s) { cv::max(d, s, d); };
    case kMergeDifference:
        return [](cv::Mat& d, const cv::Mat& s) { cv::absdiff(d, s, d); };
    case kMergeXorMask:
        return [](cv::Mat& d, const cv::Mat& s) { cv::bitwise_xor(d, s, d); };
    default:
        return nullptr;
    }
}

}  // namespace

void add_opencv(Contest& contest, const Composition& task) {
    const Arithmetic operation = arithmetic_of(task.mode);
    if (!operation || task.family == Family::kRun)
        return;
    Scene& scene = *task.scene;
    contest.Add(
        "OpenCV (channels only)", Picture::kStraight,
        [operation, destination = wrap(scene.destination), source = wrap(scene.straight_source)]() mutable {
            operation(destination, source);
        },
        scene.RestoreStraight());
}

void add_opencv(Contest& contest, Resampling& task) {
    cv::setNumThreads(1);
    const int interpolation = task.is_bilinear ? cv::INTER_LINEAR : cv::INTER_NEAREST;
    const int flags = interpolation | cv::WARP_INVERSE_MAP;
    const cv::Mat source = wrap(task.premultiplied_source), destination = wrap(task.destination);
    // OpenCV's pixel (0, 0) has its centre at 0.
    const cv::Mat half = (cv::Mat_<double>(3, 3) << 1, 0, 0.5, 0, 1, 0.5, 0, 0, 1);
    const cv::Mat map = half.inv() * cv::Mat(3, 3, CV_64F, task.to_source.data()) * half;
    std::function<void()> pass;
    switch (task.kind) {
    case Resampling::Kind::kScale:
        pass = [=] { cv::resize(source, destination, destination.size(), 0, 0, interpolation); };
        break;
    case Resampling::Kind::kRotate:
        pass = [=, affine = cv::Mat(map.rowRange(0, 2))] {
            cv::warpAffine(source, destination, affine, destination.size(), flags, cv::BORDER_TRANSPARENT);
        };
        break;
    case Resampling::Kind::kTransform:
        pass = [=] {
            cv::warpPerspective(source, destination, map, destination.size(), flags, cv::BORDER_TRANSPARENT);
        };
        break;
    }
    contest.Add("OpenCV", Picture::kPremultiplied, std::move(pass));
}
