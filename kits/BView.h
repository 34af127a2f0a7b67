// SPDX-License-Identifier: MIT
// A part of a window.
#pragma once

#include "kits/BHandler.h"

class BWindow;

class BView : public BHandler {
public:
    explicit BView(const char* name = nullptr) : BHandler(name) {}

    // The window that the view has been added to, or null.
    BWindow* Window() const { return _window; }

private:
    friend class BWindow;
    BWindow* _window = nullptr;
};
