// SPDX-License-Identifier: MIT
#include "kits/bus_connection.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <time.h>

namespace {

// Returns the addresses in a D-Bus address list that are Unix sockets.
std::string UnixAddresses(std::string_view list) {
    std::string kept;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(';'), list.size());
        const std::string_view address = list.substr(0, end);
        if (address.starts_with("unix:"))
            kept.append(kept.empty() ? "" : ";").append(address);
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return kept;
}

// Returns the milliseconds until `when`, a time of CLOCK_MONOTONIC in microseconds.
int MillisecondsUntilMonotonic(std::uint64_t when) {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const std::uint64_t microseconds =
        static_cast<std::uint64_t>(now.tv_sec) * 1000000 + static_cast<std::uint64_t>(now.tv_nsec) / 1000;
    if (when <= microseconds)
        return 0;
    return static_cast<int>(std::min<std::uint64_t>((when - microseconds + 999) / 1000, 1000000));
}

}  // namespace

sd_bus* ks_start_bus() {
    sd_bus* bus = nullptr;
    const char* list = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    if (!list)
        return sd_bus_open_user(&bus) < 0 ? nullptr : bus;
    const std::string addresses = UnixAddresses(list);
    if (addresses.empty() || sd_bus_new(&bus) < 0)
        return nullptr;
    if (sd_bus_set_address(bus, addresses.c_str()) < 0 || sd_bus_set_bus_client(bus, true) < 0 ||
        sd_bus_start(bus) < 0)
        return sd_bus_unref(bus);
    return bus;
}

pollfd ks_bus_poll_entry(sd_bus* bus, int& timeout) {
    pollfd entry{-1, 0, 0};
    if (!bus)
        return entry;
    std::uint64_t when = 0;
    const int events = sd_bus_get_events(bus);
    if (events < 0 || sd_bus_get_timeout(bus, &when) < 0)
        return entry;
    entry.fd = sd_bus_get_fd(bus);
    entry.events = static_cast<short>(events);
    if (when != UINT64_MAX) {
        const int due = MillisecondsUntilMonotonic(when);
        timeout = timeout < 0 ? due : std::min(timeout, due);
    }
    return entry;
}
