// SPDX-License-Identifier: MIT
// A group arranges its children: its numbers say how, whoever shows the window lays them out.
//
// The tree and its numbers are set before the window is shown and do not change from then on. They are not
// locked.
#pragma once

#include "hdr/KSPoint.h"
#include "hdr/KSRect.h"
#include "toolkit/KSBase.h"

#include <memory>
#include <vector>

class KSContainer;
class KSControl;

constexpr long KS_ORIENTATION_HORIZONTAL = 0;  // side by side
constexpr long KS_ORIENTATION_VERTICAL = 1;    // top to bottom
constexpr long KS_ALIGNMENT_RIGHT = 2;         // a label ends at its right edge, beside what it names
constexpr long KS_FORCE_STACKED = 2;           // the children share one place, of the size of the largest

class KSGroup : public KSBase {
public:
    explicit KSGroup(const char* name);
    ~KSGroup() override;

    // Takes over `child` and puts it before `before`, or last when that is null or no child of this group.
    void AddChild(KSControl* child, KSControl* before);

    const std::vector<std::unique_ptr<KSControl>>& Children() const { return _children; }
    KSGroup* Parent() const { return _parent; }
    // The container whose content this is part of, or null.
    KSContainer* Container() const;

    void SetBorder(KSRect<long> border) { _border = border; }  // pixels on each side
    void SetOrientation(long orientation) { _orientation = orientation; }
    void SetColumns(long columns) { _columns = columns; }  // above 0: a grid, row by row
    void SetAlignment(long alignment) { _alignment = alignment; }
    void SetWeight(KSPoint<long> weight) { _weight = weight; }  // share of spare room; 0 is "not set"
    void SetForceMode(long mode) { _force_mode = mode; }

    KSRect<long> Border() const { return _border; }
    long Orientation() const { return _orientation; }
    long Columns() const { return _columns; }
    long Alignment() const { return _alignment; }
    KSPoint<long> Weight() const { return _weight; }
    long ForceMode() const { return _force_mode; }

private:
    friend class KSContainer;

    std::vector<std::unique_ptr<KSControl>> _children;
    KSGroup* _parent = nullptr;
    KSContainer* _container = nullptr;  // set at the root of a content only
    KSRect<long> _border{0, 0, 0, 0};
    KSPoint<long> _weight{0, 0};
    long _orientation = KS_ORIENTATION_HORIZONTAL;
    long _columns = 0;
    long _alignment = 0;
    long _force_mode = 0;
};
