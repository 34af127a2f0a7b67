// SPDX-License-Identifier: MIT
// Programs that a test starts, and waiting for what they do.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

using Milliseconds = std::chrono::milliseconds;

// How long a test waits for anything. Only a failing test waits for so long: a condition is looked at again
// every few milliseconds.
constexpr Milliseconds kPatience{20000};

// Waits until `condition` holds or `deadline` has passed; returns whether it holds.
bool WaitUntil(const std::function<bool()>& condition, Milliseconds deadline = kPatience);

// A child process, without root's power over files. It dies with the test, and with this object.
class Process {
public:
    // Starts `command` (found through PATH) with exactly the variables `environment`. Its file descriptor 3
    // is the writing end of a pipe, which Line reads.
    Process(const std::vector<std::string>& command, const std::map<std::string, std::string>& environment);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    // The next line that the process writes to file descriptor 3, without its line feed; what there is when
    // it closes it or `deadline` passes.
    std::string Line(Milliseconds deadline = kPatience);

    void Signal(int signal) const;
    // Whether it has ended; takes its status then.
    bool HasEnded();
    // What exit() was given, or 128 plus the signal that ended it; only once it has ended.
    int Status() const { return _status; }
    pid_t Id() const { return _pid; }

private:
    pid_t _pid = -1;
    int _lines = -1;
    std::string _unread;
    bool _ended = false;
    int _status = 0;
};
