// SPDX-License-Identifier: MIT
// Colours as people see them: with another colour vision, and moved to where they can be told apart.
#pragma once

#include <QColor>

class QImage;

enum class ColorVision { kUsual, kProtanopia, kDeuteranopia, kTritanopia };

// Changes the picture to what people with that vision see of it. The matrices, for linear light and full
// severity, are those of Machado, Oliveira and Fernandes, "A Physiologically-based Model for Simulation of
// Color Vision Deficiency", IEEE Transactions on Visualization and Computer Graphics 15 (6), 2009.
void SimulateVision(QImage& picture, ColorVision vision);

// Returns the colour nearest to `color` whose contrast with the opaque `ground` is at least `least`: the one
// with the smallest change of lightness in Oklab (B. Ottosson, "A perceptual color space for image
// processing", 2020), of the same hue and, where the screen has it, the same chroma. The result is opaque;
// it is black or white where nothing reaches `least`.
QColor NearestReadable(const QColor& color, const QColor& ground, double least);
