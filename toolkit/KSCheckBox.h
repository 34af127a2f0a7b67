// SPDX-License-Identifier: MIT
// A box that is on or off.
#pragma once

#include "toolkit/KSEditor.h"

class KSCheckBox : public KSEditor<bool> {
public:
    KSCheckBox(const char* name, unsigned flags) : KSEditor(name, flags) {}

    void SetValue(bool on) { ProgramSets(on); }
    void EditValue(bool on) { UserSets(on); }
    bool Value() const { return Copy(); }
};
