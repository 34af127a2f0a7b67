// SPDX-License-Identifier: MIT
// A line across its group.
#pragma once

#include "toolkit/KSControl.h"

class KSSeparator : public KSControl {
public:
    KSSeparator(const char* name, unsigned flags) : KSControl(name, flags) {}
};
