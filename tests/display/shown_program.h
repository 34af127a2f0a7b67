// SPDX-License-Identifier: MIT
// The program with its window on Qt's offscreen platform, and a test's thread that uses it.
#pragma once

#include "display/server.h"
#include "kits/BWindow.h"
#include "settings/model.h"
#include "tests/support/used_program.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSCycle.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSPopFont.h"
#include "toolkit/KSSpinBox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDropEvent>
#include <QListWidget>
#include <QMimeData>
#include <QTest>

#include <chrono>
#include <future>
#include <stdexcept>

// Has a test's functions run on the main thread, in order with the program's own.
class TestDisplay : public DisplayServer {
public:
    void Post(std::function<void()> function) { _queue.Post(std::move(function)); }
};

class ShownProgram : public UsedProgram {
public:
    // Calls `use` on a thread of its own once the window is on the screen; returns when the program has
    // ended.
    static void Run(const std::function<void(ShownProgram&)>& use) {
        const ScopedVariable platform("QT_QPA_PLATFORM", "offscreen");
        TestDisplay server;
        ShownProgram program(server);
        program.RunUsed(server, [&] {
            // Until then the window's keys do nothing.
            EXPECT_TRUE(program.Eventually([&] { return program.Top()->isActiveWindow(); }));
            use(program);
        });
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

    // Returns whether `condition`, which is asked on the main thread, comes true in time.
    bool Eventually(const std::function<bool()>& condition) {
        const auto deadline = std::chrono::steady_clock::now() + kPatience;
        while (!OnScreen(condition))
            if (std::chrono::steady_clock::now() > deadline)
                return false;
        return true;
    }

    // Shows one of the four pages, and gives the window the keyboard.
    void Open(int category) {
        OnScreen([=, this] {
            ClickRow(Categories(), category);
            Top()->activateWindow();
        });
        KSControl* const pages[] = {config::ch_pen, config::ch_background, config::ch_font, config::ch_dimen};
        EXPECT_FALSE(pages[category]->IsHidden());
        OnScreen([] {});  // behind the wake that the selection has posted
    }
    // Waits for a dialog of the window and returns it.
    template <class Kind> Kind* OpenedDialog() {
        Kind* dialog = nullptr;
        const auto is_open = [&] { return (dialog = Top()->findChild<Kind*>()) && dialog->isVisible(); };
        return Eventually(is_open) ? dialog : throw std::runtime_error("no dialog");
    }
    void WaitUntilDialogIsClosed() {
        EXPECT_TRUE(Eventually([&] { return !Top()->findChild<QDialog*>(); }));
    }

    // What follows is for the main thread.

    QWidget* Top() const {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->isVisible() && !widget->parentWidget() &&
                widget->windowTitle() == QString::fromUtf8(Windows().at(0)->Title()))
                return widget;
        throw std::runtime_error("no window");
    }
    QListWidget* Categories() const { return Top()->findChildren<QListWidget*>().front(); }
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

private:
    static constexpr std::chrono::seconds kPatience{20};

    explicit ShownProgram(TestDisplay& server) : _server(server) {}

    TestDisplay& _server;
};

// Each test has a home of its own.
class Shown : public ::testing::Test {
protected:
    ScopedHome home;
};
