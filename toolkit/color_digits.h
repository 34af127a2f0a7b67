// SPDX-License-Identifier: MIT
// Colours as hexadecimal digits.
#pragma once

#include "hdr/ks_color.h"

#include <optional>
#include <string_view>

// Reads 3, 4, 6 or 8 digits, with or without "#", of which the fourth or the last two are the alpha.
std::optional<ks_color> ks_parse_color_digits(std::string_view text);
