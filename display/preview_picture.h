// SPDX-License-Identifier: MIT
// The preview's picture: a small window with one of every kind of thing that is drawn with the pens.
#pragma once

#include "display/worn.h"

#include <QRect>

class QPainter;

// The height that the picture needs; it fills any width.
constexpr int kPreviewHeight = 330;

void PaintPreview(QPainter& painter, const Worn& worn, const QRect& rect);
