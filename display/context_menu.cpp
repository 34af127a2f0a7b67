// SPDX-License-Identifier: MIT
#include "display/context_menu.h"

#include <QMenu>

namespace {

void Fill(QMenu& menu, const std::vector<menu_entry>& entries) {
    for (const menu_entry& entry : entries) {
        if (entry.text.isEmpty()) {
            menu.addSeparator();
        } else if (!entry.entries.empty()) {
            Fill(*menu.addMenu(entry.text), entry.entries);
        } else {
            QAction* action = menu.addAction(entry.text);
            action->setShortcut(entry.key);
            action->setShortcutContext(Qt::WidgetShortcut);
            action->setShortcutVisibleInContextMenu(true);
            action->setEnabled(entry.is_enabled);
            QObject::connect(action, &QAction::triggered, &menu, entry.action, Qt::QueuedConnection);
        }
    }
}

}  // namespace

void OpenMenu(QWidget& owner, QPoint where, const std::vector<menu_entry>& entries) {
    auto* menu = new QMenu(&owner);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    Fill(*menu, entries);
    menu->popup(where);
}
