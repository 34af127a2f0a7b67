// SPDX-License-Identifier: MIT
#include "virtual_screen.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <algorithm>
#include <cstdlib>
#include <mutex>
#include <poll.h>
#include <stdexcept>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>

namespace {

struct key_name {
    const char* name;
    KeySym symbol;
};

constexpr key_name kModifiers[] = {
    {"Shift", XK_Shift_L},
    {"Ctrl", XK_Control_L},
    {"Alt", XK_Alt_L},
};

// A key that goes down in the millisecond in which it went up would be taken for one that repeats itself.
constexpr unsigned long kBetweenKeys = 2;  // milliseconds

KeySym ModifierSymbol(const std::string& name) {
    for (const key_name& modifier : kModifiers)
        if (name == modifier.name)
            return modifier.symbol;
    throw std::invalid_argument("no modifier " + name);
}

// Gives each new window its wish and the focus; when one goes, the one before it has the focus again.
class WindowManager {
public:
    explicit WindowManager(const std::string& name)
        : _display(XOpenDisplay(name.c_str())), _stop(eventfd(0, EFD_CLOEXEC)) {
        XSelectInput(_display, DefaultRootWindow(_display),
                     SubstructureRedirectMask | SubstructureNotifyMask);
        XSync(_display, False);
        _thread = std::thread([this] { Run(); });
    }

    ~WindowManager() {
        eventfd_write(_stop, 1);
        _thread.join();
        XCloseDisplay(_display);
        close(_stop);
    }

    // The windows that are on the screen, the oldest first.
    std::vector<Window> Windows() {
        const std::lock_guard guard(_mutex);
        return _windows;
    }

private:
    void Run() {
        pollfd readable[] = {{ConnectionNumber(_display), POLLIN, 0}, {_stop, POLLIN, 0}};
        while (readable[1].revents == 0) {
            while (XPending(_display) > 0) {
                XEvent event;
                XNextEvent(_display, &event);
                Handle(event);
            }
            poll(readable, 2, -1);
        }
    }

    void Handle(const XEvent& event) {
        const std::lock_guard guard(_mutex);
        if (event.type == MapRequest) {
            XMapWindow(_display, event.xmaprequest.window);
        } else if (event.type == ConfigureRequest) {
            const XConfigureRequestEvent& asked = event.xconfigurerequest;
            XWindowChanges changes = {asked.x,     asked.y,     asked.width, asked.height, asked.border_width,
                                      asked.above, asked.detail};
            XConfigureWindow(_display, asked.window, asked.value_mask, &changes);
        } else if (event.type == MapNotify && !event.xmap.override_redirect) {
            _windows.push_back(event.xmap.window);
            XSetInputFocus(_display, _windows.back(), RevertToParent, CurrentTime);
        } else if (event.type == UnmapNotify && std::erase(_windows, event.xunmap.window) &&
                   !_windows.empty()) {
            XSetInputFocus(_display, _windows.back(), RevertToParent, CurrentTime);
        }
    }

    Display* _display;
    int _stop;
    std::mutex _mutex;
    std::vector<Window> _windows;
    std::thread _thread;
};

}  // namespace

struct VirtualScreen::Server {
    explicit Server(const std::map<std::string, std::string>& environment)
        : process({"Xvfb", "-displayfd", "3", "-screen", "0", "1600x1200x24", "-nolisten", "tcp", "-noreset"},
                  environment),
          name(":" + process.Line()),
          display(XOpenDisplay(name.c_str())) {
        if (!display)
            throw std::runtime_error("Xvfb did not come up");
        // Windows may vanish while they are asked about; the answer is then simply missing.
        XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
        manager = std::make_unique<WindowManager>(name);
    }

    Process process;
    std::string name;
    Display* display;
    std::unique_ptr<WindowManager> manager;

    Atom AtomOf(const char* atom) { return XInternAtom(display, atom, False); }

    std::string TitleOf(Window window) {
        Atom type;
        int format;
        unsigned long count, rest;
        unsigned char* bytes = nullptr;
        XGetWindowProperty(display, window, AtomOf("_NET_WM_NAME"), 0, 1024, False, AnyPropertyType, &type,
                           &format, &count, &rest, &bytes);
        const std::string title = bytes ? std::string(reinterpret_cast<char*>(bytes), count) : std::string();
        if (bytes)
            XFree(bytes);
        return title;
    }

    Window Find(const std::string& title) {
        for (const Window window : manager->Windows())
            if (TitleOf(window) == title)
                return window;
        throw std::runtime_error("no window is called " + title);
    }

    void PressSymbol(KeySym symbol, bool down) {
        const KeyCode code = XKeysymToKeycode(display, symbol);
        if (code == 0)
            throw std::invalid_argument(std::string("no key for ") + XKeysymToString(symbol));
        XTestFakeKeyEvent(display, code, down, down ? kBetweenKeys : 0);
    }

    void Tap(KeySym symbol) {
        const bool shifted =
            XKeycodeToKeysymAt(symbol, 1) == symbol && XKeycodeToKeysymAt(symbol, 0) != symbol;
        if (shifted)
            PressSymbol(XK_Shift_L, true);
        PressSymbol(symbol, true);
        PressSymbol(symbol, false);
        if (shifted)
            PressSymbol(XK_Shift_L, false);
    }

    // What the key that yields `symbol` yields at a shift level.
    KeySym XKeycodeToKeysymAt(KeySym symbol, int level) {
        int width;
        KeySym* symbols = XGetKeyboardMapping(display, XKeysymToKeycode(display, symbol), 1, &width);
        const KeySym found = level < width ? symbols[level] : static_cast<KeySym>(NoSymbol);
        XFree(symbols);
        return found;
    }

    void Button(unsigned button) {
        XTestFakeButtonEvent(display, button, True, CurrentTime);
        XTestFakeButtonEvent(display, button, False, CurrentTime);
    }
};

VirtualScreen::VirtualScreen(const std::map<std::string, std::string>& environment)
    : _server(std::make_unique<Server>(environment)) {
    // Away from where windows come up.
    MoveTo({DisplayWidth(_server->display, 0) - 1, DisplayHeight(_server->display, 0) - 1});
}

VirtualScreen::~VirtualScreen() {
    _server->manager.reset();
    XCloseDisplay(_server->display);
}

const std::string& VirtualScreen::Name() const {
    return _server->name;
}

std::string VirtualScreen::FocusedTitle() {
    Window focus;
    int revert;
    XGetInputFocus(_server->display, &focus, &revert);
    const std::vector<Window> windows = _server->manager->Windows();
    const bool is_shown = std::find(windows.begin(), windows.end(), focus) != windows.end();
    return is_shown ? _server->TitleOf(focus) : std::string();
}

screen_rect VirtualScreen::FrameOf(const std::string& title) {
    XWindowAttributes shape{};
    XGetWindowAttributes(_server->display, _server->Find(title), &shape);
    return {shape.x, shape.y, shape.width, shape.height};
}

void VirtualScreen::Close(const std::string& title) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = _server->Find(title);
    event.xclient.message_type = _server->AtomOf("WM_PROTOCOLS");
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(_server->AtomOf("WM_DELETE_WINDOW"));
    XSendEvent(_server->display, event.xclient.window, False, NoEventMask, &event);
    XFlush(_server->display);
}

void VirtualScreen::Press(const std::string& key) {
    std::vector<KeySym> held;
    size_t start = 0;
    for (size_t plus; (plus = key.find('+', start)) != std::string::npos; start = plus + 1)
        held.push_back(ModifierSymbol(key.substr(start, plus - start)));
    const KeySym symbol = XStringToKeysym(key.substr(start).c_str());
    for (const KeySym modifier : held)
        _server->PressSymbol(modifier, true);
    _server->PressSymbol(symbol, true);
    _server->PressSymbol(symbol, false);
    for (const KeySym modifier : held)
        _server->PressSymbol(modifier, false);
    XFlush(_server->display);
}

void VirtualScreen::Type(const std::string& text) {
    // The symbols of Latin-1 are its characters.
    for (const char character : text)
        _server->Tap(static_cast<unsigned char>(character));
    XFlush(_server->display);
}

void VirtualScreen::MoveTo(screen_point point) {
    XTestFakeMotionEvent(_server->display, 0, point.x, point.y, CurrentTime);
    XFlush(_server->display);
}

void VirtualScreen::Click(screen_point point, const std::string& modifier) {
    MoveTo(point);
    if (!modifier.empty())
        _server->PressSymbol(ModifierSymbol(modifier), true);
    _server->Button(1);
    if (!modifier.empty())
        _server->PressSymbol(ModifierSymbol(modifier), false);
    XFlush(_server->display);
}

void VirtualScreen::TurnWheel(screen_point point, int clicks_up) {
    MoveTo(point);
    for (int click = 0; click < std::abs(clicks_up); ++click)
        _server->Button(clicks_up > 0 ? 4 : 5);
    XFlush(_server->display);
}
