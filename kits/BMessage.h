// SPDX-License-Identifier: MIT
// A message between loopers: a 32-bit code of four characters and no fields.
#pragma once

#include <cstdint>

// Returns the code of four characters, the first in the most significant byte: "LIST" is 0x4C495354.
constexpr std::uint32_t ks_message_code(const char (&text)[5]) {
    std::uint32_t code = 0;
    for (int i = 0; i < 4; ++i)
        code = code << 8 | static_cast<unsigned char>(text[i]);
    return code;
}

// Asks a looper to end; BLooper::QuitRequested decides.
constexpr std::uint32_t B_QUIT_REQUESTED = ks_message_code("_QRQ");

class BMessage {
public:
    explicit BMessage(std::uint32_t code = 0) : what(code) {}

    std::uint32_t what;
};
