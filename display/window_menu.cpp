// SPDX-License-Identifier: MIT
#include "display/window_menu.h"

#include "display/notice.h"
#include "display/texts.h"
#include "display/wardrobe.h"
#include "display/window_mirror.h"
#include "kits/BWindow.h"

#include <QShortcut>
#include <QWidget>

#include <algorithm>
#include <iterator>
#include <utility>

WindowMenu::WindowMenu(WindowMirror& window, QWidget& top)
    : _window(window), _top(top), _schemes(window, top) {
    for (const menu_entry& entry : Commands())
        if (!entry.key.isEmpty())
            new QShortcut(entry.key, &top, entry.action);
}

void WindowMenu::Open(QPoint where) {
    std::vector<menu_entry> entries = _window.HistoryEntries();
    entries.emplace_back();
    std::ranges::move(Commands(), std::back_inserter(entries));
    OpenMenu(_top, where, entries);
}

std::vector<menu_entry> WindowMenu::Commands() {
    std::vector<menu_entry> commands = _schemes.Commands();
    const auto add = [&](std::vector<menu_entry> more) {
        std::ranges::move(more, std::back_inserter(commands));
    };
    add(_window.Commands());
    Wardrobe& worn = _window.Worn();
    add({{texts::Text(worn.IsPlain() ? texts::kChosenColors : texts::kPlainColors), Qt::Key_F8,
          [&worn] { worn.WearPlain(!worn.IsPlain()); }},
         {},
         {texts::Text(texts::kAbout).arg(_top.windowTitle()), Qt::Key_F1, [this] { TellAbout(&_top); }},
         {texts::Text(texts::kClose), Qt::CTRL | Qt::Key_W, [this] { _top.close(); }},
         {texts::Text(texts::kQuit), Qt::CTRL | Qt::Key_Q,
          [this] { _window.Window().PostMessage(B_QUIT_REQUESTED); }}});
    return commands;
}
