// SPDX-License-Identifier: MIT
// The pairs of pens that meet on screen, and which of them are hard to tell apart.
#pragma once

#include "display/worn.h"

#include <vector>

// Two pens that meet, and how well they can be told apart.
struct pen_pair {
    ks_pen ink;     // what is changed to mend it
    ks_pen ground;  // what the ink is seen on
    double contrast;
    double least;  // what the contrast should reach

    bool IsHard() const { return contrast < least; }
};

// All pairs of a look as it was chosen, worst first: those that miss most of what they need come first.
// Texts need 4.5; ticks, the ring of the focus and paint 3; of each level's four edges one has to reach 3.
// Disabled texts need nothing, nor does the focus on a selected row. (WCAG 2.1, criteria 1.4.3 and 1.4.11.)
std::vector<pen_pair> MeasurePairs(const Worn& worn);
