// SPDX-License-Identifier: MIT
// A tiny proportional bitmap font, for the labels of the examples.
#pragma once

#include "raster/KSRaster.h"

#include <string_view>

// The height of a line of text at scale 1, in pixels; letters stand on row 6.
inline constexpr long kTextHeight = 9;

// Returns how wide a text becomes. Each dot of the font is `scale` pixels a side.
long text_width(std::string_view text, long scale);

// Draws a text with its top-left corner at (x, y), in ASCII; other characters become empty boxes. Sets the
// raster's drawing mode to Over, its high colour to `colour`, and takes its pattern away.
void draw_text(KSRaster& raster, long x, long y, std::string_view text, ks_color colour, long scale);
