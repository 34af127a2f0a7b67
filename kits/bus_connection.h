// SPDX-License-Identifier: MIT
// Connecting to the session bus without waiting, and waiting for it with poll(). Private to the kits.
#pragma once

#include <poll.h>
#include <systemd/sd-bus.h>

// Starts to connect to the bus that DBUS_SESSION_BUS_ADDRESS names, or to the user's bus where that is unset.
// Only Unix sockets are tried. Returns null where there is no bus to connect to; the caller owns the rest.
sd_bus* ks_start_bus();

// Returns what poll() waits for: the descriptor (-1 for a null or a broken bus) and its events. Lowers
// `timeout` to the milliseconds after which sd_bus_process is due in any case; a negative one waits for ever.
pollfd ks_bus_poll_entry(sd_bus* bus, int& timeout);
