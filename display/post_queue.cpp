// SPDX-License-Identifier: MIT
// The queue's wake-up is an eventfd, so that the posting thread needs nothing of the GUI library.
#include "display/post_queue.h"

#include <QSocketNotifier>

#include <cerrno>
#include <cstdint>
#include <system_error>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

PostQueue::PostQueue() : _event(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (_event < 0)
        throw std::system_error(errno, std::generic_category(), "eventfd");
}

PostQueue::~PostQueue() {
    Unlisten();
    close(_event);
}

void PostQueue::Post(std::function<void()> function) {
    std::scoped_lock lock(_mutex);
    if (_posted.empty())
        Wake();
    _posted.push_back(std::move(function));
}

void PostQueue::Wake() {
    // Cannot fail: the counter is far from its limit, since it is read between two wakes.
    const std::uint64_t one = 1;
    static_cast<void>(!write(_event, &one, sizeof one));
}

void PostQueue::Listen() {
    _notifier = std::make_unique<QSocketNotifier>(_event, QSocketNotifier::Read);
    QObject::connect(_notifier.get(), &QSocketNotifier::activated, _notifier.get(), [this] { RunPosted(); });
}

void PostQueue::Unlisten() {
    _notifier.reset();
}

// One function for each wake, so that an event loop inside a function runs those behind it.
void PostQueue::RunPosted() {
    std::function<void()> function;
    {
        std::scoped_lock lock(_mutex);
        std::uint64_t count;
        static_cast<void>(!read(_event, &count, sizeof count));
        if (_posted.empty())
            return;
        function = std::move(_posted.front());
        _posted.pop_front();
        if (!_posted.empty())
            Wake();
    }
    function();
}
