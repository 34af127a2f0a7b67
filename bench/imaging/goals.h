// SPDX-License-Identifier: MIT
// What the library wants to reach, and whether it did.
#pragma once

#include "bench/imaging/contest.h"

// Prints each goal whose contests were run, with the worst ratio measured for it.
void print_goals(const std::vector<Contest>& contests);
