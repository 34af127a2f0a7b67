// SPDX-License-Identifier: MIT
// A font by family, style and size.
#pragma once

#include <string>

// Names are UTF-8 of at most 63 bytes and an end mark.
using font_family = char[64];
using font_style = char[64];

class BFont {
public:
    // Names longer than 63 bytes are cut at a character's boundary; null counts as empty.
    void SetFamilyAndStyle(const char* family, const char* style);
    // A size in points that is not finite or not above 0 changes nothing.
    void SetSize(float size);

    // Copies the names; either pointer may be null.
    void GetFamilyAndStyle(font_family* family, font_style* style) const;
    const std::string& Family() const { return _family; }
    const std::string& Style() const { return _style; }
    float Size() const { return _size; }

    friend bool operator==(const BFont&, const BFont&) = default;

private:
    std::string _family;
    std::string _style;
    float _size = 10;
};
