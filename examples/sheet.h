// SPDX-License-Identifier: MIT
// A sheet of labelled pictures, and what the examples put on it.
#pragma once

#include "raster/KSRaster.h"

#include <string>
#include <string_view>

inline constexpr ks_color kPaper{250, 249, 246};
inline constexpr ks_color kInk{38, 42, 50};
inline constexpr ks_color kFaintInk{120, 124, 132};

// A grid of cells of one size, each with its label below.
class Sheet {
public:
    // `columns` x `rows` cells of `width` x `height` pixels under a title.
    Sheet(std::string_view title, long columns, long rows, long width, long height);

    // Composes a picture onto the next free cell, its own top-left corner on the cell's, on a chequered
    // ground that shows where it is transparent; what is larger than the cell is cut off.
    void Add(const KSRaster& picture, std::string_view label);

    const KSRaster& Raster() const { return _raster; }

private:
    long _columns, _width, _height;
    long _used = 0;
    KSRaster _raster;
};

// Returns the words of row y, from the frame's left on.
std::uint32_t* row_of(const KSRaster& raster, long y);

// Returns what a program does with its one argument, the file to write: writes it, or says on standard error
// why it could not.
int write_sheet(const Sheet& sheet, int count, char** arguments);
