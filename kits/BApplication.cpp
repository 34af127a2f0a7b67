// SPDX-License-Identifier: MIT
#include "kits/BApplication.h"

#include "hdr/ks_assert.h"
#include "kits/BWindow.h"
#include "kits/QuitSignals.h"
#include "kits/WindowServer.h"
#include "kits/application_loop.h"

#include <exception>
#include <thread>

BApplication* be_app = nullptr;

BApplication::BApplication(const char* signature)
    : _signature(signature ? signature : ""), _loop(std::make_unique<ApplicationLoop>()) {
    KS_ASSERT(!be_app);
    be_app = this;
}

BApplication::~BApplication() {
    while (!_windows.empty())
        delete _windows.back();
    be_app = nullptr;
}

void BApplication::Run(WindowServer* server) {
    KS_ASSERT(!_has_run);
    _has_run = true;
    // Before the server starts threads, which must not take these signals, and may wait without end.
    const QuitSignals signals([this] { PostMessage(B_QUIT_REQUESTED); });
    const bool bus_answers = _loop->bus.Open([this](std::uint32_t code) {
        if (!AcceptsBroadcast(code))
            return;
        BMessage message(code);
        message._is_remote = true;
        _loop->Post(message);
    });
    if (server)
        server->Prepare(bus_answers);

    _server = server;
    std::exception_ptr loop_failure, server_failure;
    std::thread thread([&] {
        try {
            RunLoop();
        } catch (...) {
            loop_failure = std::current_exception();
        }
        if (server)
            server->Quit();
    });
    if (server) {
        try {
            server->Run();
        } catch (...) {
            server_failure = std::current_exception();
        }
        _server_has_ended = true;
        _loop->Post(BMessage(B_QUIT_REQUESTED));
    }
    thread.join();
    _server = nullptr;
    _loop->bus.Close();
    if (loop_failure || server_failure)
        std::rethrow_exception(loop_failure ? loop_failure : server_failure);
}

void BApplication::RunLoop() {
    ReadyToRun();
    for (;;) {
        for (BMessage& message : _loop->Wait()) {
            if (message.what != B_QUIT_REQUESTED)
                MessageReceived(&message);
            else if (QuitRequested() || _server_has_ended)
                return;
        }
    }
}

void BApplication::PostMessage(const BMessage& message) {
    _loop->Post(message);
}

void BApplication::Broadcast(const BMessage& message) {
    BroadcastStarting(message);
    _loop->bus.Broadcast(message.what);
    PostMessage(message);
}
