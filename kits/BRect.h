// SPDX-License-Identifier: MIT
// The same as exchange/BRect.h.
#pragma once
#include "exchange/BRect.h"
