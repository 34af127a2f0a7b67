// SPDX-License-Identifier: MIT
// Marks what the imaging library exports; every other symbol is hidden.
#pragma once

// Goes between the keyword `class` and the name.
#define KS_EXPORT __attribute__((visibility("default")))
