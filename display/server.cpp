// SPDX-License-Identifier: MIT
// Everything of Qt happens on the thread that calls Prepare and Run; the other members only post to it.
#include "display/server.h"

#include "display/display.h"
#include "display/look.h"
#include "display/window_mirror.h"
#include "hdr/ks_assert.h"
#include "kits/BWindow.h"

#include <QApplication>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <fontconfig/fontconfig.h>
#include <thread>

std::unique_ptr<WindowServer> ks_open_display() {
    return std::make_unique<DisplayServer>();
}

DisplayServer::DisplayServer() = default;

DisplayServer::~DisplayServer() {
    _queue.Unlisten();
    _windows.clear();
}

void DisplayServer::Prepare(bool bus_answers) {
    // Qt's accessibility bridge waits without end on a bus that accepts and never answers.
    if (!bus_answers)
        setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    // Keeps Qt from loading GTK, which several desktops' names would make it do: a tenth of a second and
    // 65 MB for the same window. QT_QPA_PLATFORMTHEME still names a theme where the user wants one.
    QGuiApplication::setDesktopSettingsAware(false);

    // What fontconfig reads takes as long as all the rest of the start; it is read meanwhile. The locale is
    // set first, since nothing may set another one while it is used.
    std::setlocale(LC_ALL, "");
    std::thread fonts([] { FcInit(); });
    look::ChooseStyle();

    static int count = 1;
    static char name[] = "NymbrelConfig";
    static char* arguments[] = {name, nullptr};
    _application = std::make_unique<QApplication>(count, arguments);
    fonts.join();
    // Files are written with decimal points all the same.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setQuitOnLastWindowClosed(false);
    _queue.Listen();
}

void DisplayServer::Run() {
    QApplication::exec();
    _queue.Unlisten();
    _windows.clear();
    std::scoped_lock lock(_mutex);
    _ended = true;
    _progress.notify_all();
}

void DisplayServer::Quit() {
    _queue.Post([] { QCoreApplication::quit(); });
}

void DisplayServer::Show(BWindow* window) {
    KS_ASSERT(!window->IsLocked());
    // The window counts as shown before its first paint, so that this already has the values that the
    // application sets next.
    _queue.Post([this, window] {
        _windows.push_back(std::make_unique<WindowMirror>(*window, _queue));
        NoteShown(window);
    });
    std::unique_lock lock(_mutex);
    _progress.wait(lock, [&] { return _ended || std::ranges::find(_shown, window) != _shown.end(); });
}

void DisplayServer::NoteShown(BWindow* window) {
    std::scoped_lock lock(_mutex);
    _shown.push_back(window);
    _progress.notify_all();
}
