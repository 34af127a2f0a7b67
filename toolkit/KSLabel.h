// SPDX-License-Identifier: MIT
// A text beside the control that it names: the next editor behind it in its group.
#pragma once

#include "toolkit/KSControl.h"

class KSLabel : public KSControl {
public:
    KSLabel(const char* name, unsigned flags) : KSControl(name, flags) {}
};
