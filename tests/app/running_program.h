// SPDX-License-Identifier: MIT
// The program's application on its real message loop, without a screen.
#pragma once

#include "kits/BWindow.h"
#include "settings/model.h"
#include "tests/support/used_program.h"
#include "toolkit/KSContainer.h"

class RunningProgram : public UsedProgram {
public:
    // Starts the program and calls `use` on a thread of its own once the window is ready; returns when the
    // program has ended, which `use` has to bring about: how often the change was announced.
    static long Run(const std::function<void(RunningProgram&)>& use) {
        TestServer server;
        RunningProgram program(use);
        program.RunUsed(server);
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
            ASSERT_TRUE(WaitForMessage(kMark, ++_marks_posted));
        }
    }
    void Quit() { PostMessage(B_QUIT_REQUESTED); }

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

private:
    static constexpr std::uint32_t kMark = ks_message_code("MARK");

    explicit RunningProgram(const std::function<void(RunningProgram&)>& use)
        : UsedProgram([this, use] { use(*this); }) {}

    long _marks_posted = 0;
};
