// SPDX-License-Identifier: MIT
// The toolkit's window.
#pragma once

#include "kits/BWindow.h"
#include "toolkit/KSHistory.h"

using ks_window_look = long;
using ks_window_feel = long;

class KSWindow : public BWindow {
public:
    // Look 1 is an ordinary titled window; feel, flags and workspaces are 0.
    KSWindow(KSRect<long> frame, const char* title, ks_window_look, ks_window_feel, unsigned, unsigned)
        : BWindow(frame, title) {}

    // Used under the window's lock.
    KSHistory& History() { return _history; }

private:
    KSHistory _history;
};
