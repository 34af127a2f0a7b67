// SPDX-License-Identifier: MIT
// Names and lists of the composition modes, for tests of each.
#pragma once

#include "merge/KSMerge.h"

#include <initializer_list>
#include <string>
#include <vector>

inline std::string ModeName(ks_composition_mode mode) {
    std::string name;
    for (const char* c = KSMerge::composition_label[mode]; *c; c++)
        if (*c != ' ')
            name += *c;
    return name;
}

inline std::vector<ks_composition_mode> AllModesBut(std::initializer_list<ks_composition_mode> left_out) {
    std::vector<ks_composition_mode> modes;
    for (int i = 0; i < kMergeCount; i++) {
        bool wanted = true;
        for (const ks_composition_mode mode : left_out)
            wanted = wanted && mode != i;
        if (wanted)
            modes.push_back(static_cast<ks_composition_mode>(i));
    }
    return modes;
}
