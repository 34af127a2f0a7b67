// SPDX-License-Identifier: MIT
// Opens and saves schemes, where this process has the editors of the look.
//
// A scheme that is opened becomes one edit of the window: it is worn at once, and nothing is stored.
#pragma once

#include "display/context_menu.h"

class QWidget;
class WindowMirror;
struct ks_scheme;

class Schemes {
public:
    Schemes(WindowMirror& window, QWidget& top) : _window(window), _top(top) {}

    // What a window's menu offers; nothing where there is no look to edit.
    std::vector<menu_entry> Commands();
    // Whether a file that is dropped on the window can be opened now.
    bool CanOpen() const;
    // Wears the scheme of a file, and says so in front of `parent` if any of it cannot be used. Returns
    // whether anything could.
    bool Open(const QString& path, QWidget& parent);

private:
    class Dialog;

    void Wear(const ks_scheme& scheme);
    bool Save(const QString& path, QWidget& parent);
    void AskForOne();
    void AskWhereToSave();

    WindowMirror& _window;
    QWidget& _top;
};
