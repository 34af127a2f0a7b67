// SPDX-License-Identifier: MIT
// Results on paper: the goals and a summary as Markdown, everything as CSV.
#pragma once

#include "bench/imaging/contest.h"

#include <iosfwd>

// Writes each goal whose contests were run, with the worst ratio measured for it.
void write_goals(std::ostream& out, const std::vector<Contest>& contests);

// Writes a line a contest: the library at its levels, memcpy or memset, and the fastest peer.
void write_summary(std::ostream& out, const std::vector<Contest>& contests);

// Writes a line a contender.
void write_csv(std::ostream& out, const std::vector<Contest>& contests);
