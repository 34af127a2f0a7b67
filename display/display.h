// SPDX-License-Identifier: MIT
// Shows the toolkit's windows with Qt 6 Widgets. The only door to this folder: no Qt in it.
#pragma once

#include "kits/WindowServer.h"

#include <memory>

// Makes the window server of this process, for BApplication::Run on the main thread, which starts Qt.
std::unique_ptr<WindowServer> ks_open_display();
