// SPDX-License-Identifier: MIT
// The application's message loop beside a window server's: order, quitting, signals and failures.
#include "kits/BView.h"
#include "kits/BWindow.h"
#include "tests/support/home.h"
#include "tests/support/recorders.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>
#include <unistd.h>

namespace {

using testing::Test;

constexpr std::uint32_t kFirst = ks_message_code("FRST");
constexpr std::uint32_t kSecond = ks_message_code("SCND");

class Application : public Test {
protected:
    ScopedVariable no_bus{"DBUS_SESSION_BUS_ADDRESS", "disabled:"};
    TestApplication app;
    TestServer server;
};

TEST_F(Application, TakesMessagesInOrderOnItsOwnThread) {
    std::atomic<std::thread::id> loop_thread;
    app.on_ready = [&] {
        EXPECT_TRUE(app.received.Entries().empty());
        loop_thread = std::this_thread::get_id();
        app.PostMessage(kSecond);
        app.PostMessage(B_QUIT_REQUESTED);
        app.PostMessage(kSecond);  // behind the quit request: dropped
    };
    app.on_message = [&](std::uint32_t) { EXPECT_EQ(std::this_thread::get_id(), loop_thread.load()); };
    app.PostMessage(kFirst);
    app.Run(&server);
    EXPECT_EQ(app.received.Entries(), (std::vector{kFirst, kSecond}));
    EXPECT_NE(loop_thread.load(), std::this_thread::get_id());
    EXPECT_EQ(server.calls.Entries(), (std::vector<std::string>{"prepare without bus", "run"}));
}

TEST_F(Application, GoesOnWhenAQuitRequestIsRefused) {
    int asked = 0;
    app.on_quit = [&] { return ++asked == 2; };
    app.PostMessage(B_QUIT_REQUESTED);
    app.PostMessage(kFirst);
    app.PostMessage(B_QUIT_REQUESTED);
    app.Run();
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(app.received.Entries(), std::vector{kFirst});
}

TEST(QuitSignals, AreQuitRequestsWhileTheApplicationRuns) {
    const ScopedVariable no_bus("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    for (const int signal : {SIGTERM, SIGINT}) {
        const auto is_blocked = [&] {
            sigset_t mask;
            pthread_sigmask(SIG_SETMASK, nullptr, &mask);
            return sigismember(&mask, signal) == 1;
        };
        ASSERT_FALSE(is_blocked());
        TestApplication app;
        app.on_ready = [&] { kill(getpid(), signal); };
        app.Run();
        EXPECT_FALSE(is_blocked()) << signal;
    }
}

TEST_F(Application, ThrowsOnWhatAHookThrows) {
    app.on_ready = [] { throw std::runtime_error("no window"); };
    EXPECT_THROW(app.Run(&server), std::runtime_error);
}

TEST_F(Application, EndsWithItsServerButDoesItsWorkFirst) {
    int asked = 0;
    app.on_quit = [&] { return ++asked < 0; };
    app.on_ready = [&] {
        app.PostMessage(kFirst);
        server.Quit();
    };
    app.Run(&server);
    EXPECT_EQ(app.received.Entries(), std::vector{kFirst});
    EXPECT_EQ(asked, 1);
}

TEST(ApplicationsWindows, AreShownByTheServerAndDeletedByTheApplication) {
    const ScopedVariable no_bus("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    const auto life = std::make_shared<int>();
    struct View : BView {
        std::shared_ptr<int> life;
    };
    {
        TestApplication app;
        TestServer server;
        app.on_ready = [&] {
            auto* window = new BWindow({100, 100, 600, 400}, "Title");
            auto* view = new View;
            view->life = life;
            window->AddChild(view);
            EXPECT_EQ(view->Window(), window);
            EXPECT_EQ(app.Windows(), std::vector{window});
            window->Show();
            window->PostMessage(kFirst);
            window->PostMessage(B_QUIT_REQUESTED);
        };
        app.Run(&server);
        EXPECT_EQ(std::ranges::count(server.calls.Entries(), "show"), 1);
        EXPECT_EQ(app.received.Entries(), std::vector{kFirst});
        EXPECT_EQ(life.use_count(), 2);
    }
    EXPECT_EQ(life.use_count(), 1);
    EXPECT_EQ(be_app, nullptr);
}

using ApplicationDeathTest = Application;

TEST_F(ApplicationDeathTest, IsTheOnlyOneAndRunsOnce) {
    EXPECT_DEATH(TestApplication(), "BApplication: .*!be_app");
    app.PostMessage(B_QUIT_REQUESTED);
    app.Run();
    EXPECT_DEATH(app.Run(), "BApplication: Run: .*has_run");
}

TEST_F(ApplicationDeathTest, MustNotHoldTheLockOfAWindowThatItShows) {
    BWindow window({0, 0, 9, 9}, nullptr);
    const BAutolock lock(&window);
    EXPECT_DEATH(window.Show(), "BWindow: Show: .*!IsLocked\\(\\)");
}

}  // namespace
