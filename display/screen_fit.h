// SPDX-License-Identifier: MIT
// Keeps windows inside their screens.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

class QWidget;

// Returns where a window goes that would have its frame's corner at `start` and `wanted` as its size: the
// corner and the size, changed as far as `screen` has no room for window and frame.
QRect PlaceIn(const QRect& screen, QPoint start, QSize wanted);

// Gives a window the size that it asks for, at least `least`, and puts its frame's corner at `start`, as far
// as the screen allows both.
void FitToScreen(QWidget& window, QPoint start, QSize least);

// Sets the least size of a window: what it asks for, as far as its screen has room.
void BoundLeastSize(QWidget& window);

// Gives a dialog that is not shown yet its size, and puts it beside the window that it changes where the
// screen has room for both.
void PlaceDialog(QWidget& dialog, QSize wanted, const QWidget& window);
