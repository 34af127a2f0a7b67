// SPDX-License-Identifier: MIT
// What OpenCV can do of the benchmarks' tasks: it scales and maps.
#include "bench/imaging/tasks.h"

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

namespace {

cv::Mat wrap(Image& image) {
    return cv::Mat(image.Height(), image.Width(), CV_8UC4, image.Pixels(),
                   static_cast<std::size_t>(image.BytesPerRow()));
}

}  // namespace

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
    contest.Add(Kind::kPeer, "OpenCV", Picture::kPremultiplied, std::move(pass));
}
