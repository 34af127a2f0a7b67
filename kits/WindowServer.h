// SPDX-License-Identifier: MIT
// What the kits ask of a window system. The one implementation is display's; without one the application runs
// all the same and its windows are not seen.
#pragma once

class BWindow;

class WindowServer {
public:
    virtual ~WindowServer() = default;

    // Called on the main thread before any other thread runs. `bus_answers` tells whether the session bus
    // has answered: one that has not may keep its users waiting for ever.
    virtual void Prepare(bool bus_answers) = 0;

    // Runs the event loop on the main thread until Quit() is called, before or during Run(). It takes every
    // window off the screen before it returns or throws.
    virtual void Run() = 0;

    // Ends Run(). From any thread; never waits.
    virtual void Quit() = 0;

    // Puts a window on the screen and returns when it is there or when Run() has ended. Called once for each
    // window, on a thread other than the main one, which must not hold the window's lock.
    virtual void Show(BWindow* window) = 0;
};
