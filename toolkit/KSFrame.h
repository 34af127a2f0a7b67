// SPDX-License-Identifier: MIT
// The frame that a control may have around it.
#pragma once

#include "toolkit/KSToolKit.h"

constexpr long KS_FRAME_NONE = 0;
constexpr long KS_FRAME_GROUP = 7;  // an edge all around, with the control's label in it if there is one

class KSFrame : public KSToolKit {
public:
    explicit KSFrame(const char* name) : KSToolKit(name) {}

    void SetFrameType(long type) { _frame_type = type; }
    void SetFrameState(long state) { _frame_state = state; }  // 1: sunken

    long FrameType() const { return _frame_type; }
    long FrameState() const { return _frame_state; }

private:
    long _frame_type = KS_FRAME_NONE;
    long _frame_state = 0;
};
