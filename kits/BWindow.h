// SPDX-License-Identifier: MIT
// A window: a frame, a title and the views in it. Its loop is the window server's event loop.
#pragma once

#include "hdr/KSRect.h"
#include "kits/BLooper.h"

#include <memory>
#include <string>
#include <vector>

class BView;

class BWindow : public BLooper {
public:
    // Made on the application's thread, on the heap; the application deletes it in the end. `frame` is in
    // screen coordinates, right and bottom inclusive.
    BWindow(KSRect<long> frame, const char* title);
    // Deletes the window's views. The window must not be on the screen.
    ~BWindow() override;

    // Takes over `view`.
    void AddChild(BView* view);
    const std::vector<std::unique_ptr<BView>>& Children() const { return _children; }

    // Puts the window on the screen through the application's window server and returns when it is there.
    // The caller must not hold the window's lock (asserted).
    void Show();

    KSRect<long> Frame() const { return _frame; }
    const char* Title() const { return _title.c_str(); }

    // B_QUIT_REQUESTED has no thread of its own to arrive at: the window server asks QuitRequested when
    // the user closes the window. Every message posted goes to the application's loop.
    void PostMessage(const BMessage& message) override;
    using BLooper::PostMessage;

private:
    KSRect<long> _frame;
    std::string _title;
    std::vector<std::unique_ptr<BView>> _children;
};
