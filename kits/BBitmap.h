// SPDX-License-Identifier: MIT
// The same as exchange/BBitmap.h.
#pragma once
#include "exchange/BBitmap.h"
