// SPDX-License-Identifier: MIT
// An X server of the test's own, with the person in front of it: a mouse and a keyboard (XTEST), and the
// least window manager that gives each new window the focus.
#pragma once

#include "process.h"

#include <memory>

struct screen_point {
    int x, y;
};

struct screen_rect {
    int left, top, width, height;
    bool operator==(const screen_rect&) const = default;
    screen_point Middle() const { return {left + width / 2, top + height / 2}; }
};

class VirtualScreen {
public:
    // Starts the server on a free display number, and waits until it answers.
    explicit VirtualScreen(const std::map<std::string, std::string>& environment);
    ~VirtualScreen();

    // What DISPLAY has to be for a program to come up here.
    const std::string& Name() const;

    // The title of the window with the keyboard focus; nothing when none has it.
    std::string FocusedTitle();
    screen_rect FrameOf(const std::string& title);
    // Asks the window with this title to close, as a window manager's close box does.
    void Close(const std::string& title);

    // A key as X names it, with modifiers ahead: "Return", "Alt+o", "Shift+Tab".
    void Press(const std::string& key);
    // Types characters that stand on a US keyboard.
    void Type(const std::string& text);
    void MoveTo(screen_point point);
    void Click(screen_point point, const std::string& modifier = {});
    void TurnWheel(screen_point point, int clicks_up);

private:
    struct Server;
    std::unique_ptr<Server> _server;
};
