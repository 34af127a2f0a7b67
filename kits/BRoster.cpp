// SPDX-License-Identifier: MIT
// The running applications, as far as messages go to all of them.
#include "kits/BRoster.h"

#include "kits/application_loop.h"

namespace {

BRoster roster;

}  // namespace

BRoster* const be_roster = &roster;

void BRoster::Broadcast(const BMessage* message) {
    if (!be_app || !message)
        return;
    be_app->BroadcastStarting(*message);
    be_app->_loop->bus.Broadcast(message->what);
    be_app->PostMessage(*message);
}
