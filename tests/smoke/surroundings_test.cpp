// SPDX-License-Identifier: MIT
// The program in surroundings good and bad: buses, signals, and places where its file cannot be.
#include "desktop.h"

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace {

// From the key press to the end of the process.
#ifdef NYMBREL_SANITIZED
constexpr Milliseconds kQuitsWithin{5000};
#else
constexpr Milliseconds kQuitsWithin{600};
#endif

void ExpectEnterQuits(Desktop& desktop) {
    const auto start = std::chrono::steady_clock::now();
    desktop.screen().Press("Return");
    EXPECT_EQ(desktop.Finish(), 0);
    const auto taken = std::chrono::steady_clock::now() - start;
    EXPECT_LE(std::chrono::duration_cast<Milliseconds>(taken), kQuitsWithin);
}

struct bus_case {
    const char* name;
    desktop_bus bus;
};

class Bus : public testing::TestWithParam<bus_case> {};

TEST_P(Bus, OkStoresAndQuitsAtOnce) {
    Desktop desktop(GetParam().bus);
    desktop.Start();
    ExpectEnterQuits(desktop);
    EXPECT_EQ(desktop.Setting("LANGUAGE"), "english");
}

INSTANTIATE_TEST_SUITE_P(Surroundings, Bus,
                         testing::Values(bus_case{"None", desktop_bus::kNone},
                                         bus_case{"Refused", desktop_bus::kRefused},
                                         bus_case{"Mute", desktop_bus::kMute},
                                         bus_case{"Live", desktop_bus::kLive}),
                         [](const auto& bus) { return bus.param.name; });

TEST(Bus, ThatFallsSilentWhileTheProgramRunsDoesNotHoldOkBack) {
    Desktop desktop(desktop_bus::kLive);
    desktop.Start();
    desktop.SilenceBus();
    ExpectEnterQuits(desktop);
    EXPECT_EQ(desktop.Setting("LANGUAGE"), "english");
}

TEST(ChangeNotice, ReachesAnotherApplicationOncePerCommand) {
    Desktop desktop(desktop_bus::kLive);
    const auto listener = desktop.StartOther({NYMBREL_LISTENER});
    ASSERT_EQ(listener->Line(), "ready");
    desktop.Start();
    desktop.screen().Press("Return");
    EXPECT_EQ(listener->Line(), "fAPL");
    EXPECT_EQ(desktop.Finish(), 0);
    // What comes next is not a second notice, but what is broadcast next ('DONE').
    const auto sender = desktop.StartOther({"dbus-send", "--session", "--type=signal", "/org/nymbrel/Roster",
                                            "org.nymbrel.Roster.Broadcast", "uint32:1146048069"});
    EXPECT_EQ(listener->Line(), "DONE");
}

TEST(Signals, AreQuitRequests) {
    for (const int signal : {SIGTERM, SIGINT}) {
        Desktop desktop(desktop_bus::kNone);
        desktop.Start();
        desktop.Program().Signal(signal);
        EXPECT_EQ(desktop.Finish(), 0) << "signal " << signal;
        EXPECT_FALSE(fs::exists(desktop.SettingsFile()));
    }
}

// Makes the settings file's place unfit after the program has started; OK must quit all the same.
struct place_case {
    const char* name;
    void (*spoil)(Desktop& desktop);
};

class Place : public testing::TestWithParam<place_case> {};

TEST_P(Place, IsLeftAsItIsAndOkQuits) {
    Desktop desktop(desktop_bus::kNone);
    desktop.Start();
    GetParam().spoil(desktop);
    const auto described = [&] {
        std::error_code ignored;
        return std::pair(fs::status(desktop.SettingsFile(), ignored), desktop.Settings());
    };
    const auto before = described();
    ExpectEnterQuits(desktop);
    const auto after = described();
    EXPECT_EQ(after.first.type(), before.first.type());
    EXPECT_EQ(after.first.permissions(), before.first.permissions());
    EXPECT_EQ(after.second, before.second);
}

INSTANTIATE_TEST_SUITE_P(
    Surroundings, Place,
    testing::Values(place_case{"MissingDirectory",
                               [](Desktop& desktop) { fs::remove_all(desktop.Home() / ".config"); }},
                    place_case{"UnwritableDirectory",
                               [](Desktop& desktop) {
                                   fs::permissions(desktop.Home() / ".config",
                                                   fs::perms::owner_read | fs::perms::owner_exec);
                               }},
                    place_case{"ReadOnlyFile",
                               [](Desktop& desktop) {
                                   desktop.WriteSettings("MOUSEHOLDTIME = 40000\n");
                                   fs::permissions(desktop.SettingsFile(), fs::perms::owner_read);
                               }},
                    place_case{"DirectoryInThePlaceOfTheFile",
                               [](Desktop& desktop) { fs::create_directory(desktop.SettingsFile()); }}),
    [](const auto& place) { return place.param.name; });

TEST(Place, WithoutAHomeTheWindowComesUpAndOkQuits) {
    Desktop desktop(desktop_bus::kNone);
    desktop.environment.erase("HOME");
    desktop.Start();
    ExpectEnterQuits(desktop);
}

}  // namespace
