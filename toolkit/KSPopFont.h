// SPDX-License-Identifier: MIT
// A font with a way to choose another.
#pragma once

#include "kits/BFont.h"
#include "toolkit/KSEditor.h"

// The sizes that a user can choose, in points.
constexpr double kSmallestFontSize = 1, kLargestFontSize = 512;

class KSPopFont : public KSEditor<BFont> {
public:
    // Starts with the desktop's default font.
    KSPopFont(const char* name, unsigned flags);

    // Copies the font; `notify` is false.
    void SetValue(const BFont* font, bool notify);
    // The user's font. A new name that does not pass ks_fits_font_field is refused, with false.
    bool EditValue(const BFont& font);
    // Returns the font, owned by the control. Valid until it is next changed: hold the lock, or ask Font().
    const BFont* Value() const;
    BFont Font() const;
};
