// SPDX-License-Identifier: MIT
#include "kits/application_loop.h"

#include <cerrno>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>

namespace {

int NewEvent() {
    const int descriptor = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
    if (descriptor < 0)
        throw std::system_error(errno, std::generic_category(), "eventfd");
    return descriptor;
}

}  // namespace

ApplicationLoop::ApplicationLoop() : _wake(NewEvent()) {}

ApplicationLoop::~ApplicationLoop() {
    close(_wake);
}

void ApplicationLoop::Post(const BMessage& message) {
    const std::lock_guard guard(_mutex);
    _queue.push_back(message);
    eventfd_write(_wake, 1);
}

std::vector<BMessage> ApplicationLoop::Wait() {
    int timeout = -1;
    pollfd entries[] = {{_wake, POLLIN, 0}, bus.PollEntry(timeout)};
    poll(entries, std::size(entries), timeout);
    bus.Process();

    std::vector<BMessage> messages;
    const std::lock_guard guard(_mutex);
    eventfd_t count = 0;
    eventfd_read(_wake, &count);
    messages.swap(_queue);
    return messages;
}
