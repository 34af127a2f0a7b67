// SPDX-License-Identifier: MIT
// A font with a way to choose another.
#pragma once

#include "kits/BFont.h"
#include "toolkit/KSControl.h"

class KSPopFont : public KSControl {
public:
    // Starts with the desktop's default font.
    KSPopFont(const char* name, unsigned flags);

    // Copies the font; `notify` is false.
    void SetValue(const BFont* font, bool notify);
    // The user's font: names with a comma or a line feed are refused, with false.
    bool EditValue(const BFont& font);
    // Returns the font, owned by the control; hold the lock, or ask Font().
    const BFont* Value() const;
    BFont Font() const;

    bool Revert() override;
    void Settle() override;

private:
    ks_edited_value<BFont> _font;
};
