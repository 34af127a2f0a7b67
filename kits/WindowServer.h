// SPDX-License-Identifier: MIT
// What the kits ask of whatever puts windows on a screen. The one implementation is display's; without one
// the application runs all the same, its windows unseen.
#pragma once

class BWindow;

class WindowServer {
public:
    virtual ~WindowServer() = default;

    // Called on the main thread before any other thread runs. `bus_answers` tells whether the session bus
    // can be used without waiting for ever.
    virtual void Prepare(bool bus_answers) = 0;

    // Runs the event loop on the main thread, and takes every window off the screen when it ends: when the
    // loop was told to by Quit(), be it before or during Run().
    virtual void Run() = 0;

    // Ends Run(). From any thread; never waits.
    virtual void Quit() = 0;

    // Puts a window on the screen and returns when it is there, or when Run() has ended. Called on a thread
    // other than the main one, which must not hold the window's lock.
    virtual void Show(BWindow* window) = 0;
};
