// SPDX-License-Identifier: MIT
// A window: a frame, a title and the views in it. The window server's event loop is its loop.
#pragma once

#include "hdr/KSRect.h"
#include "kits/BLooper.h"

#include <memory>
#include <string>
#include <vector>

class BView;

class BWindow : public BLooper {
public:
    // Made on the heap and on the application's thread; the application deletes it in the end. `frame` is in
    // screen coordinates, right and bottom inclusive.
    BWindow(KSRect<long> frame, const char* title);
    // Deletes the window's views. The window must not be on the screen.
    ~BWindow() override;

    // Takes over `view`.
    void AddChild(BView* view);
    const std::vector<std::unique_ptr<BView>>& Children() const { return _children; }

    // Puts the window on the screen through the application's window server and returns when it is there.
    // Called once; the caller must not hold the window's lock (both asserted).
    void Show();

    KSRect<long> Frame() const { return _frame; }
    const char* Title() const { return _title.c_str(); }

    // Posts the message to the application's loop: a window has none of its own. The window server calls
    // QuitRequested when the user closes the window.
    void PostMessage(const BMessage& message) override;
    using BLooper::PostMessage;

private:
    KSRect<long> _frame;
    std::string _title;
    std::vector<std::unique_ptr<BView>> _children;
};
