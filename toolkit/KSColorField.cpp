// SPDX-License-Identifier: MIT
// A field that shows a colour and lets the user choose another.
#include "toolkit/KSColorField.h"

KSColorField::KSColorField(const char* name, unsigned flags) : KSEditor(name, flags) {
    ProgramSets(ks_color(0, 0, 0));
}

void KSColorField::SetColor(const ks_color& color, bool, bool) {
    ProgramSets(color);
}

void KSColorField::EditColor(const ks_color& color) {
    UserSets(color);
}

ks_color KSColorField::Color() const {
    return Copy();
}
