// SPDX-License-Identifier: MIT
// A group with its label as title over it.
#pragma once

#include "toolkit/KSControl.h"

class KSTitleGroup : public KSControl {
public:
    KSTitleGroup(const char* name, unsigned flags) : KSControl(name, flags) {}
};
