// SPDX-License-Identifier: MIT
// A handler with a lock, to which messages are posted from any thread.
#pragma once

#include "kits/BHandler.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <thread>

class BLooper : public BHandler {
public:
    explicit BLooper(const char* name = nullptr);

    // Waits for the looper's recursive lock and takes it. Returns false, without the lock, once the looper
    // has been closed.
    bool Lock();
    // Gives the lock back; the calling thread must hold it (asserted).
    void Unlock();
    // Returns whether the calling thread holds the lock.
    bool IsLocked() const;

    // Queues a message for MessageReceived on the looper's thread; the looper keeps a copy. Never waits.
    virtual void PostMessage(const BMessage& message) = 0;
    void PostMessage(std::uint32_t code);

    // Asked when B_QUIT_REQUESTED arrives; true lets the looper end.
    virtual bool QuitRequested();

protected:
    // Waits until nobody holds the lock; no Lock() succeeds after that.
    void Close();

private:
    std::recursive_mutex _mutex;
    std::atomic<std::thread::id> _holder{};
    int _depth = 0;
    bool _closed = false;
};

// Holds a looper's lock for a scope; converts to false when it could not be taken.
class BAutolock {
public:
    explicit BAutolock(BLooper* looper) : _looper(looper && looper->Lock() ? looper : nullptr) {}
    ~BAutolock() {
        if (_looper)
            _looper->Unlock();
    }
    BAutolock(const BAutolock&) = delete;
    BAutolock& operator=(const BAutolock&) = delete;

    explicit operator bool() const { return _looper != nullptr; }

private:
    BLooper* _looper;
};
