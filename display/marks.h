// SPDX-License-Identifier: MIT
// The dots beside editors whose value is changed.
//
// A dot stands in the room that is left of its editor anyway. It is drawn by the editor's ground: the nearest
// widget around it that says so. Assistive tools read that the value is changed in the editor's description.
#pragma once

#include "display/worn.h"

class QPainter;
class QRect;
class QString;
class QWidget;

namespace marks {

// Lets a widget be the ground of the editors in it.
void MakeGround(QWidget& widget);
// Draws the dots of the editors on `ground`, which has this level.
void Paint(QPainter& painter, const Worn& worn, const QWidget& ground, ks_pen level);
// Draws a dot in the middle of `room` upon a level.
void PaintDot(QPainter& painter, const Worn& worn, const QRect& room, ks_pen level);

// Shows whether the editor's value is changed.
void Mark(QWidget& editor, bool is_changed);
// Sets what assistive tools read of an editor, besides that it is changed.
void Describe(QWidget& editor, const QString& text);

}  // namespace marks
