// SPDX-License-Identifier: MIT
// A number between two bounds, with buttons to step it.
#pragma once

#include "toolkit/KSEditor.h"

class KSSpinBox : public KSEditor<float> {
public:
    KSSpinBox(const char* name, unsigned flags) : KSEditor(name, flags) {}

    // The bounds are inclusive; a value outside moves to the nearer one. A bound that is not finite, or a
    // step that is not finite or not above 0, changes nothing.
    void SetMinValue(float minimum);
    void SetMaxValue(float maximum);
    void SetStep(float step);
    float MinValue() const;
    float MaxValue() const;
    float Step() const;

    // Values outside the bounds are clamped; one that is not a number changes nothing.
    void SetValue(float value);
    void EditValue(float value);
    float Value() const;

private:
    void SetBounds(float minimum, float maximum);
    float Clamped(float value) const;

    float _minimum = 0;
    float _maximum = 100;
    float _step = 1;
};
