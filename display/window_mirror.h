// SPDX-License-Identifier: MIT
// A window on the screen: its top widget, and a mirror for each control in it.
#pragma once

#include "display/context_menu.h"
#include "display/control_mirror.h"

#include <memory>
#include <unordered_map>
#include <vector>

class BWindow;
class KSContainer;
class PostQueue;
class QDialog;
class QKeyEvent;
class QPushButton;
class QWidget;
class Wardrobe;

class WindowMirror {
public:
    // Makes the widgets and shows them.
    WindowMirror(BWindow& window, PostQueue& queue, Wardrobe& wardrobe);
    // Takes the window off the screen; the controls stay.
    ~WindowMirror();
    WindowMirror(const WindowMirror&) = delete;
    WindowMirror& operator=(const WindowMirror&) = delete;

    // For mirrors: makes the mirror of a child and keeps it.
    ControlMirror& Make(KSControl& control, QWidget* parent);
    // Returns the mirror of a control, or null.
    ControlMirror* Find(const KSControl* control) const;
    // Commits every mirror, before a command reads the controls.
    void Commit();
    // The window's own lock, for hooks.
    BWindow& Window() const { return _window; }
    // What the process wears, for mirrors that try something on.
    Wardrobe& Worn() const { return _wardrobe; }
    // Wears what the controls say, and nothing that was tried on, when `dialog` has closed.
    void TakeOffAfter(const QDialog& dialog);
    // Undo and redo: in the text that is being typed as long as there is something, else in the history.
    void Undo();
    void Redo();
    std::vector<menu_entry> HistoryEntries();
    static bool IsHistoryKey(const QKeyEvent& event);
    // In `mirror` the user has begun to type; null when he has finished.
    void SetTyping(const ControlMirror* mirror);
    bool IsTyping(const ControlMirror& mirror) const { return _typing == &mirror; }
    // Sets the button that Enter presses, wherever the keyboard's focus is.
    void SetDefaultButton(QPushButton* button);

private:
    class Top;

    void Listen(bool on);
    void Sync();
    void Exchange(bool redo);
    // Copies the mirrors' state, and that of the lists that mark what has changed in others.
    void Fetch(std::vector<ControlMirror*>& changed, bool& labels);
    // Names the editors for assistive tools, and shows the labels with their mnemonics.
    void ShowLabels();
    // The mirrors that show labels: first those that are always visible, then those of each page.
    using Pages = std::vector<std::vector<ControlMirror*>>;
    // Names the editors below `control`; `title` is the name of those that have none. Adds the mirrors that
    // show labels to `pages`, from `page` on, and to `editors` the editor that each label names.
    void NameEditors(const KSControl& control, const QString& title, Pages& pages, std::size_t page,
                     std::unordered_map<ControlMirror*, QWidget*>& editors);
    QWidget* FirstEditor(const KSControl& control) const;

    BWindow& _window;
    PostQueue& _queue;
    Wardrobe& _wardrobe;
    std::vector<KSContainer*> _containers;
    std::vector<std::unique_ptr<ControlMirror>> _mirrors;  // children before their parents
    std::unordered_map<const KSControl*, ControlMirror*> _by_control;
    std::unique_ptr<Top> _top;
    const ControlMirror* _typing = nullptr;

    // Ends the listening, also when the constructor throws.
    struct Listening {
        ~Listening() { mirror.Listen(false); }
        WindowMirror& mirror;
    } _listening{*this};
};
