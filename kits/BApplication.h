// SPDX-License-Identifier: MIT
// The application object: one looper per process, with a thread of its own while it runs.
#pragma once

#include "kits/BLooper.h"

#include <atomic>
#include <memory>
#include <string>
#include <vector>

class BWindow;
class QuitSignals;
class WindowServer;

class BApplication : public BLooper {
public:
    // `signature` is the application's MIME signature. Becomes be_app; a process has one application at a
    // time (asserted).
    explicit BApplication(const char* signature);
    // Deletes the windows that are still there.
    ~BApplication() override;

    // Runs the application: the message loop on a thread of its own, which calls ReadyToRun first, and
    // `server`'s event loop on the calling (main) thread. Returns when the message loop has ended by a
    // quit request that QuitRequested granted; messages still queued behind it are dropped. SIGTERM and
    // SIGINT are quit requests meanwhile. When `server` ends on its own, the message loop ends after the
    // messages that it has. An exception that leaves a hook or `server` ends both loops and is thrown on.
    // `server` may be null: then no window is seen. Called once, without another thread running.
    void Run(WindowServer* server = nullptr);

    void PostMessage(const BMessage& message) override;
    using BLooper::PostMessage;

    // Called once on the loop's thread before the first message.
    virtual void ReadyToRun();

    // Called on the sending thread before a message is broadcast by this application.
    virtual void BroadcastStarting(const BMessage& message);

    const char* Signature() const { return _signature.c_str(); }
    // The windows, in the order in which they were made; lock-free, for the loop's thread and, after Run,
    // any other.
    const std::vector<BWindow*>& Windows() const { return _windows; }

private:
    friend class BWindow;
    friend class BRoster;
    class Loop;

    void RunLoop(QuitSignals& signals);

    std::string _signature;
    std::vector<BWindow*> _windows;
    std::unique_ptr<Loop> _loop;
    WindowServer* _server = nullptr;
    std::atomic<bool> _server_has_ended = false;
};

// The process's application object, or null.
extern BApplication* be_app;
