// SPDX-License-Identifier: MIT
// A box that is on or off.
#pragma once

#include "toolkit/KSEditor.h"

class KSCheckBox : public KSEditor<bool> {
public:
    KSCheckBox(const char* name, unsigned flags) : KSEditor(name, flags) {}

    void SetValue(bool on);
    void EditValue(bool on);
    bool Value() const;
};
