// SPDX-License-Identifier: MIT
// An eventfd wakes the main thread, so that the posting thread does not use Qt.
#include "display/post_queue.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cerrno>
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
    const std::scoped_lock lock(_mutex);
    _posted.push_back(std::move(function));
    if (_posted.size() == 1)
        eventfd_write(_event, 1);
}

void PostQueue::Listen() {
    _notifier = std::make_unique<QSocketNotifier>(_event, QSocketNotifier::Read);
    QObject::connect(_notifier.get(), &QSocketNotifier::activated, _notifier.get(), [this] { RunPosted(); });
}

void PostQueue::Unlisten() {
    _notifier.reset();
}

void PostQueue::RethrowFailure() {
    if (_failure)
        std::rethrow_exception(std::exchange(_failure, nullptr));
}

// One function for each wake, so that an event loop inside a function runs those behind it.
void PostQueue::RunPosted() {
    std::function<void()> function;
    {
        const std::scoped_lock lock(_mutex);
        eventfd_t count = 0;
        eventfd_read(_event, &count);
        if (_posted.empty())
            return;
        function = std::move(_posted.front());
        _posted.pop_front();
        if (!_posted.empty())
            eventfd_write(_event, 1);
    }
    // An exception must not unwind through the event loop, which is partly C.
    try {
        function();
    } catch (...) {
        _failure = std::current_exception();
        QCoreApplication::exit();
    }
}
