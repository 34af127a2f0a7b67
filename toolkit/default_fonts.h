// SPDX-License-Identifier: MIT
// The fonts that the toolkit uses where nobody has chosen others.
#pragma once

#include "kits/BFont.h"
#include "toolkit/ks_look.h"

// Returns the desktop's font for that use, of names that the settings file can hold. Looked up once, which
// may take as long as reading all the fonts' files.
const BFont& ks_default_font(ks_font font);
