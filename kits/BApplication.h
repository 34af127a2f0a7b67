// SPDX-License-Identifier: MIT
// The application object: one looper per process, with a thread of its own while it runs.
#pragma once

#include "kits/BLooper.h"

#include <atomic>
#include <memory>
#include <string>
#include <vector>

class ApplicationLoop;
class BWindow;
class WindowServer;

class BApplication : public BLooper {
public:
    // `signature` is the application's MIME signature. Becomes be_app; a process has one application at a
    // time (asserted).
    explicit BApplication(const char* signature);
    // Deletes the windows that are still there.
    ~BApplication() override;

    // Runs the message loop on a thread of its own, which calls ReadyToRun first, and `server`'s event loop
    // on the calling (main) thread. Returns when QuitRequested has granted a quit request; messages behind
    // that request are dropped. SIGTERM, SIGINT and SIGHUP are quit requests meanwhile; one that is refused
    // or not answered ends the process all the same (kits/QuitSignals.h). When `server` ends on its own, the
    // message loop ends after the messages that it has. An exception that leaves a hook or `server` ends both
    // loops and is thrown on. Without a `server` no window is seen. Called once (asserted), while no other
    // thread runs.
    void Run(WindowServer* server = nullptr);

    void PostMessage(const BMessage& message) override;
    using BLooper::PostMessage;

    // Called once on the loop's thread before the first message.
    virtual void ReadyToRun() {}

    // Sends a message to every application on the session bus and to this one; see BRoster::Broadcast.
    void Broadcast(const BMessage& message);
    // Called by Broadcast before it sends anything.
    virtual void BroadcastStarting(const BMessage&) {}
    // Returns whether a message that another application broadcasts is received here. Any program on the bus
    // can send any code. Called on any thread that uses the bus; must not throw, wait or broadcast.
    virtual bool AcceptsBroadcast(std::uint32_t /*code*/) const { return true; }

    const char* Signature() const { return _signature.c_str(); }
    // The windows in the order in which they were made. No lock guards them: they are for the loop's thread
    // and, after Run, for any other.
    const std::vector<BWindow*>& Windows() const { return _windows; }

private:
    friend class BWindow;

    void RunLoop();

    std::string _signature;
    std::vector<BWindow*> _windows;
    std::unique_ptr<ApplicationLoop> _loop;
    WindowServer* _server = nullptr;
    bool _has_run = false;
    std::atomic<bool> _server_has_ended = false;
};

// The process's application object, or null.
extern BApplication* be_app;
