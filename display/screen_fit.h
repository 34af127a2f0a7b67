// SPDX-License-Identifier: MIT
// Keeps windows inside their screens.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

class QWidget;

// Returns the largest size of a window that its screen has room for, beside the window's frame.
QSize RoomFor(const QWidget& window);

// Gives a window that is not shown yet at least the size that it asks for, and `start` as its frame's corner,
// as far as the screen allows both.
void Place(QWidget& window, QPoint start, QSize least);
