// SPDX-License-Identifier: MIT
// The program's application on its real message loop, without a screen.
#pragma once

#include "kits/BWindow.h"
#include "settings/model.h"
#include "tests/support/used_program.h"
#include "toolkit/KSContainer.h"

class RunningProgram : public UsedProgram {
public:
    // Calls `use` on a thread of its own while the program runs; returns when it has ended.
    static void Run(const std::function<void(RunningProgram&)>& use) {
        TestServer server;
        RunningProgram program;
        program.RunUsed(server, [&] { use(program); });
        EXPECT_EQ(std::ranges::count(server.calls.Entries(), "show"), 1);
    }

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
};
