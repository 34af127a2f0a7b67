// SPDX-License-Identifier: MIT
// What the add-on of the tests offers to the program that loads it.
#pragma once

// Name and type of the add-on's entry: draws with the classes of the image that loaded it, and returns null
// or what went wrong.
constexpr const char* kAddOnEntry = "draw_with_the_image";
using add_on_entry = const char* (*)();
