// SPDX-License-Identifier: MIT
// A font with a way to choose another.
#pragma once

#include "kits/BFont.h"
#include "toolkit/KSEditor.h"

class KSPopFont : public KSEditor<BFont> {
public:
    // Starts with the desktop's default font.
    KSPopFont(const char* name, unsigned flags);

    // Copies the font; `notify` is false.
    void SetValue(const BFont* font, bool notify);
    // The user's font: names that would not come back from the settings file are refused, with false: an
    // empty one, or one with a comma in it or that does not pass ks_fits_settings_line.
    bool EditValue(const BFont& font);
    // Returns the font, owned by the control; hold the lock, or ask Font().
    const BFont* Value() const;
    BFont Font() const;
};
