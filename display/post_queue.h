// SPDX-License-Identifier: MIT
// The one way to the main thread: functions posted from any thread run there, in order.
#pragma once

#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>

class QSocketNotifier;

class PostQueue {
public:
    // On the main thread; functions may be posted at once. Throws std::system_error when the system has no
    // descriptor left.
    PostQueue();
    // Drops the functions that have not run. On the main thread, when nobody posts any more.
    ~PostQueue();
    PostQueue(const PostQueue&) = delete;
    PostQueue& operator=(const PostQueue&) = delete;

    // From any thread; never waits for the function to run.
    void Post(std::function<void()> function);

    // What follows is for the main thread, while Qt's application object is there.

    // Has the event loop run what is posted. A function that throws ends the event loop.
    void Listen();
    // Ends that; posted functions stay in the queue.
    void Unlisten();
    // Throws what a function has thrown, if one has.
    void RethrowFailure();

private:
    void RunPosted();

    std::mutex _mutex;
    std::deque<std::function<void()>> _posted;
    std::unique_ptr<QSocketNotifier> _notifier;
    std::exception_ptr _failure;
    int _event;
};
