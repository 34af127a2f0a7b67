// SPDX-License-Identifier: MIT
#include "toolkit/default_fonts.h"

#include "toolkit/settings_values.h"

#include <fontconfig/fontconfig.h>
#include <memory>

namespace {

struct wish {
    const char* pattern;  // as fontconfig names fonts
    const char* family;   // where fontconfig finds nothing
    const char* style;
};

constexpr wish kPlain = {"sans-serif", "Sans", "Regular"};
constexpr wish kFixed = {"monospace", "Monospace", "Regular"};
constexpr wish kTitle = {"sans-serif:bold", "Sans", "Bold"};

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

BFont Find(const wish& wish) {
    const auto destroy = [](FcPattern* pattern) {
        if (pattern)
            FcPatternDestroy(pattern);
    };
    using pattern_ptr = std::unique_ptr<FcPattern, decltype(destroy)>;

    BFont font;
    font.SetFamilyAndStyle(wish.family, wish.style);
    const pattern_ptr wanted(FcNameParse(reinterpret_cast<const FcChar8*>(wish.pattern)), destroy);
    if (!wanted || !FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern))
        return font;
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    const pattern_ptr found(FcFontMatch(nullptr, wanted.get(), &result), destroy);
    if (found && result == FcResultMatch)
        font.SetFamilyAndStyle(FirstFittingName(found.get(), FC_FAMILY, wish.family).c_str(),
                               FirstFittingName(found.get(), FC_STYLE, wish.style).c_str());
    return font;
}

}  // namespace

const BFont& ks_default_font(ks_font font) {
    static const auto fonts = [] {
        const BFont plain = Find(kPlain);
        std::array<BFont, ks_look::kFonts> found = {plain, Find(kFixed), Find(kTitle), plain, plain};
        constexpr float kSizes[] = {10, 10, 10, 8, 14};
        for (std::size_t i = 0; i < found.size(); ++i)
            found[i].SetSize(kSizes[i]);
        return found;
    }();
    return fonts[font];
}
