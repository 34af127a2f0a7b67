// SPDX-License-Identifier: MIT
// Results as Markdown tables.
#pragma once

#include "bench/imaging/result.h"

#include <iosfwd>

// Writes each goal whose contests are there, with the worst ratio measured for it.
void write_goals(std::ostream& out, const std::vector<Result>& results);

// Writes a line a mode: the fastest peer of each of its contests in the cache, and the ratio to it.
void write_modes(std::ostream& out, const std::vector<Result>& results);

// Writes a line a contest: the library at its levels, memcpy or memset, and the fastest peer.
void write_contests(std::ostream& out, const std::vector<Result>& results);
