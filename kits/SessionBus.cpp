// SPDX-License-Identifier: MIT
#include "kits/SessionBus.h"

#include "hdr/ks_assert.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <time.h>

namespace {

using clock_type = std::chrono::steady_clock;

constexpr const char* kPath = "/org/nymbrel/Roster";
constexpr const char* kInterface = "org.nymbrel.Roster";
constexpr const char* kMember = "Broadcast";
constexpr int kBurst = 64;

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

// Starts to connect without waiting. Returns null where there is no bus to connect to.
sd_bus* StartConnecting() {
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

int MillisecondsUntil(clock_type::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - clock_type::now());
    return static_cast<int>(std::max(left.count(), std::chrono::milliseconds::rep{0}));
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

bool SessionBus::Open(std::function<void(std::uint32_t)> receiver) {
    const auto deadline = clock_type::now() + kPatience;
    const std::lock_guard guard(_mutex);
    KS_ASSERT(receiver && !_receiver);
    _receiver = std::move(receiver);
    _bus = StartConnecting();
    if (_bus && FinishOpening(deadline))
        return true;
    GiveUp();
    return false;
}

bool SessionBus::FinishOpening(clock_type::time_point deadline) {
    while (sd_bus_is_ready(_bus) == 0) {
        int timeout = MillisecondsUntil(deadline);
        const int processed = sd_bus_process(_bus, nullptr);
        if (processed < 0 || timeout == 0)
            return false;
        if (processed > 0)
            continue;
        pollfd entry = PollEntryLocked(timeout);
        if (entry.fd < 0)
            return false;
        poll(&entry, 1, timeout);
    }
    // The loop reads the bus's answer to the subscription.
    return sd_bus_is_ready(_bus) > 0 && sd_bus_match_signal_async(_bus, nullptr, nullptr, kPath, kInterface,
                                                                  kMember, Receive, nullptr, this) >= 0;
}

void SessionBus::Close() {
    const std::lock_guard guard(_mutex);
    GiveUp();
}

void SessionBus::GiveUp() {
    if (_bus)
        _bus = sd_bus_close_unref(_bus);
}

void SessionBus::Broadcast(std::uint32_t code) {
    const auto deadline = clock_type::now() + kPatience;
    const std::lock_guard guard(_mutex);
    if (_bus && (sd_bus_emit_signal(_bus, kPath, kInterface, kMember, "u", code) < 0 || !Flush(deadline)))
        GiveUp();
}

// sd_bus_flush() has no deadline.
bool SessionBus::Flush(clock_type::time_point deadline) {
    for (;;) {
        std::uint64_t queued = 0;
        if (sd_bus_get_n_queued_write(_bus, &queued) < 0)
            return false;
        if (queued == 0)
            return true;
        const int timeout = MillisecondsUntil(deadline);
        const int processed = sd_bus_process(_bus, nullptr);
        if (processed < 0 || timeout == 0)
            return false;
        if (processed > 0)
            continue;
        pollfd entry{sd_bus_get_fd(_bus), POLLOUT, 0};
        poll(&entry, 1, timeout);
    }
}

// An exception must not unwind through the C code that calls this.
int SessionBus::Receive(sd_bus_message* message, void* self, sd_bus_error*) noexcept {
    auto* bus = static_cast<SessionBus*>(self);
    const char* own_name = nullptr;
    const char* sender = sd_bus_message_get_sender(message);
    sd_bus_get_unique_name(bus->_bus, &own_name);
    if (own_name && sender && std::strcmp(own_name, sender) == 0)
        return 0;
    std::uint32_t code = 0;
    if (sd_bus_message_has_signature(message, "u") > 0 && sd_bus_message_read(message, "u", &code) > 0)
        bus->_receiver(code);
    return 0;
}

pollfd SessionBus::PollEntry(int& timeout) {
    const std::lock_guard guard(_mutex);
    return PollEntryLocked(timeout);
}

pollfd SessionBus::PollEntryLocked(int& timeout) {
    pollfd entry{-1, 0, 0};
    if (!_bus)
        return entry;
    std::uint64_t when = 0;
    const int events = sd_bus_get_events(_bus);
    if (events < 0 || sd_bus_get_timeout(_bus, &when) < 0) {
        GiveUp();
        return entry;
    }
    entry.fd = sd_bus_get_fd(_bus);
    entry.events = static_cast<short>(events);
    if (when != UINT64_MAX) {
        const int due = MillisecondsUntilMonotonic(when);
        timeout = timeout < 0 ? due : std::min(timeout, due);
    }
    return entry;
}

void SessionBus::Process() {
    const std::lock_guard guard(_mutex);
    for (int i = 0; _bus && i < kBurst; ++i) {
        const int processed = sd_bus_process(_bus, nullptr);
        if (processed < 0)
            GiveUp();
        if (processed <= 0)
            return;
    }
}
