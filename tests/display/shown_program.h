// SPDX-License-Identifier: MIT
// The program with its window on Qt's offscreen platform, and a test's thread that uses it.
#pragma once

#include "app/NymbrelConfig.h"
#include "display/server.h"
#include "kits/BWindow.h"
#include "settings/model.h"
#include "tests/support/recorders.h"
#include "tests/support/home.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSCycle.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSPopFont.h"
#include "toolkit/KSSpinBox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QListWidget>
#include <QMimeData>
#include <QTest>
#include <QWidget>

#include <algorithm>
#include <chrono>
#include <functional>
#include <future>
#include <stdexcept>
#include <thread>

// Has a test's functions run on the main thread, in order with the program's own.
class TestDisplay : public DisplayServer {
public:
    void Post(std::function<void()> function) { _queue.Post(std::move(function)); }
};

class ShownProgram : public NCApplication {
public:
    // Starts the program and calls `use` on a thread of its own once the window is on the screen and has its
    // values; returns when the program has ended. It is told to when `use` returns.
    static void Run(const std::function<void(ShownProgram&)>& use) {
        const ScopedVariable no_bus("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        const ScopedVariable platform("QT_QPA_PLATFORM", "offscreen");
        TestDisplay server;
        ShownProgram program(server, use);
        program.NCApplication::Run(&server);
        program._user.join();
    }

    // Runs `function` on the main thread and returns what it returns.
    template <class Function> auto OnScreen(Function function) {
        std::packaged_task<decltype(function())()> task(std::move(function));
        auto result = task.get_future();
        // A function that was given up must still be there should it run after all.
        _server.Post([shared = std::make_shared<decltype(task)>(std::move(task))] { (*shared)(); });
        if (result.wait_for(kPatience) != std::future_status::ready)
            throw std::runtime_error("the main thread does not answer");
        return result.get();
    }

    // Has `function` run on the main thread, some time.
    void Later(std::function<void()> function) { _server.Post(std::move(function)); }

    // Returns whether `condition`, which is asked on the main thread, comes true in time.
    bool Eventually(const std::function<bool()>& condition) {
        const auto deadline = std::chrono::steady_clock::now() + kPatience;
        while (!OnScreen(condition))
            if (std::chrono::steady_clock::now() > deadline)
                return false;
        return true;
    }

    // What follows is for the main thread.

    QWidget* Top() const {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->isVisible() && widget->windowTitle() == QString::fromUtf8(Windows().at(0)->Title()))
                return widget;
        throw std::runtime_error("no window");
    }
    // The widget of a kind that bears an accessible name.
    template <class Kind> Kind* Named(const char* name, QWidget* below = nullptr) const {
        for (Kind* widget : (below ? below : Top())->findChildren<Kind*>())
            if (widget->accessibleName() == QString::fromUtf8(name))
                return widget;
        throw std::runtime_error(std::string("nothing is called ") + name);
    }
    QAbstractButton* Button(const char* text) const {
        for (auto* button : Top()->findChildren<QAbstractButton*>())
            if (QString(button->text()).remove(u'&') == QString::fromUtf8(text))
                return button;
        throw std::runtime_error(std::string("no button ") + text);
    }
    // Clicks on a list's item as the user does.
    static void ClickRow(QListWidget* list, int row, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers,
                          list->visualItemRect(list->item(row)).center());
    }
    // Drags data over a widget and drops it there, unless it is refused; returns whether it was taken.
    static bool Drop(QWidget* widget, const QMimeData& mime) {
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(widget, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent drop({5, 5}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(widget, &drop);
        return drop.isAccepted();
    }

    // What follows is for the test's thread.

    // Shows one of the four pages, and gives the window the keyboard.
    void Open(int category) {
        OnScreen([=, this] { ClickRow(Categories(), category); });
        KSControl* const pages[] = {config::ch_pen, config::ch_background, config::ch_font, config::ch_dimen};
        ASSERT_FALSE(pages[category]->IsHidden());
        OnScreen([=, this] { Top()->activateWindow(); });
        // The page is on the screen when something on it is.
        const char* const sample[] = {"Disabled Text", "Low level", "Normal", "Look"};
        ASSERT_TRUE(Eventually([=, this] { return Named<QWidget>(sample[category])->isVisible(); }));
    }
    QListWidget* Categories() const { return Named<QListWidget>("Categories"); }

    // Waits until the application has handled `count` messages of this code.
    bool WaitForMessage(std::uint32_t code, long count = 1) {
        return Eventually([&] { return std::ranges::count(_handled.Entries(), code) >= count; });
    }

    void ReadyToRun() override {
        NCApplication::ReadyToRun();
        _user = std::thread([this] {
            try {
                _use(*this);
            } catch (const std::exception& error) {
                ADD_FAILURE() << error.what();
            }
            PostMessage(B_QUIT_REQUESTED);
        });
    }
    void MessageReceived(BMessage* message) override {
        NCApplication::MessageReceived(message);
        _handled.Add(message->what);
    }

private:
    static constexpr std::chrono::seconds kPatience{20};

    ShownProgram(TestDisplay& server, std::function<void(ShownProgram&)> use)
        : _server(server), _use(std::move(use)) {}

    TestDisplay& _server;
    std::function<void(ShownProgram&)> _use;
    std::thread _user;
    Journal<std::uint32_t> _handled;
};

// Each test has a home of its own.
class Shown : public ::testing::Test {
protected:
    ScopedHome home;
};
