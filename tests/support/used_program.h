// SPDX-License-Identifier: MIT
// The program on its message loop, without a bus, and a thread of the test's that uses it.
#pragma once

#include "app/NymbrelConfig.h"
#include "tests/support/home.h"
#include "tests/support/recorders.h"

#include <algorithm>
#include <exception>
#include <functional>
#include <thread>

// Records the messages that the application has handled.
class UsedProgram : public NCApplication {
public:
    // Calls `use` on a thread of its own once the window has its values, and tells the program to end when
    // `use` returns. Returns when the program has ended.
    void RunUsed(WindowServer& server, std::function<void()> use) {
        const ScopedVariable no_bus("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        _use = std::move(use);
        Run(&server);
        _user.join();
    }

    long Count(std::uint32_t code) const { return std::ranges::count(_handled.Entries(), code); }
    // Waits until `count` messages of this code have been handled; returns whether they have in time.
    bool WaitForMessage(std::uint32_t code, long count = 1) {
        return _handled.WaitUntil(
            [&](const auto& codes) { return std::ranges::count(codes, code) >= count; });
    }
    // Posts a message and waits until it and what it brings about have been handled.
    void Do(std::uint32_t code) {
        PostMessage(code);
        WaitUntilIdle();
    }
    void WaitUntilIdle() {
        constexpr std::uint32_t kMark = ks_message_code("MARK");
        // The second mark stands behind what was posted while the first was on its way.
        for (int i = 0; i < 2; ++i) {
            PostMessage(kMark);
            ASSERT_TRUE(WaitForMessage(kMark, ++_marks_posted));
        }
    }

    void ReadyToRun() override {
        NCApplication::ReadyToRun();
        _user = std::thread([this] {
            try {
                _use();
            } catch (const std::exception& error) {
                ADD_FAILURE() << error.what();
            }
            PostMessage(B_QUIT_REQUESTED);
        });
    }
    void MessageReceived(BMessage* message) override {
        NCApplication::MessageReceived(message);
        _handled.Add(message->what);
    }
    bool QuitRequested() override {
        quits.Add(B_QUIT_REQUESTED);
        return NCApplication::QuitRequested();
    }

    Journal<std::uint32_t> quits;  // an entry each time that the program is told to end

private:
    std::function<void()> _use;
    std::thread _user;
    Journal<std::uint32_t> _handled;
    long _marks_posted = 0;
};
