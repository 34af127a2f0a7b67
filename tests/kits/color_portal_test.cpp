// SPDX-License-Identifier: MIT
// Colours of the screen, asked of a desktop portal that the test plays.
#include "kits/ColorPortal.h"
#include "tests/kits/private_bus.h"

#include <chrono>
#include <cmath>
#include <gtest/gtest.h>

namespace {

struct Portal {
    // Answers with its version and with a request that is done at once.
    static int Handle(sd_bus_message* call, void* self, sd_bus_error*) {
        auto* portal = static_cast<Portal*>(self);
        if (sd_bus_message_is_method_call(call, "org.freedesktop.DBus.Properties", "Get"))
            return sd_bus_reply_method_return(call, "v", "u", portal->version);
        if (!sd_bus_message_is_method_call(call, "org.freedesktop.portal.Screenshot", "PickColor"))
            return 0;
        const char *window, *key, *token;
        sd_bus_message_read(call, "sa{sv}", &window, 1, &key, "s", &token);
        std::string sender = sd_bus_message_get_sender(call) + 1;
        sender[sender.find('.')] = '_';
        const std::string path = "/org/freedesktop/portal/desktop/request/" + sender + "/" + token;
        sd_bus_reply_method_return(call, "o", path.c_str());
        return sd_bus_emit_signal(portal->bus, path.c_str(), "org.freedesktop.portal.Request", "Response",
                                  "ua{sv}", portal->status, 2, "other", "s", "x", "color", "(ddd)",
                                  portal->red, 0.5, 2.0);
    }

    explicit Portal(std::uint32_t version_) : version(version_) {
        sd_bus_request_name(bus, "org.freedesktop.portal.Desktop", 0);
        sd_bus_add_object(bus, nullptr, "/org/freedesktop/portal/desktop", Handle, this);
    }
    ~Portal() { sd_bus_flush_close_unref(bus); }

    sd_bus* const bus = PrivateBus::Connect();
    std::uint32_t version, status = 0;
    double red = 1;
};

TEST(ColorPortal, GivesWhatTheUserPicksWhereTheDesktopCan) {
    PrivateBus daemon;
    for (const std::uint32_t version : {0, 1, 2}) {
        Portal portal(version);
        if (version == 0)
            sd_bus_release_name(portal.bus, "org.freedesktop.portal.Desktop");
        int offers = 0;
        std::vector<ks_color> picked;
        ColorPortal colors([&] { ++offers; }, [&](ks_color color) { picked.push_back(color); });
        const auto run = [&] {
            for (const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
                 std::chrono::steady_clock::now() < end;) {
                while (sd_bus_process(portal.bus, nullptr) > 0) {
                }
                colors.Process();
            }
        };
        run();
        EXPECT_EQ(offers, version == 2);
        if (version < 2)
            continue;
        for (const auto& [status, red] :
             {std::pair(0u, 1.0), std::pair(1u, 1.0), std::pair(0u, std::nan(""))}) {
            portal.status = status;
            portal.red = red;
            colors.Pick();
            run();
        }
        EXPECT_EQ(picked, (std::vector{ks_color(255, 128, 255), ks_color(0, 128, 255)}));
    }
}

}  // namespace
