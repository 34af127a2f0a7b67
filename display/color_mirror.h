// SPDX-License-Identifier: MIT
// The mirror of a control that has a colour and a dialog to choose it in.
#pragma once

#include "display/control_mirror.h"

class QColor;

class ColorMirror : public ControlMirror {
public:
    using ControlMirror::ControlMirror;

    // Opens the dialog with `start` chosen; the control's own colour stays until the dialog is accepted.
    virtual void ChooseFrom(const QColor& start) = 0;
};
