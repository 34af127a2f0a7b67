// SPDX-License-Identifier: MIT
// A session bus of a test's own, its other users and its impostors.
#pragma once

#include "tests/support/home.h"
#include "tests/support/recorders.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <system_error>
#include <systemd/sd-bus.h>
#include <thread>
#include <unistd.h>
#include <vector>

// A child process whose standard output is read line by line; killed, if it still runs, by the destructor.
class ChildProcess {
public:
    explicit ChildProcess(std::vector<std::string> command) {
        int ends[2];
        if (pipe(ends) != 0)
            throw std::system_error(errno, std::generic_category(), "pipe");
        std::vector<char*> arguments;
        for (std::string& word : command)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        posix_spawn_file_actions_addclose(&actions, ends[0]);
        posix_spawn_file_actions_addclose(&actions, ends[1]);
        const int error = posix_spawnp(&_pid, arguments[0], &actions, nullptr, arguments.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        _output = ends[0];
        if (error != 0)
            throw std::system_error(error, std::generic_category(), command[0]);
    }
    ~ChildProcess() {
        End(SIGKILL);
        close(_output);
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // Returns the next line without its end, or "(nothing)" after ten seconds, or "(end)".
    std::string ReadLine() {
        std::string line;
        for (char c;;) {
            pollfd entry{_output, POLLIN, 0};
            if (poll(&entry, 1, 10000) != 1)
                return "(nothing)";
            if (read(_output, &c, 1) != 1)
                return "(end)";
            if (c == '\n')
                return line;
            line += c;
        }
    }

    void Signal(int signal) const { kill(_pid, signal); }
    // Sends a signal, unless it is 0, and returns the exit status as waitpid() has it.
    int End(int signal = 0) {
        int status = -1;
        if (_pid > 0) {
            if (signal)
                kill(_pid, signal);
            while (waitpid(_pid, &status, 0) < 0 && errno == EINTR) {
            }
        }
        _pid = 0;
        return status;
    }

private:
    pid_t _pid = 0;
    int _output = -1;
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
    ChildProcess daemon{{"dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address=1",
                         "--address=unix:path=" + _directory / "bus"}};
};

// A Unix socket that the environment names as the session bus. It gives its `answers` to the first
// connection, one for each thing that it is sent, and reads on until the connection is closed; without
// answers it never even takes a connection.
class FakeBus {
public:
    explicit FakeBus(std::vector<std::string> answers = {}) : _answers(std::move(answers)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const std::string path = _directory / "socket";
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        _listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (bind(_listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
            listen(_listener, 8) != 0)
            throw std::system_error(errno, std::generic_category(), "listen");
        setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + path).c_str(), 1);
        if (!_answers.empty())
            _talker = std::thread([this] { Talk(); });
    }
    ~FakeBus() {
        shutdown(_listener, SHUT_RDWR);
        if (_talker.joinable())
            _talker.join();
        close(_listener);
    }
    FakeBus(const FakeBus&) = delete;
    FakeBus& operator=(const FakeBus&) = delete;

    Journal<bool> closed;  // has an entry once the other side has closed the connection

private:
    void Talk() {
        const int connection = accept(_listener, nullptr, nullptr);
        char request[512];
        for (const std::string& answer : _answers) {
            if (read(connection, request, sizeof request) <= 0)
                break;
            send(connection, answer.data(), answer.size(), MSG_NOSIGNAL);
        }
        while (read(connection, request, sizeof request) > 0) {
        }
        closed.Add(true);
        close(connection);
    }

    TemporaryDirectory _directory;
    std::vector<std::string> _answers;
    int _listener = -1;
    std::thread _talker;
};
