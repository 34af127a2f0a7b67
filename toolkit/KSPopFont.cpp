// SPDX-License-Identifier: MIT
// A font with a way to choose another.
#include "toolkit/KSPopFont.h"

#include "toolkit/settings_lines.h"

#include <fontconfig/fontconfig.h>
#include <memory>

namespace {

bool IsWritableName(const std::string& name) {
    return ks_fits_settings_line(name) && name.find(',') == std::string::npos;
}

// Returns the first of a pattern's names of one kind that the settings file can hold, or `otherwise`.
std::string WritableName(const FcPattern* pattern, const char* kind, const char* otherwise) {
    FcChar8* text = nullptr;
    for (int i = 0; FcPatternGetString(pattern, kind, i, &text) == FcResultMatch; ++i) {
        const std::string name(reinterpret_cast<const char*>(text));
        if (name.size() < sizeof(font_family) && IsWritableName(name))
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
        font.SetFamilyAndStyle(WritableName(found.get(), FC_FAMILY, "Sans").c_str(),
                               WritableName(found.get(), FC_STYLE, "Regular").c_str());
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
    if (!IsWritableName(font.Family()) || !IsWritableName(font.Style()))
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
