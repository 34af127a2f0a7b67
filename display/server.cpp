// SPDX-License-Identifier: MIT
// Qt is used only on the thread that calls Prepare and Run; the other members post to that thread.
#include "display/server.h"

#include "display/display.h"
#include "display/pen_style.h"
#include "display/start_failure.h"
#include "display/texts.h"
#include "display/wardrobe.h"
#include "display/window_mirror.h"
#include "hdr/ks_assert.h"
#include "kits/BWindow.h"
#include "toolkit/default_fonts.h"

#include <QApplication>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <system_error>
#include <thread>

std::unique_ptr<WindowServer> ks_open_display() {
    return std::make_unique<DisplayServer>();
}

DisplayServer::DisplayServer() = default;

DisplayServer::~DisplayServer() {
    _queue.Unlisten();  // the notifier goes before the application object
}

void DisplayServer::Prepare(bool bus_answers) {
    RequireRoomToStart();
    // Qt's accessibility bridge waits without end on a bus that accepts and never answers.
    if (!bus_answers)
        setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    // On several desktops Qt would load GTK, which costs a tenth of a second and 65 MB for the same window.
    // QT_QPA_PLATFORMTHEME still names a theme where the user wants one.
    QGuiApplication::setDesktopSettingsAware(false);
    // Desktops find the window's icon and name by this, which is the name of the .desktop file.
    QGuiApplication::setDesktopFileName(QStringLiteral("nymbrel-config"));

    // The default fonts are looked up during the rest of the start, which takes longer. The locale is set
    // first: it must not change while another thread runs.
    std::setlocale(LC_ALL, "");
    std::jthread fonts;
    try {
        fonts = std::jthread([] { ks_default_font(KS_FONT_NORMAL); });
    } catch (const std::system_error&) {
        // Without this thread the first one who asks for a font waits for it.
    }
    PenStyle::Install();

    const StartFailure told;
    static int count = 1;
    static char name[] = "NymbrelConfig";
    static char* arguments[] = {name, nullptr};
    _application = std::make_unique<QApplication>(count, arguments);
    texts::TranslateQt(*_application);
    _wardrobe = std::make_unique<Wardrobe>();
    QApplication::setQuitOnLastWindowClosed(false);
    _queue.Listen();
}

void DisplayServer::Run() {
    // However the event loop ends, no window outlives it and no Show waits for it. Qt leaves the display
    // here, where a quit signal still ends a wait for that.
    struct Ending {
        DisplayServer& server;
        ~Ending() {
            server.TakeAllOffScreen();
            server._application.reset();
        }
    };
    const Ending ending{*this};
    QApplication::exec();
    _queue.RethrowFailure();
}

void DisplayServer::TakeAllOffScreen() {
    _queue.Unlisten();
    _windows.clear();
    const std::scoped_lock lock(_mutex);
    _ended = true;
    _progress.notify_all();
}

void DisplayServer::Quit() {
    _queue.Post([] { QCoreApplication::quit(); });
}

void DisplayServer::Show(BWindow* window) {
    KS_ASSERT(!window->IsLocked());
    _queue.Post([this, window] { PutOnScreen(window); });
    std::unique_lock lock(_mutex);
    _progress.wait(lock, [&] { return _ended || std::ranges::find(_shown, window) != _shown.end(); });
}

// The window counts as shown before its first paint, so that this already has the values that the application
// sets next.
void DisplayServer::PutOnScreen(BWindow* window) {
    KS_ASSERT(std::ranges::find(_shown, window) == _shown.end());
    _windows.push_back(std::make_unique<WindowMirror>(*window, _queue, *_wardrobe));
    const std::scoped_lock lock(_mutex);
    _shown.push_back(window);
    _progress.notify_all();
}
