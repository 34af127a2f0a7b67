// SPDX-License-Identifier: MIT
// Edges in 24.8 fixed point, and the records that they leave.
#include "raster/crossings.h"

#include "hdr/ks_math.h"

#include <cstddef>
#include <utility>

crossing_recorder::crossing_recorder(KSList<ks_polyline_entry>& records, long top, long bottom)
    : _records(records),
      _top(top),
      _bottom(bottom),
      _record_of_row(top <= bottom ? static_cast<std::size_t>(bottom - top + 1) : 0, kNone) {
    for (long i = records.CountItems(); i-- > 0;) {
        const long row = records.ItemAt(i)->scanline;
        if (row >= _top && row <= _bottom)
            _record_of_row[static_cast<std::size_t>(row - _top)] = i;
    }
}

void crossing_recorder::Record(KSPoint<long> from, KSPoint<long> to) {
    if (from.y == to.y)
        return;
    if (to.y < from.y)
        std::swap(from, to);
    const long slope = (to.x - from.x) * 256 / (to.y - from.y);
    const long last = MIN(to.y, _bottom);
    for (long y = MAX(from.y + 1, _top); y <= last; y++)
        RecordRow(y, static_cast<std::int32_t>((from.x * 256 + slope * (y - from.y)) >> 8));
}

void crossing_recorder::RecordRow(long row, std::int32_t column) {
    long& record = _record_of_row[static_cast<std::size_t>(row - _top)];
    if (record != kNone) {
        _records.ItemAt(record)->second = column;
    } else {
        _records.AddItem({static_cast<std::int32_t>(row), column, kUnset});
        record = _records.CountItems() - 1;
    }
}
