// SPDX-License-Identifier: MIT
// The window server on Qt. It has Qt's application object, the event loop and the windows on the screen.
#pragma once

#include "display/post_queue.h"
#include "kits/WindowServer.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

class QApplication;
class WindowMirror;

class DisplayServer : public WindowServer {
public:
    DisplayServer();
    // On the main thread, like Prepare and Run.
    ~DisplayServer() override;

    void Prepare(bool bus_answers) override;
    void Run() override;
    void Quit() override;
    void Show(BWindow* window) override;

protected:
    PostQueue _queue;

private:
    void PutOnScreen(BWindow* window);
    void TakeAllOffScreen();

    std::unique_ptr<QApplication> _application;
    std::vector<std::unique_ptr<WindowMirror>> _windows;

    std::mutex _mutex;  // guards what follows; taken after a window's lock or without one
    std::condition_variable _progress;
    std::vector<BWindow*> _shown;  // written by the main thread only
    bool _ended = false;
};
