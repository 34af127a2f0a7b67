// SPDX-License-Identifier: MIT
// Broadcasts between applications on the D-Bus session bus. Private to the kits.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <poll.h>
#include <systemd/sd-bus.h>

// One application's connection. A broadcast is the signal org.nymbrel.Roster.Broadcast of the object
// /org/nymbrel/Roster with the message's code as its one argument, a uint32. A bus that fails or does not
// take what it is sent is given up for the rest of the run: from then on every operation does nothing.
class SessionBus {
public:
    // How long Open and each Broadcast wait for the bus.
    static constexpr std::chrono::milliseconds kPatience{500};

    SessionBus() = default;
    ~SessionBus() { Close(); }
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

    // Connects to the bus that DBUS_SESSION_BUS_ADDRESS names, or to the user's one where that is unset, and
    // returns whether it answered. Addresses other than Unix sockets are passed over: they would look up
    // host names or start programs, which no deadline ends. `receiver` is called with the code of each
    // broadcast of another application, by the thread that is in Process or Broadcast; it must not wait.
    bool Open(std::function<void(std::uint32_t)> receiver);
    void Close();

    // Sends a broadcast and returns when the bus has taken it. From any thread.
    void Broadcast(std::uint32_t code);

    // What the loop's poll() waits for: the descriptor (-1 without a bus) and its events; `timeout` is
    // lowered to the milliseconds after which Process is due in any case (a negative one waits for ever).
    pollfd PollEntry(int& timeout);
    // Takes what has arrived, without waiting; at most a burst of it, the next PollEntry is due at once then.
    void Process();

private:
    bool FinishOpening(std::chrono::steady_clock::time_point deadline);
    static int Receive(sd_bus_message* message, void* self, sd_bus_error* error);
    bool Flush(std::chrono::steady_clock::time_point deadline);
    pollfd PollEntryLocked(int& timeout);
    void GiveUp();

    std::mutex _mutex;
    sd_bus* _bus = nullptr;
    std::function<void(std::uint32_t)> _receiver;
};
