// SPDX-License-Identifier: MIT
// What everything in a window is drawn with, in both looks. The looks differ inside these functions only.
//
// Rectangles are the painter's. Every function draws whole pixels at any scale and leaves the painter as it
// was. Main thread only.
#pragma once

#include "display/worn.h"

#include <QRect>

class QPainter;

namespace draw {

enum class Edge { kRaised, kSunken };
enum class Weight { kThin, kHeavy };
enum class Direction { kUp, kDown, kLeft, kRight };

// How a button is drawn.
struct ButtonState {
    bool is_down = false;
    bool is_default = false;
    bool is_enabled = true;
    bool has_room = true;  // in the BeOS look, for the second outline of a default button
};

// Fills with a level's colour and tiles its bitmap from `origin`.
void Level(QPainter& painter, const Worn& worn, const QRect& rect, ks_pen level, QPoint origin);
// A frame that stands out of `ground` or lies in it.
void Edges(QPainter& painter, const Worn& worn, const QRect& rect, Edge edge, Weight weight,
           const QColor& ground);
// A line pressed into `ground`, all around.
void EtchedBox(QPainter& painter, const Worn& worn, const QRect& rect, const QColor& ground);
// A line pressed into `ground`, along the middle of the longer side.
void EtchedLine(QPainter& painter, const Worn& worn, const QRect& rect, const QColor& ground);

// A group on its level, with its title, which may be empty, in the painter's font. The title has
// `title_height` pixels at the top.
void Group(QPainter& painter, const Worn& worn, const QRect& rect, ks_pen level, const QString& title,
           int title_height);

void Button(QPainter& painter, const Worn& worn, const QRect& rect, ButtonState state);
// The colour that a button's text stands on.
QColor ButtonGround(const Worn& worn, ButtonState state);
// A small button inside another control: of a spin box, a scroll bar.
void Knob(QPainter& painter, const Worn& worn, const QRect& rect, bool is_down);

// A sunken area to edit, read or choose in.
void Field(QPainter& painter, const Worn& worn, const QRect& rect, ks_pen level);
// What is titled or filled.
void Paint(QPainter& painter, const Worn& worn, const QRect& rect);
// The ring around what has the keyboard.
void Focus(QPainter& painter, const Worn& worn, const QRect& rect, const QColor& ground);
// The box of a check box.
void Check(QPainter& painter, const Worn& worn, const QRect& rect, bool is_on, bool is_enabled, bool is_down);
// A selected row of a list.
void Selection(QPainter& painter, const Worn& worn, const QRect& rect);
void Arrow(QPainter& painter, const QRect& rect, Direction direction, const QColor& color);
// The dot of what is changed.
void Dot(QPainter& painter, const QRect& rect, const QColor& color);
// What is seen through transparent pixels.
void Checker(QPainter& painter, const QRect& rect);
// A colour between a dark and a light hairline, on a checker where it is transparent.
void Sample(QPainter& painter, const QRect& rect, const QColor& color);

}  // namespace draw
