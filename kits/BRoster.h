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
};

extern BRoster* const be_roster;
