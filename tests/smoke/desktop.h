// SPDX-License-Identifier: MIT
// A person's desktop, made for one test: a screen, a home directory, a session bus, and the program on it.
#pragma once

#include "accessible_tree.h"
#include "virtual_screen.h"

#include <csignal>
#include <filesystem>

enum class desktop_bus {
    kNone,     // no address is known
    kRefused,  // nothing listens at the address
    kMute,     // accepts and never answers
    kLive,     // a bus without an accessibility bus
    kAssisted  // a bus on which an assistive tool runs
};

class Desktop {
public:
    explicit Desktop(desktop_bus bus);
    ~Desktop();

    // The environment of the programs of this desktop; changes hold for those started later.
    std::map<std::string, std::string> environment;

    const std::filesystem::path& Home() const { return _home; }
    std::filesystem::path SettingsFile() const { return _home / ".config/Nymbrel_settings"; }
    // The whole settings file, or nothing when it cannot be read.
    std::string Settings() const;
    // The value of a line "KEY = value" of the settings file; nothing when there is no such line.
    std::string Setting(const std::string& key) const;

    // Puts a settings file there for the program to find.
    void WriteSettings(const std::string& text) const;

    // Starts the program and waits until its window has the focus.
    void Start();
    // Waits for the program's end and returns its exit status; -1 when it did not end in time.
    int Finish(Milliseconds deadline = kPatience);
    Process& Program() { return *_program; }
    // Starts another program on this desktop.
    std::unique_ptr<Process> StartOther(const std::vector<std::string>& command) const;
    // Stops the bus: from now on it accepts and never answers.
    void SilenceBus() { _bus->Signal(SIGSTOP); }

    VirtualScreen& screen() { return *_screen; }
    // On a kAssisted desktop only.
    AccessibleTree& tree() { return *_tree; }

    // Waits until `text` stands in the settings file.
    bool WaitForSetting(const std::string& key, const std::string& value);
    // The editor of this name and role as soon as it shows; fails the test (an exception) when it never does.
    accessible_node Editor(const std::string& name, accessible_role role);
    void Click(const std::string& name, accessible_role role, const std::string& modifier = {});

    static constexpr char kTitle[] = "Nymbrel Config";

private:
    void StartBus(desktop_bus kind);
    bool WindowHasItsSize();

    std::filesystem::path _home;
    int _mute_socket = -1;
    std::unique_ptr<Process> _bus;
    std::unique_ptr<AccessibleTree> _tree;
    std::unique_ptr<VirtualScreen> _screen;
    std::unique_ptr<Process> _program;
};
