// SPDX-License-Identifier: MIT
// A field that shows a colour and lets the user choose another.
#pragma once

#include "hdr/ks_color.h"
#include "toolkit/KSEditor.h"

class KSColorField : public KSEditor<ks_color> {
public:
    KSColorField(const char* name, unsigned flags);

    // `notify` and `drag` are false.
    void SetColor(const ks_color& color, bool notify, bool drag);
    void EditColor(const ks_color& color);
    ks_color Color() const;
};
