// SPDX-License-Identifier: MIT
// What the application's message loop waits for: its queue, the quit signals and the session bus.
#pragma once

#include "kits/BMessage.h"
#include "kits/SessionBus.h"

#include <csignal>
#include <mutex>
#include <vector>

// Turns SIGTERM and SIGINT into something to poll for, as long as it lives. It blocks them in the thread that
// makes it and in the threads which that one starts from then on. Signals that nobody has asked for are
// dropped at the end.
class QuitSignals {
public:
    QuitSignals();
    ~QuitSignals();
    QuitSignals(const QuitSignals&) = delete;
    QuitSignals& operator=(const QuitSignals&) = delete;

    int Descriptor() const { return _descriptor; }
    // Returns whether a signal has come since this was last asked.
    bool HaveCome();

private:
    sigset_t _before;
    int _descriptor = -1;
};

class ApplicationLoop {
public:
    ApplicationLoop();
    ~ApplicationLoop();
    ApplicationLoop(const ApplicationLoop&) = delete;
    ApplicationLoop& operator=(const ApplicationLoop&) = delete;

    // From any thread.
    void Post(const BMessage& message);
    // Waits for messages and returns all that have come, oldest first; a quit signal is B_QUIT_REQUESTED.
    // May return none.
    std::vector<BMessage> Wait(QuitSignals& signals);

    SessionBus bus;

private:
    std::mutex _mutex;
    std::vector<BMessage> _queue;
    int _wake = -1;  // an eventfd that is readable while the queue holds messages
};
