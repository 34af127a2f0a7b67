// SPDX-License-Identifier: MIT
#include "display/contrast.h"

#include <algorithm>
#include <array>
#include <cmath>

double LinearLight(double component) {
    return component <= 0.03928 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color) {
    static const auto kLinear = [] {
        std::array<double, 256> table;
        for (std::size_t i = 0; i < table.size(); ++i)
            table[i] = LinearLight(static_cast<double>(i) / 255);
        return table;
    }();
    const auto linear = [](int c) { return kLinear[static_cast<std::size_t>(c)]; };
    return 0.2126 * linear(color.red()) + 0.7152 * linear(color.green()) + 0.0722 * linear(color.blue());
}

double Contrast(const QColor& a, const QColor& b) {
    const double x = Luminance(a) + 0.05, y = Luminance(b) + 0.05;
    return std::max(x, y) / std::min(x, y);
}

QColor Mix(const QColor& a, const QColor& b, double share) {
    const auto mix = [&](int x, int y) { return static_cast<int>(std::lround(x + (y - x) * share)); };
    return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

QColor Over(const QColor& top, const QColor& ground) {
    return Mix(ground, top, top.alphaF());
}

QColor InkFor(const QColor& ground) {
    return Contrast(Qt::black, ground) >= Contrast(Qt::white, ground) ? Qt::black : Qt::white;
}
