// SPDX-License-Identifier: MIT
// The toolkit's window.
#include "toolkit/KSWindow.h"

KSWindow::KSWindow(KSRect<long> frame, const char* title, ks_window_look, ks_window_feel, unsigned, unsigned)
    : BWindow(frame, title) {}
