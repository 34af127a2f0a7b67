// SPDX-License-Identifier: MIT
// Records where the edges of a polygon cross the rows of a raster.
#pragma once

#include "hdr/KSList.h"
#include "hdr/KSPoint.h"
#include "raster/KSRaster.h"

#include <cstdint>
#include <vector>

// A record's second crossing is unset if it lies left of this column, and is kUnset at first.
inline constexpr std::int32_t kUnsetBelow = -32000;
inline constexpr std::int32_t kUnset = -32001;

// Adds crossings to a list of records, one per row, and finds the record of a row.
class crossing_recorder {
public:
    // New records go to the end of `records`. Rows above `top` or below `bottom` are left out.
    crossing_recorder(KSList<ks_polyline_entry>& records, long top, long bottom);

    // Records the rows from below the upper end of an edge to its lower end. Both have 32-bit coordinates.
    void Record(KSPoint<long> from, KSPoint<long> to);

private:
    static constexpr long kNone = -1;

    void RecordRow(long row, std::int32_t column);

    KSList<ks_polyline_entry>& _records;
    long _top;
    long _bottom;
    std::vector<long> _record_of_row;  // from _top on; kNone where there is none
};
