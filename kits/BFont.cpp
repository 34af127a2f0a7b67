// SPDX-License-Identifier: MIT
#include "kits/BFont.h"

#include "kits/utf8.h"

#include <bit>
#include <cstdint>

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

void BFont::GetFamilyAndStyle(font_family* family, font_style* style) const {
    if (family)
        (*family)[_family.copy(*family, kNameLength)] = '\0';
    if (style)
        (*style)[_style.copy(*style, kNameLength)] = '\0';
}

bool operator==(const BFont& a, const BFont& b) {
    const auto bits = [](float size) { return std::bit_cast<std::uint32_t>(size); };
    return a._family == b._family && a._style == b._style && bits(a._size) == bits(b._size);
}
