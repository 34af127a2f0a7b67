// SPDX-License-Identifier: MIT
// A session bus of a test's own, its other users and its impostors.
#pragma once

#include "tests/support/home.h"
#include "tests/support/recorders.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <systemd/sd-bus.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

// A program whose standard output is read line by line; killed, if it still runs, by the destructor.
class ChildProcess {
public:
    explicit ChildProcess(const std::string& command)
        : _output(popen(("echo $$; exec " + command).c_str(), "r")), _pid(std::stoi(ReadLine())) {}
    ~ChildProcess() { End(SIGKILL); }

    // Returns the next line without its end, or what there is before the end of the output.
    std::string ReadLine() {
        std::string line;
        for (int c; (c = std::fgetc(_output)) != EOF && c != '\n';)
            line += static_cast<char>(c);
        return line;
    }

    void Signal(int signal) const { kill(_pid, signal); }
    // Sends a signal, unless it is 0, and returns the exit status as waitpid() has it.
    int End(int signal = 0) {
        if (!_output)
            return -1;
        if (signal)
            Signal(signal);
        while (std::fgetc(_output) != EOF) {
        }
        return pclose(std::exchange(_output, nullptr));
    }

private:
    std::FILE* _output;
    pid_t _pid;
};

// A dbus-daemon that the environment names as the session bus.
class PrivateBus {
public:
    PrivateBus() { setenv("DBUS_SESSION_BUS_ADDRESS", daemon.ReadLine().c_str(), 1); }

    // Returns once the bus has taken everything that was sent to it before. The bus serves all connections
    // that have something for it before it looks again, so the second answer comes after that.
    void Settle() {
        sd_bus* connection = Connect();
        for (int i = 0; i < 2; ++i)
            EXPECT_GE(sd_bus_call_method(connection, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                         "org.freedesktop.DBus", "GetId", nullptr, nullptr, ""),
                      0);
        sd_bus_flush_close_unref(connection);
    }

    // Returns a connection of the test's own, to be closed by sd_bus_flush_close_unref().
    static sd_bus* Connect() {
        sd_bus* connection = nullptr;
        EXPECT_GE(sd_bus_open_user(&connection), 0);
        return connection;
    }

private:
    TemporaryDirectory _directory;

public:
    ChildProcess daemon{"dbus-daemon --session --nofork --nopidfile --print-address=1 --address=unix:path=" +
                        _directory / "bus"};
};

// A Unix socket that the environment names as the session bus. Gives its `answer` to the first thing that the
// first connection sends, and reads on until that is closed; without an answer it never takes a connection.
class FakeBus {
public:
    explicit FakeBus(const std::string& answer) {
        sockaddr_un address{AF_UNIX, {}};
        const std::string path = _directory / "socket";
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(bind(_listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(_listener, 8), 0);
        setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + path).c_str(), 1);
        if (!answer.empty())
            _talker = std::jthread([this, answer] { Talk(answer); });
    }
    ~FakeBus() {
        shutdown(_listener, SHUT_RDWR);
        _talker = {};
        close(_listener);
    }

private:
    void Talk(const std::string& answer) const {
        const int connection = accept(_listener, nullptr, nullptr);
        char request[512];
        for (bool first = true; read(connection, request, sizeof request) > 0; first = false)
            if (first)
                send(connection, answer.data(), answer.size(), MSG_NOSIGNAL);
        close(connection);
    }

    TemporaryDirectory _directory;
    const int _listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    std::jthread _talker;
};
