// SPDX-License-Identifier: MIT
// What the application's message loop waits for: its queue, the quit signals and the session bus.
#pragma once

#include "kits/BApplication.h"
#include "kits/BMessage.h"
#include "kits/SessionBus.h"

#include <csignal>
#include <mutex>
#include <vector>

// Turns SIGTERM and SIGINT into something to poll for, for its lifetime. They are blocked in the thread that
// makes it and in those which that thread starts from then on; what comes and nobody takes is dropped.
class QuitSignals {
public:
    QuitSignals();
    ~QuitSignals();
    QuitSignals(const QuitSignals&) = delete;
    QuitSignals& operator=(const QuitSignals&) = delete;

    int Descriptor() const { return _descriptor; }
    // Returns whether a signal has come since it was last asked.
    bool Take();

private:
    sigset_t _before;
    int _descriptor = -1;
};

class BApplication::Loop {
public:
    Loop();
    ~Loop();
    Loop(const Loop&) = delete;
    Loop& operator=(const Loop&) = delete;

    // From any thread.
    void Post(const BMessage& message);
    // Waits for messages and returns all that have come, oldest first; a quit signal is B_QUIT_REQUESTED.
    // May return none.
    std::vector<BMessage> Wait(QuitSignals& signals);

    SessionBus bus;
    bool has_run = false;

private:
    std::mutex _mutex;
    std::vector<BMessage> _queue;
    int _wake = -1;  // an eventfd that is readable while the queue holds messages
};
