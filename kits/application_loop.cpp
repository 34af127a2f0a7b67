// SPDX-License-Identifier: MIT
#include "kits/application_loop.h"

#include <cerrno>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <system_error>
#include <unistd.h>

namespace {

int CheckedDescriptor(int descriptor, const char* what) {
    if (descriptor < 0)
        throw std::system_error(errno, std::generic_category(), what);
    return descriptor;
}

}  // namespace

QuitSignals::QuitSignals() {
    sigset_t quit;
    sigemptyset(&quit);
    sigaddset(&quit, SIGTERM);
    sigaddset(&quit, SIGINT);
    _descriptor = CheckedDescriptor(signalfd(-1, &quit, SFD_NONBLOCK | SFD_CLOEXEC), "signalfd");
    pthread_sigmask(SIG_BLOCK, &quit, &_before);
}

QuitSignals::~QuitSignals() {
    while (HaveCome()) {
    }
    pthread_sigmask(SIG_SETMASK, &_before, nullptr);
    close(_descriptor);
}

bool QuitSignals::HaveCome() {
    signalfd_siginfo signal;
    return read(_descriptor, &signal, sizeof signal) == static_cast<ssize_t>(sizeof signal);
}

ApplicationLoop::ApplicationLoop()
    : _wake(CheckedDescriptor(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC), "eventfd")) {}

ApplicationLoop::~ApplicationLoop() {
    close(_wake);
}

void ApplicationLoop::Post(const BMessage& message) {
    const std::lock_guard guard(_mutex);
    _queue.push_back(message);
    eventfd_write(_wake, 1);
}

std::vector<BMessage> ApplicationLoop::Wait(QuitSignals& signals) {
    int timeout = -1;
    pollfd entries[] = {{_wake, POLLIN, 0}, {signals.Descriptor(), POLLIN, 0}, bus.PollEntry(timeout)};
    poll(entries, std::size(entries), timeout);
    if (signals.HaveCome())
        Post(BMessage(B_QUIT_REQUESTED));
    bus.Process();

    std::vector<BMessage> messages;
    const std::lock_guard guard(_mutex);
    eventfd_t count = 0;
    eventfd_read(_wake, &count);
    messages.swap(_queue);
    return messages;
}
