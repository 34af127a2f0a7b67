// SPDX-License-Identifier: MIT
// The looper's lock.
#include "kits/BLooper.h"
#include "kits/BMessage.h"

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace {

class Looper : public BLooper {
public:
    void PostMessage(const BMessage&) override {}
    using BLooper::Close;
};

TEST(LooperLock, IsRecursiveAndBelongsToItsThread) {
    Looper looper;
    EXPECT_FALSE(looper.IsLocked());
    ASSERT_TRUE(looper.Lock());
    ASSERT_TRUE(looper.Lock());
    looper.Unlock();
    EXPECT_TRUE(looper.IsLocked());
    std::thread([&] { EXPECT_FALSE(looper.IsLocked()); }).join();
    looper.Unlock();
    EXPECT_FALSE(looper.IsLocked());
}

TEST(LooperLock, LetsItsHolderFinishBeforeItCloses) {
    Looper looper;
    std::atomic<bool> closed = false;
    ASSERT_TRUE(looper.Lock());
    std::thread closer([&] {
        looper.Close();
        closed = true;
    });
    // Time enough for a Close that does not wait.
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_FALSE(closed);
    looper.Unlock();
    closer.join();
    EXPECT_FALSE(looper.Lock());
    EXPECT_FALSE(looper.IsLocked());
    EXPECT_FALSE(BAutolock(&looper));
    EXPECT_FALSE(BAutolock(nullptr));
}

TEST(LooperLockDeathTest, MayOnlyBeGivenBackByItsHolder) {
    Looper looper;
    EXPECT_DEATH(looper.Unlock(), "BLooper: Unlock: assertion \"IsLocked\\(\\)\" failed");
}

}  // namespace
