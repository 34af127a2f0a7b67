// SPDX-License-Identifier: MIT
// Loopers, an application and a window server that record what happens to them.
#pragma once

#include "kits/BApplication.h"
#include "kits/BMessage.h"
#include "kits/WindowServer.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

// Things in the order in which they happened, from any thread.
template <class T> class Journal {
public:
    void Add(T entry) {
        const std::lock_guard guard(_mutex);
        _entries.push_back(std::move(entry));
        _changed.notify_all();
    }
    std::vector<T> Entries() const {
        const std::lock_guard guard(_mutex);
        return _entries;
    }
    // Waits until `condition` holds for the entries; returns whether it did in time.
    template <class Condition> bool WaitUntil(Condition condition) {
        std::unique_lock lock(_mutex);
        return _changed.wait_for(lock, std::chrono::seconds(20), [&] { return condition(_entries); });
    }
    // Waits until there are `count` entries.
    bool WaitFor(std::size_t count) {
        return WaitUntil([&](const std::vector<T>& entries) { return entries.size() >= count; });
    }

private:
    mutable std::mutex _mutex;
    std::condition_variable _changed;
    std::vector<T> _entries;
};

// Keeps the codes of the messages that are posted to it.
class RecordingLooper : public BLooper {
public:
    void PostMessage(const BMessage& message) override { codes.push_back(message.what); }
    std::vector<std::uint32_t> codes;
};

// Hooks that are not set do what the base class does.
class TestApplication : public BApplication {
public:
    TestApplication() : BApplication("application/x-vnd.Nymbrel-test") {}

    void ReadyToRun() override {
        if (on_ready)
            on_ready();
    }
    void MessageReceived(BMessage* message) override {
        received.Add(message->what);
        if (on_message)
            on_message(message->what);
    }
    bool QuitRequested() override { return on_quit ? on_quit() : true; }
    void BroadcastStarting(const BMessage& message) override { starting.Add(message.what); }

    std::function<void()> on_ready;
    std::function<void(std::uint32_t)> on_message;
    std::function<bool()> on_quit;
    Journal<std::uint32_t> received;
    Journal<std::uint32_t> starting;
};

class TestServer : public WindowServer {
public:
    void Prepare(bool bus_answers) override { calls.Add(bus_answers ? "prepare" : "prepare without bus"); }
    void Run() override {
        calls.Add("run");
        std::unique_lock lock(_mutex);
        _changed.wait(lock, [this] { return _quit; });
    }
    void Quit() override {
        const std::lock_guard guard(_mutex);
        _quit = true;
        _changed.notify_all();
    }
    void Show(BWindow*) override { calls.Add("show"); }

    Journal<std::string> calls;

private:
    std::mutex _mutex;
    std::condition_variable _changed;
    bool _quit = false;
};
