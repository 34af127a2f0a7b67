// SPDX-License-Identifier: MIT
#include "kits/utf8.h"

#include <cstdint>

namespace {

std::uint8_t ByteAt(std::string_view text, std::size_t index) {
    return static_cast<std::uint8_t>(text[index]);
}

// Returns the length in bytes of the well-formed character at the start of `text`, or 0 where there is none.
// `text` is not empty.
std::size_t CharacterLength(std::string_view text) {
    const std::uint8_t lead = ByteAt(text, 0);
    if (lead < 0x80)
        return 1;
    std::size_t length = 0;
    // The lead byte narrows the range of the second byte; the others are 0x80 to 0xBF.
    std::uint8_t lowest = 0x80, highest = 0xBF;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        if (lead == 0xE0)
            lowest = 0xA0;
        if (lead == 0xED)
            highest = 0x9F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        if (lead == 0xF0)
            lowest = 0x90;
        if (lead == 0xF4)
            highest = 0x8F;
    }
    if (length == 0 || text.size() < length || ByteAt(text, 1) < lowest || ByteAt(text, 1) > highest)
        return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if ((ByteAt(text, i) & 0xC0) != 0x80)
            return 0;
    }
    return length;
}

}  // namespace

std::string_view ks_utf8_cut(std::string_view text, std::size_t length) {
    if (text.size() <= length)
        return text;
    for (std::size_t start = length < 3 ? 0 : length - 3; start < length; ++start) {
        if (start + CharacterLength(text.substr(start)) > length)
            return text.substr(0, start);
    }
    return text.substr(0, length);
}

bool ks_utf8_is_valid(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        if (length == 0)
            return false;
        text.remove_prefix(length);
    }
    return true;
}
