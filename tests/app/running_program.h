// SPDX-License-Identifier: MIT
// The program's application on its real message loop, without a screen.
#pragma once

#include "app/NymbrelConfig.h"
#include "kits/BWindow.h"
#include "settings/model.h"
#include "tests/kits/test_application.h"
#include "tests/settings/home.h"
#include "toolkit/KSContainer.h"

#include <algorithm>
#include <functional>
#include <thread>

// Records the messages that the application has handled.
class RunningProgram : public NCApplication {
public:
    // Starts the program and calls `use` on a thread of its own once the window is ready; returns when the
    // program has ended, which `use` has to bring about: how often the change was announced.
    static long Run(const std::function<void(RunningProgram&)>& use) {
        const ScopedVariable no_bus("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        TestServer server;
        RunningProgram program(use);
        program.NCApplication::Run(&server);
        program._user.join();
        EXPECT_EQ(std::ranges::count(server.calls.Entries(), "show"), 1);
        return program.Count(kSettingsChanged);
    }

    // Posts a message and waits until it and what it brings about have been handled.
    void Do(std::uint32_t code) {
        PostMessage(code);
        WaitUntilIdle();
    }
    void WaitUntilIdle() {
        // The second mark stands behind what was posted while the first was on its way.
        for (int i = 0; i < 2; ++i) {
            PostMessage(kMark);
            ASSERT_TRUE(_marks.WaitFor(++_marks_posted));
        }
    }
    void Quit() { PostMessage(B_QUIT_REQUESTED); }

    long Count(std::uint32_t code) const { return std::ranges::count(_handled.Entries(), code); }
    BWindow* Window() const { return Windows().at(0); }
    KSContainer* Container() const { return static_cast<KSContainer*>(Window()->Children().at(0).get()); }
    KSControl* Root() const { return Container()->Content(); }
    NCListView* Categories() const {
        NCListView* found = nullptr;
        Root()->ForEach([&](KSControl& control) {
            if (auto* list = dynamic_cast<NCListView*>(&control))
                found = list;
        });
        return found;
    }

    void ReadyToRun() override {
        NCApplication::ReadyToRun();
        _user = std::thread([this] { _use(*this); });
    }
    void MessageReceived(BMessage* message) override {
        NCApplication::MessageReceived(message);
        (message->what == kMark ? _marks : _handled).Add(message->what);
    }

private:
    static constexpr std::uint32_t kMark = ks_message_code("MARK");

    explicit RunningProgram(std::function<void(RunningProgram&)> use) : _use(std::move(use)) {}

    std::function<void(RunningProgram&)> _use;
    std::thread _user;
    Journal<std::uint32_t> _handled;
    Journal<std::uint32_t> _marks;
    std::size_t _marks_posted = 0;
};
