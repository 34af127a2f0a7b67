// SPDX-License-Identifier: MIT
// SIGTERM, SIGINT and SIGHUP end the program, whatever its other threads wait for.
#pragma once

#include <atomic>
#include <csignal>
#include <functional>
#include <thread>

// As long as it lives, a thread of its own waits for these signals. They are blocked in the thread that makes
// it and in the threads which that one starts from then on. A SIGHUP that the program was started to ignore
// (nohup) stays ignored.
class QuitSignals {
public:
    // The first signal calls `quit` on that thread, which should end the program. Where it has not ended
    // kPatience later, or another signal comes, the process ends at once with status 128 + signal. Throws
    // std::system_error when no thread can be started.
    explicit QuitSignals(std::function<void()> quit);
    // Signals that have come but were not taken are dropped.
    ~QuitSignals();
    QuitSignals(const QuitSignals&) = delete;
    QuitSignals& operator=(const QuitSignals&) = delete;

    static constexpr timespec kPatience{1, 500'000'000};

private:
    struct Blocked {
        Blocked();
        ~Blocked();
        sigset_t quit, before;
    };

    // Returns the next signal; -1 when none has come within `patience`, if there is one.
    int Next(const timespec* patience) const;
    void Watch(const std::function<void()>& quit) const;

    const Blocked _blocked;
    std::atomic<bool> _is_over = false;
    std::thread _thread;
};

// While one lives, a signal does not end the process at once: it waits for the write to be done, 400 ms at
// most.
class WholeWrite {
public:
    WholeWrite();
    ~WholeWrite();
    WholeWrite(const WholeWrite&) = delete;
    WholeWrite& operator=(const WholeWrite&) = delete;
};
