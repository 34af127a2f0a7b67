// SPDX-License-Identifier: MIT
// The running applications, as far as messages go to all of them.
#pragma once

class BMessage;

class BRoster {
public:
    // Sends a message to every running application on the session bus, this one included, which hears it
    // exactly once whether or not there is a bus. Waits at most 500 ms for a bus that does not take it, and
    // never again for that one; failures are silent. Without an application nothing is sent.
    void Broadcast(const BMessage* message);
};

extern BRoster* const be_roster;
