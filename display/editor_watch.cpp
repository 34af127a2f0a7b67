// SPDX-License-Identifier: MIT
#include "display/editor_watch.h"

#include "display/context_menu.h"
#include "display/control_mirror.h"
#include "display/texts.h"
#include "display/window_mirror.h"
#include "kits/BWindow.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QWidget>

#include <utility>

namespace {

// Empties the line's own undo: what was typed before is in the window's history.
void ForgetTyped(QLineEdit& line) {
    const int cursor = line.cursorPosition(), start = line.selectionStart(), length = line.selectionLength();
    line.setText(line.text());
    if (length > 0)
        line.setSelection(start, length);
    else
        line.setCursorPosition(cursor);
}

}  // namespace

EditorWatch::EditorWatch(ControlMirror& mirror) : QObject(mirror.Editor()), _mirror(mirror) {
    mirror.Editor()->installEventFilter(this);
}

bool EditorWatch::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        // A line to type in would keep these from the window.
        return _mirror.Window().IsHistoryKey(static_cast<QKeyEvent&>(*event));
    case QEvent::KeyPress:
        FollowTyping(static_cast<QKeyEvent&>(*event));
        return TakesKey(static_cast<QKeyEvent&>(*event));
    case QEvent::InputMethod:
        SetTyping(true);
        return false;
    case QEvent::FocusOut:
        SetTyping(false);
        return false;
    case QEvent::ContextMenu:
        OpenMenu(static_cast<QContextMenuEvent&>(*event));
        return true;
    default:
        return false;
    }
}

// A line to type in copies and pastes by itself.
bool EditorWatch::TakesKey(const QKeyEvent& event) {
    const bool copies = event.matches(QKeySequence::Copy), pastes = event.matches(QKeySequence::Paste);
    if (_mirror.Line() || (!copies && !pastes))
        return false;
    if (copies)
        Copy();
    else if (const auto paste = Paster())
        paste();
    return true;
}

void EditorWatch::FollowTyping(const QKeyEvent& event) {
    const int key = event.key();
    if (key == Qt::Key_Backspace || key == Qt::Key_Delete ||
        (!event.text().isEmpty() && event.text().front().isPrint())) {
        if (_mirror.Line() && !_mirror.Window().IsTyping(_mirror))
            ForgetTyped(*_mirror.Line());
        SetTyping(true);
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Up || key == Qt::Key_Down ||
        key == Qt::Key_PageUp || key == Qt::Key_PageDown || event.matches(QKeySequence::Paste))
        SetTyping(false);
}

void EditorWatch::SetTyping(bool types) {
    if (_mirror.Line())
        _mirror.Window().SetTyping(types ? &_mirror : nullptr);
}

void EditorWatch::OpenMenu(const QContextMenuEvent& event) {
    QWidget& editor = *_mirror.Editor();
    bool is_edited = false;
    {
        const BAutolock lock(&_mirror.Window().Window());
        is_edited = lock && _mirror.Control().IsEdited();
    }
    const std::function<void()> paste = Paster();
    std::vector<menu_entry> entries = {
        {texts::Text(texts::kCopy), QKeySequence::Copy, [this] { Copy(); }, _mirror.Copied() != nullptr},
        {texts::Text(texts::kPaste), QKeySequence::Paste, paste, paste != nullptr},
        {}};
    for (menu_entry& entry : _mirror.Window().HistoryEntries())
        entries.push_back(std::move(entry));
    entries.push_back({texts::Text(texts::kRevertThis), {}, [this] { Revert(); }, is_edited});
    const QPoint where = event.reason() == QContextMenuEvent::Keyboard
                             ? editor.mapToGlobal(editor.rect().bottomLeft())
                             : event.globalPos();
    ::OpenMenu(editor, where, entries);
}

void EditorWatch::Copy() {
    if (std::unique_ptr<QMimeData> data = _mirror.Copied())
        QGuiApplication::clipboard()->setMimeData(data.release());
}

std::function<void()> EditorWatch::Paster() const {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data ? _mirror.Paster(*data) : nullptr;
}

// A text that the control has refused goes, too.
void EditorWatch::Revert() {
    BWindow& window = _mirror.Window().Window();
    bool reverted = false;
    {
        const BAutolock lock(&window);
        reverted = lock && _mirror.Control().Revert();
    }
    if (reverted)
        _mirror.Control().SendReverted(window);
    else
        _mirror.Commit();
}
