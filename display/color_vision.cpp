// SPDX-License-Identifier: MIT
#include "display/color_vision.h"

#include "display/contrast.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using Vector = std::array<double, 3>;
using Matrix = std::array<Vector, 3>;

Vector operator*(const Matrix& m, const Vector& v) {
    const auto row = [&](std::size_t i) { return m[i][0] * v[0] + m[i][1] * v[1] + m[i][2] * v[2]; };
    return {row(0), row(1), row(2)};
}

// By ColorVision, without the usual one.
constexpr Matrix kVision[] = {
    {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
    {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
    {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}},
};

// From linear sRGB to Oklab's cone responses, from their cube roots to Oklab, and back.
constexpr Matrix kToCones = {{{0.4122214708, 0.5363325363, 0.0514459929},
                              {0.2119034982, 0.6806995451, 0.1073969566},
                              {0.0883024619, 0.2817188376, 0.6299787005}}};
constexpr Matrix kToLab = {{{0.2104542553, 0.7936177850, -0.0040720468},
                            {1.9779984951, -2.4285922050, 0.4505937099},
                            {0.0259040371, 0.7827717662, -0.8086757660}}};
constexpr Matrix kFromLab = {
    {{1, 0.3963377774, 0.2158037573}, {1, -0.1055613458, -0.0638541728}, {1, -0.0894841775, -1.2914855480}}};
constexpr Matrix kFromCones = {{{4.0767416621, -3.3077115913, 0.2309699292},
                                {-1.2684380046, 2.6097574011, -0.3413193965},
                                {-0.0041960863, -0.7034186147, 1.7076147010}}};

Vector Each(const Vector& v, double (*change)(double)) {
    return {change(v[0]), change(v[1]), change(v[2])};
}

Vector LinearOf(const QColor& color) {
    return Each({color.redF(), color.greenF(), color.blueF()}, &LinearLight);
}

bool IsOnScreen(const Vector& linear) {
    return std::ranges::all_of(linear, [](double c) { return c >= -1e-4 && c <= 1 + 1e-4; });
}

QColor ColorOf(const Vector& linear) {
    const auto byte = [](double c) {
        const double light = std::clamp(c, 0.0, 1.0);
        const double value = light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
        return static_cast<int>(std::lround(value * 255));
    };
    return QColor(byte(linear[0]), byte(linear[1]), byte(linear[2]));
}

Vector LabOf(const QColor& color) {
    return kToLab * Each(kToCones * LinearOf(color), &std::cbrt);
}

// The colour of that lightness, with as much of the chroma as the screen has.
QColor WithLightness(const Vector& lab, double lightness) {
    const auto linear = [&](double chroma) {
        return kFromCones * Each(kFromLab * Vector{lightness, lab[1] * chroma, lab[2] * chroma},
                                 [](double c) { return c * c * c; });
    };
    double least = 0, most = 1;
    if (!IsOnScreen(linear(most))) {
        for (int i = 0; i < 12; ++i) {
            const double middle = (least + most) / 2;
            (IsOnScreen(linear(middle)) ? least : most) = middle;
        }
        most = least;
    }
    return ColorOf(linear(most));
}

}  // namespace

void SimulateVision(QImage& picture, ColorVision vision) {
    if (vision == ColorVision::kUsual)
        return;
    const Matrix& matrix = kVision[static_cast<std::size_t>(vision) - 1];
    picture.convertTo(QImage::Format_ARGB32);
    // Neighbours are often of one colour.
    QRgb known = 0, seen = 0;
    for (int y = 0; y < picture.height(); ++y) {
        auto* pixel = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (QRgb* const end = pixel + picture.width(); pixel != end; ++pixel) {
            if (*pixel != known) {
                known = *pixel;
                const QColor color = ColorOf(matrix * LinearOf(QColor(known)));
                seen = qRgba(color.red(), color.green(), color.blue(), qAlpha(known));
            }
            *pixel = seen;
        }
    }
}

QColor NearestReadable(const QColor& color, const QColor& ground, double least) {
    constexpr int kSteps = 512;
    const QColor start = Over(color, ground);
    if (Contrast(start, ground) >= least)
        return start;
    const Vector lab = LabOf(start);
    for (int step = 1; step <= kSteps; ++step) {
        for (const int side : {-1, 1}) {
            const double lightness = lab[0] + side * static_cast<double>(step) / kSteps;
            if (lightness < 0 || lightness > 1)
                continue;
            const QColor moved = WithLightness(lab, lightness);
            if (Contrast(moved, ground) >= least)
                return moved;
        }
    }
    return InkFor(ground);
}
