// SPDX-License-Identifier: MIT
// One window on the screen: the top widget, and a mirror for each control in it.
#pragma once

#include "display/control_mirror.h"

#include <memory>
#include <unordered_map>
#include <vector>

class BWindow;
class KSContainer;
class PostQueue;
class QPushButton;
class QWidget;

class WindowMirror {
public:
    // Makes the widgets and has the screen show them.
    WindowMirror(BWindow& window, PostQueue& queue);
    // Takes the window off the screen; the controls stay.
    ~WindowMirror();
    WindowMirror(const WindowMirror&) = delete;
    WindowMirror& operator=(const WindowMirror&) = delete;

    // For mirrors: makes the mirror of a child, which this window keeps.
    ControlMirror& Make(KSControl& control, QWidget* parent);
    // The mirror of a control, or null.
    ControlMirror* Find(const KSControl* control) const;
    // Gives the controls everything that has been typed, before a command reads them.
    void Commit();
    // The window's own lock, for hooks.
    BWindow& Window() const { return _window; }
    // Has this button pressed by Enter, wherever the keyboard's focus is.
    void SetDefaultButton(QPushButton* button);

private:
    class Top;

    void Listen(bool on);
    void Sync();
    // Names the editors for assistive tools, and shows the labels with their mnemonics.
    void ShowLabels();
    using Places = std::vector<std::vector<ControlMirror*>>;  // that can be seen together, with the first
    // `title` is the name of what has none of its own. Adds the labels below `control` to `places`, and to
    // `editors` what each of them stands beside.
    void NameEditors(const KSControl& control, const QString& title, Places& places, std::size_t place,
                     std::unordered_map<ControlMirror*, QWidget*>& editors);
    QWidget* FirstEditor(const KSControl& control) const;

    BWindow& _window;
    PostQueue& _queue;
    std::vector<KSContainer*> _containers;
    std::vector<std::unique_ptr<ControlMirror>> _mirrors;  // children before their parents
    std::unordered_map<const KSControl*, ControlMirror*> _by_control;
    std::unique_ptr<Top> _top;
};
