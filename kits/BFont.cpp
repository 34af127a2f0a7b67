// SPDX-License-Identifier: MIT
// A font by family, style and size.
#include "kits/BFont.h"

#include "kits/utf8.h"

#include <cmath>

namespace {

constexpr std::size_t kNameLength = sizeof(font_family) - 1;
static_assert(sizeof(font_family) == sizeof(font_style));

std::string CutName(const char* name) {
    return std::string(ks_utf8_cut(name ? name : "", kNameLength));
}

}  // namespace

void BFont::SetFamilyAndStyle(const char* family, const char* style) {
    _family = CutName(family);
    _style = CutName(style);
}

void BFont::SetSize(float size) {
    if (std::isfinite(size) && size > 0)
        _size = size;
}

void BFont::GetFamilyAndStyle(font_family* family, font_style* style) const {
    if (family)
        (*family)[_family.copy(*family, kNameLength)] = '\0';
    if (style)
        (*style)[_style.copy(*style, kNameLength)] = '\0';
}
