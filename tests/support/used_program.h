// SPDX-License-Identifier: MIT
// The program on its message loop, without a bus, and a thread of the test's that uses it.
#pragma once

#include "app/NymbrelConfig.h"
#include "tests/support/home.h"
#include "tests/support/recorders.h"

#include <algorithm>
#include <functional>
#include <thread>

// Records the messages that the application has handled.
class UsedProgram : public NCApplication {
public:
    long Count(std::uint32_t code) const { return std::ranges::count(_handled.Entries(), code); }
    // Waits until `count` messages of this code have been handled; returns whether they have in time.
    bool WaitForMessage(std::uint32_t code, long count = 1) {
        return _handled.WaitUntil(
            [&](const auto& codes) { return std::ranges::count(codes, code) >= count; });
    }

    void ReadyToRun() override {
        NCApplication::ReadyToRun();
        _user = std::thread(_use);
    }
    void MessageReceived(BMessage* message) override {
        NCApplication::MessageReceived(message);
        _handled.Add(message->what);
    }

protected:
    // `use` is called on a thread of its own once the window has its values.
    explicit UsedProgram(std::function<void()> use) : _use(std::move(use)) {}

    // Returns when the program has ended and `use` has returned.
    void RunUsed(WindowServer& server) {
        const ScopedVariable no_bus("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        Run(&server);
        _user.join();
    }

private:
    std::function<void()> _use;
    std::thread _user;
    Journal<std::uint32_t> _handled;
};
