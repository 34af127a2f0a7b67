// SPDX-License-Identifier: MIT
// Texts of any bytes, made fit to be shown.
#pragma once

#include <string>
#include <string_view>

namespace shell {

// Returns the text in quotation marks, for messages: what a terminal would not show as it is becomes \xNN,
// and only the start of a long text is given.
std::string Quoted(std::string_view text);
// Returns a text with such escapes in place of control characters and of bytes that are not UTF-8.
std::string Printable(std::string_view text);
// Returns the text as a JSON string. Bytes that are not UTF-8 become U+FFFD.
std::string JsonString(std::string_view text);
// Returns how many characters a UTF-8 text has.
std::size_t Width(std::string_view text);

}  // namespace shell
