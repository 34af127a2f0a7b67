// SPDX-License-Identifier: MIT
// Starts a program on the present X display and sees when its window comes up and when it is fully painted.
#pragma once

#include <optional>
#include <string>
#include <vector>

// One start of a program. Times count from just before the process was made.
struct start_result {
    double mapped_ms;       // the window was mapped
    double painted_ms;      // the window first showed the picture on which it settled
    double processor_ms;    // the processor time that it took until it had settled
    long peak_resident_kb;  // VmHWM when it had settled: shared library pages included
    long shared_out_kb;     // Pss when it had settled: each shared page divided among its users
};

// Watches the display of $DISPLAY. No window manager may run there: it would reparent the windows.
class WindowWatch {
public:
    WindowWatch();
    ~WindowWatch();
    WindowWatch(const WindowWatch&) = delete;
    WindowWatch& operator=(const WindowWatch&) = delete;

    // Starts `command` (a program found through PATH, and its arguments, with leading NAME=VALUE pairs put
    // into its environment), waits until its first top-level window has not changed for `settle_ms`, ends
    // the program and returns what was seen; nothing when no window settled within 30 seconds.
    std::optional<start_result> Start(const std::vector<std::string>& command, double settle_ms);

private:
    struct Connection;
    Connection* _connection;
};
