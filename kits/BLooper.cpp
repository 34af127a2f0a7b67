// SPDX-License-Identifier: MIT
#include "kits/BLooper.h"

#include "hdr/ks_assert.h"
#include "kits/BMessage.h"

BLooper::BLooper(const char* name) : BHandler(name) {}

bool BLooper::Lock() {
    _mutex.lock();
    if (_closed) {
        _mutex.unlock();
        return false;
    }
    ++_depth;
    _holder = std::this_thread::get_id();
    return true;
}

void BLooper::Unlock() {
    KS_ASSERT(IsLocked());
    if (--_depth == 0)
        _holder = std::thread::id();
    _mutex.unlock();
}

bool BLooper::IsLocked() const {
    return _holder == std::this_thread::get_id();
}

void BLooper::PostMessage(std::uint32_t code) {
    PostMessage(BMessage(code));
}

bool BLooper::QuitRequested() {
    return true;
}

void BLooper::Close() {
    const std::lock_guard guard(_mutex);
    _closed = true;
}
