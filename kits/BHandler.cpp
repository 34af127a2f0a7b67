// SPDX-License-Identifier: MIT
// What receives messages and has a name.
#include "kits/BHandler.h"

BHandler::BHandler(const char* name) {
    SetName(name);
}

BHandler::~BHandler() = default;

void BHandler::MessageReceived(BMessage*) {}

void BHandler::SetName(const char* name) {
    _has_name = name != nullptr;
    _name = name ? name : "";
}
