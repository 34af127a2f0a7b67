// SPDX-License-Identifier: MIT
#include "toolkit/KSPopFont.h"

#include "toolkit/settings_values.h"

#include <fontconfig/fontconfig.h>
#include <memory>

namespace {

// Returns the first of a pattern's names of one kind that fits the settings file, or `otherwise`.
std::string FirstFittingName(const FcPattern* pattern, const char* kind, const char* otherwise) {
    FcChar8* text = nullptr;
    for (int i = 0; FcPatternGetString(pattern, kind, i, &text) == FcResultMatch; ++i) {
        const std::string name(reinterpret_cast<const char*>(text));
        if (ks_fits_font_field(name))
            return name;
    }
    return otherwise;
}

BFont FindDefaultFont() {
    const auto destroy = [](FcPattern* pattern) {
        if (pattern)
            FcPatternDestroy(pattern);
    };
    using pattern_ptr = std::unique_ptr<FcPattern, decltype(destroy)>;

    BFont font;
    font.SetFamilyAndStyle("Sans", "Regular");
    const pattern_ptr wanted(FcNameParse(reinterpret_cast<const FcChar8*>("sans-serif")), destroy);
    if (!wanted || !FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern))
        return font;
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    const pattern_ptr found(FcFontMatch(nullptr, wanted.get(), &result), destroy);
    if (found && result == FcResultMatch) {
        font.SetFamilyAndStyle(FirstFittingName(found.get(), FC_FAMILY, "Sans").c_str(),
                               FirstFittingName(found.get(), FC_STYLE, "Regular").c_str());
    }
    return font;
}

}  // namespace

KSPopFont::KSPopFont(const char* name, unsigned flags) : KSEditor(name, flags) {
    static const BFont default_font = FindDefaultFont();
    ProgramSets(default_font);
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
