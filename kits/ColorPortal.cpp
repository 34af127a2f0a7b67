// SPDX-License-Identifier: MIT
#include "kits/ColorPortal.h"

#include "kits/bus_connection.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace {

constexpr const char* kName = "org.freedesktop.portal.Desktop";
constexpr const char* kPath = "/org/freedesktop/portal/desktop";
constexpr const char* kInterface = "org.freedesktop.portal.Screenshot";
constexpr const char* kRequest = "org.freedesktop.portal.Request";
constexpr int kBurst = 64;                     // messages handled at once
constexpr std::uint32_t kFirstWithColors = 2;  // version of the interface

std::uint8_t Byte(double part) {
    return static_cast<std::uint8_t>(std::lround(std::fmin(std::fmax(part, 0), 1) * 255));
}

// Reads the answer's status and, where that tells success, the colour among its results.
std::optional<ks_color> ReadAnswer(sd_bus_message* message) {
    std::uint32_t status = 0;
    if (sd_bus_message_read(message, "u", &status) <= 0 || status != 0 ||
        sd_bus_message_enter_container(message, 'a', "{sv}") <= 0)
        return std::nullopt;
    while (sd_bus_message_enter_container(message, 'e', "sv") > 0) {
        const char* key = nullptr;
        if (sd_bus_message_read(message, "s", &key) <= 0)
            return std::nullopt;
        double red = 0, green = 0, blue = 0;
        if (std::string_view(key) == "color")
            return sd_bus_message_read(message, "v", "(ddd)", &red, &green, &blue) > 0
                       ? std::optional(ks_color(Byte(red), Byte(green), Byte(blue)))
                       : std::nullopt;
        if (sd_bus_message_skip(message, "v") < 0 || sd_bus_message_exit_container(message) < 0)
            return std::nullopt;
    }
    return std::nullopt;
}

}  // namespace

ColorPortal::ColorPortal(std::function<void()> offered, std::function<void(ks_color)> picked)
    : _bus(ks_start_bus()), _offered(std::move(offered)), _picked(std::move(picked)) {
    if (_bus && sd_bus_call_method_async(_bus, nullptr, kName, kPath, "org.freedesktop.DBus.Properties",
                                         "Get", HearVersion, this, "ss", kInterface, "version") < 0)
        GiveUp();
}

void ColorPortal::GiveUp() {
    _answer = sd_bus_slot_unref(_answer);
    if (_bus)
        _bus = sd_bus_close_unref(_bus);
}

int ColorPortal::HearVersion(sd_bus_message* message, void* self, sd_bus_error*) noexcept {
    auto* portal = static_cast<ColorPortal*>(self);
    std::uint32_t version = 0;
    const char* sender = sd_bus_message_get_sender(message);
    if (sd_bus_message_is_method_error(message, nullptr) == 0 && sender &&
        sd_bus_message_read(message, "v", "u", &version) > 0 && version >= kFirstWithColors) {
        portal->_portal = sender;
        portal->_offered();
    }
    return 0;
}

// The answer comes as a signal of an object that is named after this connection and the request.
void ColorPortal::Pick() {
    const char* own_name = nullptr;
    if (!_bus || sd_bus_get_unique_name(_bus, &own_name) < 0)
        return;
    std::string sender(own_name + 1);
    std::ranges::replace(sender, '.', '_');
    const std::string token = "nymbrel" + std::to_string(++_requests);
    const std::string path = std::string(kPath) + "/request/" + sender + '/' + token;
    _answer = sd_bus_slot_unref(_answer);
    if (sd_bus_match_signal_async(_bus, &_answer, _portal.c_str(), path.c_str(), kRequest, "Response",
                                  HearColor, nullptr, this) < 0 ||
        sd_bus_call_method_async(_bus, nullptr, kName, kPath, kInterface, "PickColor", nullptr, nullptr,
                                 "sa{sv}", "", 1, "handle_token", "s", token.c_str()) < 0)
        GiveUp();
}

int ColorPortal::HearColor(sd_bus_message* message, void* self, sd_bus_error*) noexcept {
    if (const std::optional<ks_color> color = ReadAnswer(message))
        static_cast<ColorPortal*>(self)->_picked(*color);
    return 0;
}

pollfd ColorPortal::PollEntry(int& timeout) {
    return ks_bus_poll_entry(_bus, timeout);
}

void ColorPortal::Process() {
    int processed = 1;
    for (int i = 0; _bus && processed > 0 && i < kBurst; ++i)
        processed = sd_bus_process(_bus, nullptr);
    if (processed < 0)
        GiveUp();
}
