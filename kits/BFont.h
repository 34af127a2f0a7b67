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
    // Keeps any size in points, even one that no font can be drawn at.
    void SetSize(float size) { _size = size; }

    // Copies the names; either pointer may be null.
    void GetFamilyAndStyle(font_family* family, font_style* style) const;
    const std::string& Family() const { return _family; }
    const std::string& Style() const { return _style; }
    float Size() const { return _size; }

    // Sizes are equal when their bits are: one that is not a number equals itself.
    friend bool operator==(const BFont& a, const BFont& b);

private:
    std::string _family;
    std::string _style;
    float _size = 10;
};
