// SPDX-License-Identifier: MIT
#include "kits/SessionBus.h"

#include "hdr/ks_assert.h"
#include "kits/bus_connection.h"

#include <algorithm>
#include <cstring>

namespace {

using clock_type = std::chrono::steady_clock;

constexpr const char* kPath = "/org/nymbrel/Roster";
constexpr const char* kInterface = "org.nymbrel.Roster";
constexpr const char* kMember = "Broadcast";
constexpr int kBurst = 64;

int MillisecondsUntil(clock_type::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - clock_type::now());
    return static_cast<int>(std::max(left.count(), std::chrono::milliseconds::rep{0}));
}

}  // namespace

bool SessionBus::Open(std::function<void(std::uint32_t)> receiver) {
    const auto deadline = clock_type::now() + kPatience;
    const std::lock_guard guard(_mutex);
    KS_ASSERT(receiver && !_receiver);
    _receiver = std::move(receiver);
    _bus = ks_start_bus();
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

bool SessionBus::Broadcast(std::uint32_t code) {
    const auto deadline = clock_type::now() + kPatience;
    const std::lock_guard guard(_mutex);
    if (_bus && (sd_bus_emit_signal(_bus, kPath, kInterface, kMember, "u", code) < 0 || !Flush(deadline)))
        GiveUp();
    return _bus != nullptr;
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
    const pollfd entry = ks_bus_poll_entry(_bus, timeout);
    if (entry.fd < 0)
        GiveUp();
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
