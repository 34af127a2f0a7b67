// SPDX-License-Identifier: MIT
// apply <rounds>: the time from posting the Apply command to the end of its handling, by when the settings
// file is closed and the change notice is on the bus. The program's own application object, without a
// display.
#include "app/NymbrelConfig.h"

#include "kits/BMessage.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

// Without a rest, emptying the file waits for the disk to take what the command before has written.
constexpr std::chrono::milliseconds kBetweenCommands{50};

class TimedApplication : public NCApplication {
public:
    void ReadyToRun() override {
        NCApplication::ReadyToRun();
        Report();
    }

    void MessageReceived(BMessage* message) override {
        NCApplication::MessageReceived(message);
        if (message->what == kApply)
            Report();
    }

    // Waits for the end of what was asked for last, and returns when that was.
    Clock::time_point WaitForReport() {
        std::unique_lock guard(_mutex);
        _reported.wait(guard, [&] { return _is_done; });
        _is_done = false;
        return _done_at;
    }

private:
    void Report() {
        const std::lock_guard guard(_mutex);
        _done_at = Clock::now();
        _is_done = true;
        _reported.notify_one();
    }

    std::mutex _mutex;
    std::condition_variable _reported;
    bool _is_done = false;
    Clock::time_point _done_at;
};

}  // namespace

int main(int argc, char** argv) {
    const int rounds = argc == 2 ? std::atoi(argv[1]) : 0;
    if (rounds < 1) {
        std::fprintf(stderr, "usage: apply <rounds>\n");
        return EXIT_FAILURE;
    }
    std::vector<double> taken_ms;
    TimedApplication application;
    std::thread person([&] {
        application.WaitForReport();
        for (int round = 0; round < rounds; ++round) {
            std::this_thread::sleep_for(kBetweenCommands);
            const auto posted_at = Clock::now();
            application.PostMessage(NCApplication::kApply);
            const std::chrono::duration<double, std::milli> taken = application.WaitForReport() - posted_at;
            taken_ms.push_back(taken.count());
        }
        application.PostMessage(B_QUIT_REQUESTED);
    });
    application.Run();
    person.join();
    std::sort(taken_ms.begin(), taken_ms.end());
    std::printf("Apply, from the message to the closed file and the sent notice: median %.3f ms, longest "
                "%.3f ms of %d"
                "  goal 2 ms  %s\n",
                taken_ms[rounds / 2], taken_ms.back(), rounds,
                taken_ms[rounds / 2] < 2 ? "reached" : "NOT REACHED");
}
