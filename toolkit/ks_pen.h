// SPDX-License-Identifier: MIT
// The toolkit's pens: the colours by their use.
#pragma once

#include <cstdint>

enum ks_pen : std::int32_t {
    KS_PEN_BG_LOW,
    KS_PEN_BG_MED,
    KS_PEN_BG_HIGH,
    KS_PEN_BG_EDIT,
    KS_PEN_BG_READ,
    KS_PEN_BG_LIST,
    KS_PEN_BG_BUTTON,
    KS_PEN_BG_SLIDER,
    KS_PEN_BG_SELECTED,
    KS_PEN_TEXT,
    KS_PEN_DISABLEDTEXT,
    KS_PEN_TEXT_BG_CURSOR,
    KS_PEN_TEXT_FG_CURSOR,
    KS_PEN_TEXT_FG_MARKED,
    KS_PEN_TEXT_BG_MARKED,
    KS_PEN_SHINE,
    KS_PEN_DARK,
    KS_PEN_HALFSHINE,
    KS_PEN_HALFDARK,
    KS_PEN_MARK,
    KS_PEN_PAINTSHINE,
    KS_PEN_PAINT,
    KS_PEN_PAINTDARK,
    KS_PEN_NONE,
};
