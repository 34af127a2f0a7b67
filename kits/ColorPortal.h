// SPDX-License-Identifier: MIT
// Asks the desktop for the colour at a place of the screen that the user points at. Desktops offer this as
// org.freedesktop.portal.Screenshot on the session bus, also where programs cannot see the screen.
#pragma once

#include "hdr/ks_color.h"

#include <functional>
#include <poll.h>
#include <string>
#include <systemd/sd-bus.h>

// One connection of its own. It is used by one thread and never waits. A bus that fails is given up: nothing
// is offered or picked from then on.
class ColorPortal {
public:
    // Starts to ask whether the desktop can pick colours. Process calls `offered` once if it can, and
    // `picked` with each opaque colour that the user has chosen. If one of them throws, the program is
    // terminated.
    ColorPortal(std::function<void()> offered, std::function<void(ks_color)> picked);
    ~ColorPortal() { GiveUp(); }
    ColorPortal(const ColorPortal&) = delete;
    ColorPortal& operator=(const ColorPortal&) = delete;

    // Lets the user choose. Another choice that is under way is forgotten. Called only after `offered` was.
    void Pick();

    // See ks_bus_poll_entry.
    pollfd PollEntry(int& timeout);
    void Process();

private:
    static int HearVersion(sd_bus_message* message, void* self, sd_bus_error* error) noexcept;
    static int HearColor(sd_bus_message* message, void* self, sd_bus_error* error) noexcept;
    void GiveUp();

    sd_bus* _bus;
    sd_bus_slot* _answer = nullptr;
    std::string _portal;  // its unique name on the bus
    unsigned _requests = 0;
    std::function<void()> _offered;
    std::function<void(ks_color)> _picked;
};
