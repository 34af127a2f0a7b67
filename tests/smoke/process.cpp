// SPDX-License-Identifier: MIT
#include "process.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <linux/capability.h>
#include <poll.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace {

constexpr int kLineDescriptor = 3;
constexpr Milliseconds kBetweenLooks{3};

}  // namespace

bool WaitUntil(const std::function<bool()>& condition, Milliseconds deadline) {
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end)
            return condition();
        std::this_thread::sleep_for(kBetweenLooks);
    }
    return true;
}

Process::Process(const std::vector<std::string>& command,
                 const std::map<std::string, std::string>& environment) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    std::vector<char*> arguments, variables;
    for (const std::string& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    std::vector<std::string> pairs;
    for (const auto& [name, value] : environment)
        pairs.push_back(name + "=" + value);
    for (const std::string& pair : pairs)
        variables.push_back(const_cast<char*>(pair.c_str()));
    arguments.push_back(nullptr);
    variables.push_back(nullptr);

    _pid = fork();
    if (_pid == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        // Root is held to the permissions of files as anybody is; anybody else may not drop this, nor need
        // to.
        prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
        prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH);
        if (ends[1] == kLineDescriptor)
            fcntl(ends[1], F_SETFD, 0);
        else
            dup2(ends[1], kLineDescriptor);
        dup2(kLineDescriptor, STDOUT_FILENO);
        execvpe(arguments[0], arguments.data(), variables.data());
        _exit(127);
    }
    close(ends[1]);
    _lines = ends[0];
    if (_pid < 0)
        throw std::runtime_error("cannot start " + command[0]);
}

Process::~Process() {
    if (!_ended) {
        Signal(SIGKILL);
        waitpid(_pid, nullptr, 0);
    }
    close(_lines);
}

std::string Process::Line(Milliseconds deadline) {
    const auto end = std::chrono::steady_clock::now() + deadline;
    for (;;) {
        const size_t line_feed = _unread.find('\n');
        if (line_feed != std::string::npos) {
            const std::string line = _unread.substr(0, line_feed);
            _unread.erase(0, line_feed + 1);
            return line;
        }
        const auto rest = std::chrono::duration_cast<Milliseconds>(end - std::chrono::steady_clock::now());
        pollfd readable = {_lines, POLLIN, 0};
        char piece[256];
        ssize_t count = 0;
        if (poll(&readable, 1, std::max<int>(0, rest.count())) > 0)
            count = read(_lines, piece, sizeof piece);
        if (count <= 0)
            return std::exchange(_unread, {});
        _unread.append(piece, count);
    }
}

void Process::Signal(int signal) const {
    if (!_ended)
        kill(_pid, signal);
}

bool Process::HasEnded() {
    int status;
    if (!_ended && waitpid(_pid, &status, WNOHANG) == _pid) {
        _ended = true;
        _status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    return _ended;
}
