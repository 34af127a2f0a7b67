// SPDX-License-Identifier: MIT
#include "shell/text.h"

#include "kits/utf8.h"

#include <algorithm>
#include <cstdio>

namespace shell {
namespace {

constexpr std::size_t kLongestQuote = 60;  // bytes

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

// Of one character: whether it is a control character, also one beyond ASCII.
bool IsControl(std::string_view character) {
    return IsControl(character.front()) ||
           (character.front() == '\xC2' && static_cast<unsigned char>(character.back()) < 0xA0);
}

std::string Escaped(const char* format, char byte) {
    char text[8];
    std::snprintf(text, sizeof text, format, static_cast<unsigned char>(byte));
    return text;
}

// Calls `handle` with each character, and with each byte that is part of none; its second argument tells
// which of the two it is.
template <class Handle> void ForEachCharacter(std::string_view text, Handle handle) {
    constexpr std::size_t kLongestCharacter = 4;
    while (!text.empty()) {
        std::size_t length = 1;
        while (length <= kLongestCharacter && !ks_utf8_is_valid(text.substr(0, length)))
            ++length;
        const bool is_character = length <= kLongestCharacter;
        handle(text.substr(0, is_character ? length : 1), is_character);
        text.remove_prefix(is_character ? length : 1);
    }
}

}  // namespace

std::string Quoted(std::string_view text) {
    const std::string_view start = ks_utf8_cut(text, kLongestQuote);
    return '"' + Printable(start) + (start.size() < text.size() ? "…\"" : "\"");
}

std::string Printable(std::string_view text) {
    std::string printable;
    ForEachCharacter(text, [&](std::string_view bytes, bool is_character) {
        if (is_character && !IsControl(bytes))
            printable += bytes;
        else
            for (const char byte : bytes)
                printable += Escaped("\\x%02X", byte);
    });
    return printable;
}

std::string JsonString(std::string_view text) {
    std::string json = "\"";
    ForEachCharacter(text, [&](std::string_view bytes, bool is_character) {
        if (!is_character)
            json += "\uFFFD";
        else if (IsControl(bytes.front()))
            json += Escaped("\\u%04X", bytes.front());
        else
            json.append(bytes == "\"" || bytes == "\\" ? "\\" : "").append(bytes);
    });
    return json + '"';
}

std::size_t Width(std::string_view text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

}  // namespace shell
