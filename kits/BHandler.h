// SPDX-License-Identifier: MIT
// Something with a name that receives messages.
#pragma once

#include <string>

class BMessage;

class BHandler {
public:
    // `name` is copied; null means no name.
    explicit BHandler(const char* name = nullptr) { SetName(name); }
    virtual ~BHandler() = default;
    BHandler(const BHandler&) = delete;
    BHandler& operator=(const BHandler&) = delete;

    // Called on the looper's thread; the looper keeps the message. The base ignores every message.
    virtual void MessageReceived(BMessage*) {}

    void SetName(const char* name) {
        _has_name = name != nullptr;
        _name = name ? name : "";
    }
    // Returns the name, or null when there is none.
    const char* Name() const { return _has_name ? _name.c_str() : nullptr; }

private:
    std::string _name;
    bool _has_name = false;
};
