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

// Adds crossings to a list of records, one per row, and knows where the record of a row is.
class crossing_recorder {
public:
    // Records go behind those that are in `records` already. Rows that are not between `top` and `bottom` are
    // left out.
    crossing_recorder(KSList<ks_polyline_entry>& records, long top, long bottom);

    // Records the rows behind the upper end of an edge up to its lower end. Both ends have 32-bit
    // coordinates.
    void Record(KSPoint<long> from, KSPoint<long> to);

private:
    static constexpr long kNone = -1;

    void RecordRow(long row, std::int32_t column);

    KSList<ks_polyline_entry>& _records;
    long _top;
    long _bottom;
    std::vector<long> _record_of_row;  // from _top on; kNone where there is none
};
