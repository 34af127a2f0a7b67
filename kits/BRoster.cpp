// SPDX-License-Identifier: MIT
#include "kits/BRoster.h"

#include "kits/BApplication.h"
#include "kits/BMessage.h"
#include "kits/SessionBus.h"

namespace {

BRoster roster;

}  // namespace

BRoster* const be_roster = &roster;

void BRoster::Broadcast(const BMessage* message) {
    if (be_app && message)
        be_app->Broadcast(*message);
}

bool BRoster::Announce(const BMessage& message) {
    SessionBus bus;
    return bus.Open([](std::uint32_t) {}) && bus.Broadcast(message.what);
}
