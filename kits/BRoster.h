// SPDX-License-Identifier: MIT
// Sends messages to all running applications.
#pragma once

class BMessage;

class BRoster {
public:
    // Sends a message to every running application on the session bus. This one receives it too, exactly
    // once, with or without a bus. Waits at most 500 ms for a bus that does not take it, and never again for
    // that one; failures are silent. Does nothing without an application or a message.
    void Broadcast(const BMessage* message);

    // Sends a message from a program without an application, on a connection for it alone. Waits at most
    // 500 ms to connect and as long again to send. Returns whether the bus has taken it.
    bool Announce(const BMessage& message);
};

extern BRoster* const be_roster;
