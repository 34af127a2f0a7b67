// SPDX-License-Identifier: MIT
// A button: Invoke() sends its message.
#pragma once

#include "toolkit/KSControl.h"

class KSButton : public KSControl {
public:
    KSButton(const char* name, unsigned flags) : KSControl(name, flags) {}
};
