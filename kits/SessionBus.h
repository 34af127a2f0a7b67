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
// /org/nymbrel/Roster with the message's code as its one argument, a uint32. A bus that fails, or that does
// not take what it is sent, is given up: from then on every operation does nothing.
class SessionBus {
public:
    // How long Open and each Broadcast wait for the bus.
    static constexpr std::chrono::milliseconds kPatience{500};

    SessionBus() = default;
    ~SessionBus() { Close(); }
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

    // Connects to the bus that DBUS_SESSION_BUS_ADDRESS names, or to the user's bus where that is unset, and
    // returns whether it answered. Called once (asserted). Only Unix sockets are tried: the other kinds of
    // address look up host names or start programs, and no deadline ends that. `receiver` is called with the
    // code of each broadcast of another application, by the thread that is in Process or Broadcast. It must
    // not wait; if it throws, the program is terminated.
    bool Open(std::function<void(std::uint32_t)> receiver);
    void Close();

    // Sends a broadcast and returns when the bus has taken it; false when it does not. From any thread.
    bool Broadcast(std::uint32_t code);

    // Returns what the loop's poll() waits for: the descriptor (-1 without a bus) and its events. Lowers
    // `timeout` to the milliseconds after which Process is due in any case; a negative one waits for ever.
    pollfd PollEntry(int& timeout);
    // Handles what has arrived, without waiting. What is left after a burst makes the next PollEntry due at
    // once.
    void Process();

private:
    bool FinishOpening(std::chrono::steady_clock::time_point deadline);
    static int Receive(sd_bus_message* message, void* self, sd_bus_error* error) noexcept;
    bool Flush(std::chrono::steady_clock::time_point deadline);
    pollfd PollEntryLocked(int& timeout);
    void GiveUp();

    std::mutex _mutex;
    sd_bus* _bus = nullptr;
    std::function<void(std::uint32_t)> _receiver;
};
