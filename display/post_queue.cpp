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
    bool wake;
    {
        std::scoped_lock lock(_mutex);
        wake = _posted.empty();
        _posted.push_back(std::move(function));
    }
    // Cannot fail: the counter is far from its limit, since only an empty queue's first function counts.
    const std::uint64_t one = 1;
    if (wake)
        static_cast<void>(!write(_event, &one, sizeof one));
}

void PostQueue::Listen() {
    _notifier = std::make_unique<QSocketNotifier>(_event, QSocketNotifier::Read);
    QObject::connect(_notifier.get(), &QSocketNotifier::activated, _notifier.get(), [this] { RunPosted(); });
}

void PostQueue::Unlisten() {
    _notifier.reset();
}

void PostQueue::RunPosted() {
    // The counter first: what is posted from here on wakes the loop again.
    std::uint64_t count;
    static_cast<void>(!read(_event, &count, sizeof count));
    std::vector<std::function<void()>> posted;
    {
        std::scoped_lock lock(_mutex);
        posted.swap(_posted);
    }
    for (auto& function : posted)
        function();
}
