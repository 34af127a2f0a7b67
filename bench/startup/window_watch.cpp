// SPDX-License-Identifier: MIT
#include "window_watch.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/Xdamage.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fstream>
#include <functional>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <string_view>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr double kGiveUpAfterMs = 30000;
// Toolkits make small helper windows; the window of a preferences program is larger.
constexpr int kLeastWidth = 100;

double MillisecondsSince(Clock::time_point start) {
    return Milliseconds(Clock::now() - start).count();
}

bool IsVariable(const std::string& word) {
    return word.find('=') != std::string::npos;
}

pid_t Spawn(const std::vector<std::string>& command) {
    const auto program = std::find_if_not(command.begin(), command.end(), IsVariable);
    std::vector<char*> arguments, variables;
    for (auto word = command.begin(); word != command.end(); ++word)
        (word < program ? variables : arguments).push_back(const_cast<char*>(word->c_str()));
    for (char** variable = environ; *variable; ++variable)
        variables.push_back(*variable);
    arguments.push_back(nullptr);
    variables.push_back(nullptr);
    pid_t pid = 0;
    if (posix_spawnp(&pid, arguments[0], nullptr, nullptr, arguments.data(), variables.data()) != 0)
        throw std::runtime_error("cannot start " + *program);
    return pid;
}

// The number that follows `field` in a file of lines "field: number kB", or 0.
long KilobytesOf(pid_t pid, const char* file, std::string_view field) {
    std::ifstream lines("/proc/" + std::to_string(pid) + "/" + file);
    for (std::string word; lines >> word;)
        if (word == field) {
            long kilobytes = 0;
            lines >> kilobytes;
            return kilobytes;
        }
    return 0;
}

double ProcessorMilliseconds(pid_t pid) {
    clockid_t clock;
    timespec taken{};
    if (clock_getcpuclockid(pid, &clock) == 0)
        clock_gettime(clock, &taken);
    return static_cast<double>(taken.tv_sec) * 1e3 + static_cast<double>(taken.tv_nsec) / 1e6;
}

void End(pid_t pid) {
    kill(pid, SIGTERM);
    const auto start = Clock::now();
    while (waitpid(pid, nullptr, WNOHANG) == 0) {
        if (MillisecondsSince(start) > 2000)
            kill(pid, SIGKILL);
        usleep(1000);
    }
}

}  // namespace

struct WindowWatch::Connection {
    Display* display = nullptr;
    Window root = 0;
    int damage_event = 0;

    // Of the start under way.
    Window window = 0;
    XWindowAttributes shape{};

    bool WaitForEvent(double milliseconds) {
        if (XPending(display) > 0)
            return true;
        pollfd readable = {ConnectionNumber(display), POLLIN, 0};
        poll(&readable, 1, std::max(0, static_cast<int>(milliseconds)));
        return XPending(display) > 0;
    }

    // A fingerprint of what the window shows now, its inferiors included.
    size_t Picture() {
        if (!XGetWindowAttributes(display, window, &shape) || shape.map_state != IsViewable)
            return 0;
        XImage* image = XGetImage(display, window, 0, 0, shape.width, shape.height, AllPlanes, ZPixmap);
        if (!image)
            return 0;
        const std::string_view bytes(image->data, size_t(image->bytes_per_line) * image->height);
        const size_t fingerprint = std::hash<std::string_view>()(bytes);
        XDestroyImage(image);
        return fingerprint;
    }

    void ForgetOldWindows() {
        window = 0;
        XWarpPointer(display, None, root, 0, 0, 0, 0, DisplayWidth(display, 0) - 1,
                     DisplayHeight(display, 0) - 1);
        XSync(display, True);
    }
};

WindowWatch::WindowWatch() : _connection(new Connection) {
    Connection& x = *_connection;
    x.display = XOpenDisplay(nullptr);
    int error_base;
    if (!x.display || !XDamageQueryExtension(x.display, &x.damage_event, &error_base))
        throw std::runtime_error("no X display with the DAMAGE extension");
    // Windows may vanish while they are asked about; the answer is then simply missing.
    XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    x.root = DefaultRootWindow(x.display);
    XSelectInput(x.display, x.root, SubstructureNotifyMask);
    XSync(x.display, False);
}

WindowWatch::~WindowWatch() {
    XCloseDisplay(_connection->display);
    delete _connection;
}

std::optional<start_result> WindowWatch::Start(const std::vector<std::string>& command, double settle_ms) {
    struct frame {
        double ms;
        size_t picture;
    };
    Connection& x = *_connection;
    x.ForgetOldWindows();
    std::vector<frame> frames;
    double mapped_ms = 0, changed_ms = 0;

    const auto start = Clock::now();
    const pid_t pid = Spawn(command);
    const auto settled = [&] {
        return !frames.empty() && MillisecondsSince(start) - changed_ms >= settle_ms;
    };
    while (!settled() && MillisecondsSince(start) < kGiveUpAfterMs) {
        const double rest = frames.empty() ? settle_ms : settle_ms - (MillisecondsSince(start) - changed_ms);
        if (!x.WaitForEvent(rest + 1))
            continue;
        XEvent event;
        XNextEvent(x.display, &event);
        if (event.type == CreateNotify && !event.xcreatewindow.override_redirect &&
            event.xcreatewindow.parent == x.root) {
            XDamageCreate(x.display, event.xcreatewindow.window, XDamageReportNonEmpty);
        } else if (event.type == MapNotify && !x.window && !event.xmap.override_redirect) {
            const double ms = MillisecondsSince(start);
            XWindowAttributes shape;
            if (XGetWindowAttributes(x.display, event.xmap.window, &shape) && shape.width >= kLeastWidth) {
                x.window = event.xmap.window;
                mapped_ms = ms;
            }
        } else if (event.type == x.damage_event + XDamageNotify) {
            const auto& damage = reinterpret_cast<const XDamageNotifyEvent&>(event);
            XDamageSubtract(x.display, damage.damage, None, None);
            if (damage.drawable != x.window)
                continue;
            const size_t picture = x.Picture();
            changed_ms = MillisecondsSince(start);
            frames.push_back({changed_ms, picture});
        }
    }
    std::optional<start_result> result;
    if (settled()) {
        // Read once more: the last report may have come before the last stroke of its drawing.
        const size_t final_picture = x.Picture();
        const auto first = std::find_if(frames.begin(), frames.end(),
                                        [&](const frame& one) { return one.picture == final_picture; });
        if (final_picture != 0 && first != frames.end())
            result = {mapped_ms, first->ms, ProcessorMilliseconds(pid), KilobytesOf(pid, "status", "VmHWM:"),
                      KilobytesOf(pid, "smaps_rollup", "Pss:")};
    }
    End(pid);
    return result;
}
