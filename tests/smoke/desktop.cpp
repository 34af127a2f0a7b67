// SPDX-License-Identifier: MIT
#include "desktop.h"

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

// A socket at `path` that connects and never answers.
int ListenAndKeepSilent(const fs::path& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener, 8) != 0)
        throw std::runtime_error("cannot listen at " + path.string());
    return listener;
}

// A bus that has ended takes the services with it that it had started; they are ours once their parent is
// gone.
void WaitForAdoptedChildren() {
    WaitUntil([] { return waitpid(-1, nullptr, WNOHANG) < 0; }, Milliseconds(5000));
}

}  // namespace

Desktop::Desktop(desktop_bus bus) {
    if (fs::exists("/boot/home"))
        throw std::runtime_error("/boot/home exists: the tests would change the settings there");
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    char name[] = "/tmp/nymbrel-desktop-XXXXXX";
    if (!mkdtemp(name))
        throw std::runtime_error("no temporary directory");
    _home = name;
    fs::create_directory(_home / "run");
    fs::permissions(_home / "run", fs::perms::owner_all);
    environment = {{"HOME", _home}, {"XDG_RUNTIME_DIR", _home / "run"}, {"LANG", "C.UTF-8"}};
    for (const char* kept :
         {"PATH", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS", "LSAN_OPTIONS"})
        if (const char* value = std::getenv(kept))
            environment[kept] = value;
    // The X11 keyboard library copies a text that has no end mark with strndup, which is no fault.
    environment["ASAN_OPTIONS"] += ":strict_string_checks=0";
    // Qt's bus thread, libdbus and glib are built without ThreadSanitizer, which sees their accesses by way
    // of libc but not their locks.
    environment["TSAN_OPTIONS"] += ":ignore_noninstrumented_modules=1";
    _screen = std::make_unique<VirtualScreen>(environment);
    environment["DISPLAY"] = _screen->Name();
    StartBus(bus);
}

Desktop::~Desktop() {
    _program.reset();
    _tree.reset();
    _bus.reset();
    _screen.reset();
    WaitForAdoptedChildren();
    if (_mute_socket >= 0)
        close(_mute_socket);
    std::error_code ignored;
    fs::remove_all(_home, ignored);
}

void Desktop::StartBus(desktop_bus kind) {
    if (kind == desktop_bus::kNone)
        return;
    const std::string address = "unix:path=" + (_home / "bus").string();
    environment["DBUS_SESSION_BUS_ADDRESS"] = address;
    if (kind == desktop_bus::kMute) {
        _mute_socket = ListenAndKeepSilent(_home / "bus");
    } else if (kind != desktop_bus::kRefused) {
        _bus =
            std::make_unique<Process>(std::vector<std::string>{"dbus-daemon", "--session", "--nofork",
                                                               "--print-address=3", "--address=" + address},
                                      environment);
        if (_bus->Line().empty())
            throw std::runtime_error("dbus-daemon did not come up");
    }
    if (kind == desktop_bus::kAssisted)
        _tree = std::make_unique<AccessibleTree>(address);
}

std::string Desktop::Settings() const {
    if (!fs::is_regular_file(SettingsFile()))
        return {};
    std::ifstream file(SettingsFile(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string Desktop::Setting(const std::string& key) const {
    std::ifstream file(SettingsFile(), std::ios::binary);
    const std::string start = key + " = ";
    for (std::string line; std::getline(file, line);)
        if (line.starts_with(start))
            return line.substr(start.size());
    return {};
}

void Desktop::WriteSettings(const std::string& text) const {
    fs::create_directories(SettingsFile().parent_path());
    std::ofstream(SettingsFile(), std::ios::binary) << text;
}

void Desktop::Start() {
    _program = std::make_unique<Process>(std::vector<std::string>{NYMBREL_PROGRAM}, environment);
    if (!WaitUntil([&] { return _screen->FocusedTitle() == kTitle || _program->HasEnded(); }) ||
        _program->HasEnded())
        throw std::runtime_error("the program's window did not come up");
}

int Desktop::Finish(Milliseconds deadline) {
    return WaitUntil([&] { return _program->HasEnded(); }, deadline) ? _program->Status() : -1;
}

std::unique_ptr<Process> Desktop::StartOther(const std::vector<std::string>& command) const {
    return std::make_unique<Process>(command, environment);
}

bool Desktop::WaitForSetting(const std::string& key, const std::string& value) {
    return WaitUntil([&] { return Setting(key) == value; });
}

accessible_node Desktop::Editor(const std::string& name, accessible_role role) {
    std::optional<accessible_node> found;
    WaitUntil([&] { return (found = _tree->Find(name, role)).has_value(); });
    if (!found)
        throw std::runtime_error("no editor '" + name + "' of this role shows");
    return *found;
}

// A window that asks for another size has laid its contents out for it before it has it.
bool Desktop::WindowHasItsSize() {
    const std::string title = _screen->FocusedTitle();
    for (const accessible_node& window : _tree->Windows())
        if (window.name == title && _tree->Has(window, accessible_state::kShowing))
            return _tree->FrameOf(window) == _screen->FrameOf(title);
    return false;
}

void Desktop::Click(const std::string& name, accessible_role role, const std::string& modifier) {
    const accessible_node editor = Editor(name, role);
    if (!WaitUntil([&] { return WindowHasItsSize(); }))
        throw std::runtime_error("the window does not get the size that its contents are laid out for");
    _screen->Click(_tree->FrameOf(editor).Middle(), modifier);
}
