// SPDX-License-Identifier: MIT
// What receives messages and has a name.
#pragma once

#include <string>

class BMessage;

class BHandler {
public:
    // `name` is copied; null means no name.
    explicit BHandler(const char* name = nullptr);
    virtual ~BHandler();
    BHandler(const BHandler&) = delete;
    BHandler& operator=(const BHandler&) = delete;

    // Called on the looper's thread with a message that it owns. The base ignores every message.
    virtual void MessageReceived(BMessage* message);

    void SetName(const char* name);
    // Returns the name, or null when there is none.
    const char* Name() const { return _has_name ? _name.c_str() : nullptr; }

private:
    std::string _name;
    bool _has_name = false;
};
