// SPDX-License-Identifier: MIT
// What the application's message loop waits for: its queue and the session bus.
#pragma once

#include "kits/BMessage.h"
#include "kits/SessionBus.h"

#include <mutex>
#include <vector>

class ApplicationLoop {
public:
    ApplicationLoop();
    ~ApplicationLoop();
    ApplicationLoop(const ApplicationLoop&) = delete;
    ApplicationLoop& operator=(const ApplicationLoop&) = delete;

    // From any thread.
    void Post(const BMessage& message);
    // Waits for messages and returns all that have come, oldest first. May return none.
    std::vector<BMessage> Wait();

    SessionBus bus;

private:
    std::mutex _mutex;
    std::vector<BMessage> _queue;
    int _wake = -1;  // an eventfd that is readable while the queue holds messages
};
