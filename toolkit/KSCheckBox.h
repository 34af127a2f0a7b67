// SPDX-License-Identifier: MIT
// A box that is on or off.
#pragma once

#include "toolkit/KSControl.h"

class KSCheckBox : public KSControl {
public:
    KSCheckBox(const char* name, unsigned flags) : KSControl(name, flags) {}

    void SetValue(bool on);
    void EditValue(bool on);
    bool Value() const;

    bool Revert() override;
    void Settle() override;

private:
    ks_edited_value<bool> _on;
};
