// SPDX-License-Identifier: MIT
// A box that is on or off.
#include "toolkit/KSCheckBox.h"

void KSCheckBox::SetValue(bool on) {
    ProgramSets(on);
}

void KSCheckBox::EditValue(bool on) {
    UserSets(on);
}

bool KSCheckBox::Value() const {
    return Copy();
}
