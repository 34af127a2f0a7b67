// SPDX-License-Identifier: MIT
// A number between two bounds, with buttons to step it.
#pragma once

#include "toolkit/KSControl.h"

class KSSpinBox : public KSControl {
public:
    KSSpinBox(const char* name, unsigned flags) : KSControl(name, flags) {}

    // The bounds are inclusive; a value outside moves to the nearer one.
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

    bool Revert() override;
    void Settle() override;

private:
    float Clamped(float value) const;

    float _minimum = 0;
    float _maximum = 100;
    float _step = 1;
    ks_edited_value<float> _value;
};
