// SPDX-License-Identifier: MIT
// Menus that open at the pointer or at what has the keyboard.
#pragma once

#include <QKeySequence>
#include <QPoint>
#include <QString>

#include <functional>
#include <vector>

class QWidget;

struct menu_entry {
    QString text;        // with "&" before a mnemonic; none: a line between entries
    QKeySequence key{};  // shown only: whoever owns the shortcut handles it
    std::function<void()> action{};
    bool is_enabled = true;
    std::vector<menu_entry> entries{};  // of a menu below this entry
};

// Opens a menu at `where` on the screen and returns at once. Each action runs after the menu has closed.
void OpenMenu(QWidget& owner, QPoint where, const std::vector<menu_entry>& entries);
