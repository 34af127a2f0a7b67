// SPDX-License-Identifier: MIT
// The one list of the composition modes, in the order of ks_composition_mode.
#pragma once

// Every mode in one row: its value, the ending of its kernels' names, its label, whether it is destructive,
// and the structs of modes.h that its pixel kernel, its run kernel and its array kernel follow.
// clang-format off
#define KS_MERGE_MODES(row) \
    row(kMergeNormal,            alpha_compose,      "Normal",             false, alpha_compose,       alpha_compose,      alpha_compose) \
    row(kMergeMultiply,          multiply,           "Multiply",           false, multiply,            multiply,           multiply) \
    row(kMergeScreen,            screen,             "Screen",             false, screen,              screen,             screen) \
    row(kMergeErase,             erase,              "Erase",              false, erase_by_difference, erase_by_scaling,   erase_by_scaling) \
    row(kMergeAdd,               add,                "Add",                false, add,                 add,                add) \
    row(kMergeSubtract,          substract,          "Subtract",           false, substract,           substract,          substract) \
    row(kMergeDarkest,           darkest,            "Darkest",            false, darkest,             darkest,            darkest) \
    row(kMergeLightest,          lightest,           "Lightest",           false, lightest,            lightest,           lightest) \
    row(kMergeDifference,        difference,         "Difference",         false, difference,          difference,         difference) \
    row(kMergeAverage,           average,            "Average",            false, average,             average,            average) \
    row(kMergeInvert,            invert,             "Invert",             false, invert,              invert,             invert) \
    row(kMergeDissolve,          dissolve,           "Dissolve",           false, dissolve,            dissolve,           dissolve) \
    row(kMergeReplaceHue,        replace_hue,        "Replace Hue",        false, replace_hue,         replace_hue,        replace_hue) \
    row(kMergeReplaceSaturation, replace_saturation, "Replace Saturation", false, replace_saturation,  replace_saturation, replace_saturation) \
    row(kMergeReplaceLuminosity, replace_luminosity, "Replace Luminosity", false, replace_luminosity,  replace_luminosity, replace_luminosity) \
    row(kMergeReplaceColor,      replace_color,      "Replace Color",      false, replace_color,       replace_color,      replace_color) \
    row(kMergeXorMask,           xormask,            "XOR Mask",           false, xormask,             xormask,            xormask) \
    row(kMergeAlphaMask,         alphamask,          "Alpha Mask",         true,  xormask,             xormask,            mask_alpha) \
    row(kMergeCopy,              copy,               "Copy",               true,  copy,                copy,               copy) \
    row(kMergeOver,              over,               "Over",               false, over_clear,          over_clear,         over_clear) \
    row(kMergeFilter,            filter,             "Filter",             false, alpha_compose,       alpha_compose,      alpha_compose) \
    row(kMergeOverlay,           alpha_overlay,      "Overlay",            false, alpha_overlay,       alpha_overlay,      alpha_overlay)
// clang-format on
