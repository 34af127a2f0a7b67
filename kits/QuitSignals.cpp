// SPDX-License-Identifier: MIT
#include "kits/QuitSignals.h"

#include <cerrno>
#include <chrono>
#include <mutex>
#include <unistd.h>

namespace {

constexpr std::chrono::milliseconds kPatienceWithAWrite{400};
std::timed_mutex write_mutex;

bool IsIgnored(int signal) {
    struct sigaction action {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

// The lock is kept, so that no other write begins.
[[noreturn]] void EndAtOnce(int signal) {
    static_cast<void>(write_mutex.try_lock_for(kPatienceWithAWrite));
    _exit(128 + signal);
}

}  // namespace

QuitSignals::Blocked::Blocked() {
    sigemptyset(&quit);
    sigaddset(&quit, SIGTERM);
    sigaddset(&quit, SIGINT);
    if (!IsIgnored(SIGHUP))
        sigaddset(&quit, SIGHUP);
    pthread_sigmask(SIG_BLOCK, &quit, &before);
}

QuitSignals::Blocked::~Blocked() {
    constexpr timespec kNoTime{};
    while (sigtimedwait(&quit, nullptr, &kNoTime) > 0) {
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

QuitSignals::QuitSignals(std::function<void()> quit)
    : _thread([this, quit = std::move(quit)] { Watch(quit); }) {}

QuitSignals::~QuitSignals() {
    _is_over = true;
    pthread_kill(_thread.native_handle(), SIGTERM);
    _thread.join();
}

int QuitSignals::Next(const timespec* patience) const {
    int signal;
    do
        signal =
            patience ? sigtimedwait(&_blocked.quit, nullptr, patience) : sigwaitinfo(&_blocked.quit, nullptr);
    while (signal < 0 && errno == EINTR);
    return signal;
}

void QuitSignals::Watch(const std::function<void()>& quit) const {
    const int signal = Next(nullptr);
    if (_is_over)
        return;
    try {
        quit();
    } catch (...) {
        // Without memory the process ends all the same, only later.
    }
    Next(&kPatience);
    if (!_is_over)
        EndAtOnce(signal);
}

WholeWrite::WholeWrite() {
    write_mutex.lock();
}

WholeWrite::~WholeWrite() {
    write_mutex.unlock();
}
