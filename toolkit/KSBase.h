// SPDX-License-Identifier: MIT
// The root of the toolkit's objects: a handler that may subscribe to data.
#pragma once

#include "kits/BHandler.h"

class KSDataSubscriber {
public:
    virtual ~KSDataSubscriber() = default;
};

class KSBase : public BHandler, public KSDataSubscriber {
public:
    explicit KSBase(const char* name) : BHandler(name) {}
};
