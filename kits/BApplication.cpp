// SPDX-License-Identifier: MIT
// The application object and its message loop.
#include "kits/BApplication.h"

#include "hdr/ks_assert.h"
#include "kits/BWindow.h"
#include "kits/WindowServer.h"
#include "kits/application_loop.h"

#include <cerrno>
#include <exception>
#include <sys/eventfd.h>
#include <sys/signalfd.h>
#include <system_error>
#include <thread>
#include <unistd.h>

BApplication* be_app = nullptr;

namespace {

int CheckedDescriptor(int descriptor, const char* what) {
    if (descriptor < 0)
        throw std::system_error(errno, std::generic_category(), what);
    return descriptor;
}

}  // namespace

QuitSignals::QuitSignals() {
    sigset_t quit;
    sigemptyset(&quit);
    sigaddset(&quit, SIGTERM);
    sigaddset(&quit, SIGINT);
    _descriptor = CheckedDescriptor(signalfd(-1, &quit, SFD_NONBLOCK | SFD_CLOEXEC), "signalfd");
    pthread_sigmask(SIG_BLOCK, &quit, &_before);
}

QuitSignals::~QuitSignals() {
    while (Take()) {
    }
    pthread_sigmask(SIG_SETMASK, &_before, nullptr);
    close(_descriptor);
}

bool QuitSignals::Take() {
    signalfd_siginfo signal;
    return read(_descriptor, &signal, sizeof signal) == static_cast<ssize_t>(sizeof signal);
}

BApplication::Loop::Loop() : _wake(CheckedDescriptor(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC), "eventfd")) {}

BApplication::Loop::~Loop() {
    close(_wake);
}

void BApplication::Loop::Post(const BMessage& message) {
    const std::lock_guard guard(_mutex);
    _queue.push_back(message);
    eventfd_write(_wake, 1);
}

std::vector<BMessage> BApplication::Loop::Wait(QuitSignals& signals) {
    int timeout = -1;
    pollfd entries[] = {{_wake, POLLIN, 0}, {signals.Descriptor(), POLLIN, 0}, bus.PollEntry(timeout)};
    poll(entries, std::size(entries), timeout);
    if (signals.Take())
        Post(BMessage(B_QUIT_REQUESTED));
    bus.Process();

    std::vector<BMessage> messages;
    const std::lock_guard guard(_mutex);
    eventfd_t count = 0;
    eventfd_read(_wake, &count);
    messages.swap(_queue);
    return messages;
}

BApplication::BApplication(const char* signature)
    : _signature(signature ? signature : ""), _loop(std::make_unique<Loop>()) {
    KS_ASSERT(!be_app);
    be_app = this;
}

BApplication::~BApplication() {
    while (!_windows.empty())
        delete _windows.back();
    be_app = nullptr;
}

void BApplication::Run(WindowServer* server) {
    KS_ASSERT(!_loop->has_run);
    _loop->has_run = true;
    // First of all: threads that the server starts must not take these signals either.
    QuitSignals signals;
    const bool bus_answers = _loop->bus.Open([this](std::uint32_t code) { _loop->Post(BMessage(code)); });
    if (server)
        server->Prepare(bus_answers);

    _server = server;
    std::exception_ptr loop_failure, server_failure;
    std::thread thread([&] {
        try {
            RunLoop(signals);
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

void BApplication::RunLoop(QuitSignals& signals) {
    ReadyToRun();
    for (;;) {
        for (BMessage& message : _loop->Wait(signals)) {
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

void BApplication::ReadyToRun() {}

void BApplication::BroadcastStarting(const BMessage&) {}
