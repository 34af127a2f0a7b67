// SPDX-License-Identifier: MIT
// A field that shows a colour and lets the user choose another.
#pragma once

#include "hdr/ks_color.h"
#include "toolkit/KSEditor.h"

class KSColorField : public KSEditor<ks_color> {
public:
    // Starts with opaque black.
    KSColorField(const char* name, unsigned flags) : KSEditor(name, flags) { ProgramSets(ks_color(0, 0, 0)); }

    // The last two arguments, notify and drag, are false.
    void SetColor(const ks_color& color, bool, bool) { ProgramSets(color); }
    void EditColor(const ks_color& color) { UserSets(color); }
    ks_color Color() const { return Copy(); }
};
