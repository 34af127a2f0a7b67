// SPDX-License-Identifier: MIT
// Cuts and checks UTF-8 text.
#pragma once

#include <cstddef>
#include <string_view>

// Returns the longest beginning of `text` of at most `length` bytes that ends between two characters. Bytes
// that are not UTF-8 count as characters of one byte each.
std::string_view ks_utf8_cut(std::string_view text, std::size_t length);

// Returns whether `text` is well-formed UTF-8 (The Unicode Standard, table 3-7): no overlong form, no
// surrogate, nothing above U+10FFFF.
bool ks_utf8_is_valid(std::string_view text);
