// SPDX-License-Identifier: MIT
// What all editors of a value have in common: keys and a menu to copy, paste, undo and revert; and the time
// in which the user types, whose edits are one step.
#pragma once

#include <QObject>

#include <functional>

class ControlMirror;
class QContextMenuEvent;
class QKeyEvent;

class EditorWatch : public QObject {
public:
    // Watches the editor of `mirror`, which owns it.
    explicit EditorWatch(ControlMirror& mirror);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool TakesKey(const QKeyEvent& event);
    void FollowTyping(const QKeyEvent& event);
    void SetTyping(bool types);
    void OpenMenu(const QContextMenuEvent& event);
    void Copy();
    std::function<void()> Paster() const;
    void Revert();

    ControlMirror& _mirror;
};
