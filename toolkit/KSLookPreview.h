// SPDX-License-Identifier: MIT
// Shows the look at work: what a window may have no control for, and which of its pens are hard to tell
// apart.
//
// It is closed until the user opens it, and is the only content of its container.
#pragma once

#include "toolkit/KSControl.h"

class KSLookPreview : public KSControl {
public:
    KSLookPreview(const char* name, unsigned flags) : KSControl(name, flags) {}
};
