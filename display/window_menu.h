// SPDX-License-Identifier: MIT
// What can be done with a window as a whole: its context menu, and the keys that do the same.
#pragma once

#include "display/schemes.h"

class WindowMenu {
public:
    // Gives `top` the keys.
    WindowMenu(WindowMirror& window, QWidget& top);

    void Open(QPoint where);
    Schemes& OfSchemes() { return _schemes; }

private:
    // All but undo and redo, whose keys the window has.
    std::vector<menu_entry> Commands();

    WindowMirror& _window;
    QWidget& _top;
    Schemes _schemes;
};
