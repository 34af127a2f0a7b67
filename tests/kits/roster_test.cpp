// SPDX-License-Identifier: MIT
// Broadcasts to other processes over a session bus, and buses that fail in every way.
#include "kits/BRoster.h"
#include "tests/kits/private_bus.h"
#include "tests/support/recorders.h"

#include <algorithm>
#include <ctime>
#include <gtest/gtest.h>

namespace {

using std::chrono::milliseconds;

constexpr std::uint32_t kNotice = ks_message_code("fAPL");
constexpr std::uint32_t kOther = ks_message_code("OTHR");
constexpr milliseconds kPatience{500};
constexpr milliseconds kSlack{400};  // for a busy machine, and less than waiting once more

void BroadcastCode(std::uint32_t code) {
    const BMessage message(code);
    be_roster->Broadcast(&message);
}

// An application beside a bus.
class RosterOnBus : public testing::Test {
protected:
    // Runs `scenario` on a thread of its own while the application runs, then quits the application.
    void RunOnBus(const std::function<void()>& scenario) {
        std::jthread thread;
        app.on_ready = [&] {
            thread = std::jthread([&] {
                bus.Settle();
                scenario();
                app.PostMessage(B_QUIT_REQUESTED);
            });
        };
        app.Run(&server);
    }

    PrivateBus bus;
    struct : TestApplication {
        bool AcceptsBroadcast(std::uint32_t code) const override { return code == kNotice || accepts_all; }
        bool accepts_all = true;
    } app;
    TestServer server;
};

TEST_F(RosterOnBus, ReachesEveryApplicationOnce) {
    ChildProcess peer(NYMBREL_LISTENER), other_peer(NYMBREL_LISTENER);
    ASSERT_EQ(peer.ReadLine(), "ready");
    ASSERT_EQ(other_peer.ReadLine(), "ready");
    RunOnBus([&] {
        BroadcastCode(kNotice);
        BroadcastCode(kOther);
        EXPECT_TRUE(app.received.WaitFor(2));
        for (ChildProcess* process : {&peer, &other_peer}) {
            EXPECT_EQ(process->ReadLine(), "fAPL");
            EXPECT_EQ(process->ReadLine(), "OTHR");
        }
        bus.Settle();  // an echo of our own would be back by now
    });
    EXPECT_EQ(app.received.Entries(), (std::vector{kNotice, kOther}));
    EXPECT_EQ(server.calls.Entries().front(), "prepare");
    peer.Signal(SIGTERM);
    EXPECT_EQ(peer.ReadLine(), "end");
    EXPECT_EQ(peer.End(), 0);
}

TEST_F(RosterOnBus, DeliversWhatIsSentJustBeforeTheEnd) {
    constexpr std::size_t kSenders = 20;
    RunOnBus([&] {
        for (std::size_t i = 0; i < kSenders; ++i)
            EXPECT_EQ(ChildProcess(NYMBREL_LISTENER " fAPL").End(), 0);
        EXPECT_TRUE(app.received.WaitFor(kSenders));
    });
    EXPECT_EQ(app.received.Entries(), std::vector(kSenders, kNotice));
}

TEST_F(RosterOnBus, TakesFloodsOfWhatTheApplicationAcceptsAndNothingElse) {
    app.accepts_all = false;
    constexpr std::size_t kFlood = 700;
    RunOnBus([&] {
        sd_bus* connection = PrivateBus::Connect();
        const auto emit = [&](const char* interface, const char* signature, auto... values) {
            EXPECT_GE(sd_bus_emit_signal(connection, "/org/nymbrel/Roster", interface, "Broadcast", signature,
                                         values...),
                      0);
        };
        emit("org.nymbrel.Roster", "s", "fAPL");
        emit("org.nymbrel.Roster", "uu", kNotice, 2u);
        emit("org.nymbrel.Roster", "");
        emit("org.example.Roster", "u", kNotice);
        emit("org.nymbrel.Roster", "u", ks_message_code("OKAY"));
        for (std::size_t i = 0; i < kFlood; ++i)
            emit("org.nymbrel.Roster", "u", kNotice);
        sd_bus_flush_close_unref(connection);
        EXPECT_TRUE(app.received.WaitFor(kFlood));
        BroadcastCode(kOther);  // its own come back whatever it accepts
        EXPECT_TRUE(app.received.WaitFor(kFlood + 1));
    });
    std::vector<std::uint32_t> wanted(kFlood, kNotice);
    wanted.push_back(kOther);
    EXPECT_EQ(app.received.Entries(), wanted);
}

TEST_F(RosterOnBus, OutlivesItsBusWithoutSpinning) {
    RunOnBus([&] {
        bus.daemon.End(SIGKILL);
        BroadcastCode(kNotice);
        EXPECT_TRUE(app.received.WaitFor(1));
        const std::clock_t before = std::clock();  // the processor's time
        std::this_thread::sleep_for(milliseconds(200));
        EXPECT_LT(std::clock() - before, CLOCKS_PER_SEC / 20);
        BroadcastCode(kOther);
        EXPECT_TRUE(app.received.WaitFor(2));
    });
    EXPECT_EQ(app.received.Entries(), (std::vector{kNotice, kOther}));
}

// The bus is there at first and then takes nothing more: all broadcasts together wait for it once.
TEST_F(RosterOnBus, GivesUpABusThatStopsAnswering) {
    constexpr std::size_t kMost = 200000;  // far more than the socket holds
    std::size_t sent = 0;
    RunOnBus([&] {
        bus.daemon.Signal(SIGSTOP);
        const auto time_of_one = [&] {
            const auto start = std::chrono::steady_clock::now();
            BroadcastCode(kNotice);
            ++sent;
            return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - start);
        };
        milliseconds longest{0};
        while (longest < kPatience - milliseconds(1) && sent < kMost)
            longest = std::max(longest, time_of_one());
        EXPECT_LT(sent, kMost) << "the socket was never full";
        EXPECT_LT(longest, kPatience + kSlack);
        EXPECT_LT(time_of_one(), kSlack);
        EXPECT_TRUE(app.received.WaitFor(sent));
    });
    bus.daemon.Signal(SIGCONT);
    EXPECT_EQ(app.received.Entries().size(), sent);
}

// What the application does on a bus that is none, and how long that takes.
milliseconds TimeWithoutBus() {
    TestApplication app;
    TestServer server;
    app.on_ready = [&] {
        BroadcastCode(kNotice);
        be_roster->Broadcast(nullptr);
        app.PostMessage(B_QUIT_REQUESTED);
    };
    const auto start = std::chrono::steady_clock::now();
    app.Run(&server);
    const auto taken = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(app.starting.Entries(), std::vector{kNotice});
    EXPECT_EQ(app.received.Entries(), std::vector{kNotice});
    EXPECT_EQ(server.calls.Entries().front(), "prepare without bus");
    return std::chrono::duration_cast<milliseconds>(taken);
}

TEST(RosterWithoutBus, CostsNothingWhereNoneCanBeReached) {
    unsetenv("XDG_RUNTIME_DIR");
    unsetenv("DBUS_SESSION_BUS_ADDRESS");
    EXPECT_LT(TimeWithoutBus(), kSlack) << "no address";
    for (const char* address :
         {"", "disabled:", "unix:", "unix:path=/nowhere/at/all", "unix:abstract=nobody;;;unix:path=%zz",
          "unixexec:path=sleep,argv1=1", "autolaunch:"}) {
        setenv("DBUS_SESSION_BUS_ADDRESS", address, 1);
        EXPECT_LT(TimeWithoutBus(), kSlack) << address;
    }
}

TEST(RosterWithoutBus, WaitsOnceForImpostors) {
    const std::string welcome = "DATA\r\nOK 0123456789abcdef0123456789abcdef\r\nAGREE_UNIX_FD\r\n";
    for (const std::string& greeting : {std::string(), std::string("HTTP/1.1 400 Bad Request\r\n\r\n"),
                                        welcome.substr(0, 30), welcome, welcome + std::string(70, 'l')}) {
        const FakeBus bus(greeting);
        const milliseconds taken = TimeWithoutBus();
        EXPECT_LT(taken, kPatience + kSlack) << greeting;
        EXPECT_TRUE(!greeting.empty() || taken >= kPatience - milliseconds(1));
    }
}

}  // namespace
