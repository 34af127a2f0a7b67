// SPDX-License-Identifier: MIT
// The one place where colours, frames, fonts and distances are chosen.
#pragma once

#include "toolkit/ks_pen.h"

#include <QColor>
#include <QMargins>

class QPainter;
class QPalette;
class QRect;
class QSize;
class QString;
class QWidget;

namespace look {

constexpr int kGap = 8;            // between neighbours
constexpr int kRowGap = 6;         // between the rows of a grid
constexpr int kLeastRows = 4;      // of a list
constexpr int kLongestLabel = 60;  // characters; longer labels are broken into lines
// The bounds of the size at which a font's name is shown in that font.
constexpr int kSmallestPoints = 6;
constexpr int kLargestPoints = 24;

// Returns the size nearest to `points` that is within the bounds; the least one for what is not a number.
double BoundedPoints(double points, double least, double most);

// Chooses the style before the application object is made; a style that the user asks for wins.
void ChooseStyle();

// The colour of a pen on a desktop of this palette. List items use KS_PEN_TEXT on KS_PEN_BG_LIST and on
// KS_PEN_BG_SELECTED, and it is readable on both; every other pen has the text's colour.
QColor Pen(ks_pen pen, const QPalette& palette);

// The room inside a group's frame, on top of the group's own border.
QMargins FrameMargins();

// Draws a group's frame, whose inside is a shade darker, and its title, which may be empty.
void PaintGroup(QPainter& painter, const QRect& frame, const QRect& label, const QString& title,
                const QWidget& widget);

// Draws a frame around a sample of `color`, on a checker where it is transparent, and the focus ring.
void PaintSample(QPainter& painter, const QRect& rect, const QColor& color, const QWidget& widget);
QSize SampleSize(const QWidget& widget);

}  // namespace look
