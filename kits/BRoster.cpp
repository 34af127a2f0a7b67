// SPDX-License-Identifier: MIT
#include "kits/BRoster.h"

#include "kits/BApplication.h"

namespace {

BRoster roster;

}  // namespace

BRoster* const be_roster = &roster;

void BRoster::Broadcast(const BMessage* message) {
    if (be_app && message)
        be_app->Broadcast(*message);
}
