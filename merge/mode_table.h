// SPDX-License-Identifier: MIT
// The one list of the composition modes, in the order of ks_composition_mode.
#pragma once

// Every mode in one row: its value, its label, whether it is destructive, and the structs of modes.h that its
// pixel kernel, its run kernel and its array kernel follow.
// clang-format off
#define KS_MERGE_MODES(row) \
    row(kMergeNormal,            "Normal",             false, alpha_compose,       alpha_compose,      alpha_compose) \
    row(kMergeMultiply,          "Multiply",           false, multiply,            multiply,           multiply) \
    row(kMergeScreen,            "Screen",             false, screen,              screen,             screen) \
    row(kMergeErase,             "Erase",              false, erase_by_difference, erase_by_scaling,   erase_by_scaling) \
    row(kMergeAdd,               "Add",                false, add,                 add,                add) \
    row(kMergeSubtract,          "Subtract",           false, substract,           substract,          substract) \
    row(kMergeDarkest,           "Darkest",            false, darkest,             darkest,            darkest) \
    row(kMergeLightest,          "Lightest",           false, lightest,            lightest,           lightest) \
    row(kMergeDifference,        "Difference",         false, difference,          difference,         difference) \
    row(kMergeAverage,           "Average",            false, average,             average,            average) \
    row(kMergeInvert,            "Invert",             false, invert,              invert,             invert) \
    row(kMergeDissolve,          "Dissolve",           false, dissolve,            dissolve,           dissolve) \
    row(kMergeReplaceHue,        "Replace Hue",        false, replace_hue,         replace_hue,        replace_hue) \
    row(kMergeReplaceSaturation, "Replace Saturation", false, replace_saturation,  replace_saturation, replace_saturation) \
    row(kMergeReplaceLuminosity, "Replace Luminosity", false, replace_luminosity,  replace_luminosity, replace_luminosity) \
    row(kMergeReplaceColor,      "Replace Color",      false, replace_color,       replace_color,      replace_color) \
    row(kMergeXorMask,           "XOR Mask",           false, xormask,             xormask,            xormask) \
    row(kMergeAlphaMask,         "Alpha Mask",         true,  xormask,             xormask,            mask_alpha) \
    row(kMergeCopy,              "Copy",               true,  copy,                copy,               copy) \
    row(kMergeOver,              "Over",               false, over_clear,          over_clear,         over_clear) \
    row(kMergeFilter,            "Filter",             false, alpha_compose,       alpha_compose,      alpha_compose) \
    row(kMergeOverlay,           "Overlay",            false, alpha_overlay,       alpha_overlay,      alpha_overlay)
// clang-format on
