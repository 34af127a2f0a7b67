// SPDX-License-Identifier: MIT
// The editors of the settings model without a window.
#pragma once

#include "toolkit/KSContainer.h"

namespace config {

// Makes the editors (MakeEditors) and owns them. The model's references are its editors' until others are
// made.
class Editors {
public:
    Editors();

    KSContainer& Container() { return _container; }

private:
    KSContainer _container{{0, 0, 495, 300}, "view"};
};

}  // namespace config
