// SPDX-License-Identifier: MIT
// The same as exchange/KSMessage.h.
#pragma once
#include "exchange/KSMessage.h"
