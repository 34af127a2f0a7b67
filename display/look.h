// SPDX-License-Identifier: MIT
// The sizes and distances of a window.
#pragma once

#include <QMargins>

class QPainter;
class QPalette;
class QRect;
class QSize;
class QString;
class QWidget;

namespace look {

constexpr int kGap = 8;        // between neighbours
constexpr int kRowGap = 6;     // between the rows of a grid
constexpr int kLeastRows = 4;  // of a list
// The bounds of the size at which a font's name is shown in that font.
constexpr int kSmallestPoints = 6;
constexpr int kLargestPoints = 24;

// Returns the size nearest to `points` that is within the bounds; the least one for what is not a number.
double BoundedPoints(double points, double least, double most);

// The room inside a group's frame, on top of the group's own border.
QMargins FrameMargins();

// The size of a colour's sample.
QSize SampleSize(const QWidget& widget);

}  // namespace look
