// SPDX-License-Identifier: MIT
#include "toolkit/KSPopFont.h"

#include "toolkit/default_fonts.h"
#include "toolkit/settings_values.h"

KSPopFont::KSPopFont(const char* name, unsigned flags) : KSEditor(name, flags) {
    ProgramSets(ks_default_font(KS_FONT_NORMAL));
}

void KSPopFont::SetValue(const BFont* font, bool) {
    if (font)
        ProgramSets(*font);
}

bool KSPopFont::EditValue(const BFont& font) {
    const KSAutolock lock(this);
    const BFont& present = Present();
    if ((font.Family() != present.Family() && !ks_fits_font_field(font.Family())) ||
        (font.Style() != present.Style() && !ks_fits_font_field(font.Style())))
        return false;
    UserSets(font);
    return true;
}

const BFont* KSPopFont::Value() const {
    const KSAutolock lock(this);
    return &Present();
}

BFont KSPopFont::Font() const {
    return Copy();
}
