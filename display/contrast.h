// SPDX-License-Identifier: MIT
// How well colours can be told from each other, and how they mix.
#pragma once

#include <QColor>

// The light of a component of sRGB; both 0 to 1.
double LinearLight(double component);

// The share of white light that the colour gives, 0 to 1, without its alpha.
// WCAG 2.1, "relative luminance".
double Luminance(const QColor& color);

// 1 where the colours are equally bright, 21 between black and white. WCAG 2.1, "contrast ratio".
double Contrast(const QColor& a, const QColor& b);

// `share` 0 gives `a`, 1 gives `b`. The result is opaque.
QColor Mix(const QColor& a, const QColor& b, double share);

// What is seen where `top` is painted on the opaque `ground`.
QColor Over(const QColor& top, const QColor& ground);

// Black or white, whichever stands out more.
QColor InkFor(const QColor& ground);
