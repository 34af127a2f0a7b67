// SPDX-License-Identifier: MIT
#include "toolkit/KSSpinBox.h"

#include "hdr/ks_math.h"

#include <cmath>

void KSSpinBox::SetMinValue(float minimum) {
    const KSAutolock lock(this);
    SetBounds(minimum, _maximum);
}

void KSSpinBox::SetMaxValue(float maximum) {
    const KSAutolock lock(this);
    SetBounds(_minimum, maximum);
}

void KSSpinBox::SetBounds(float minimum, float maximum) {
    if (!std::isfinite(minimum) || !std::isfinite(maximum))
        return;
    _minimum = minimum;
    _maximum = maximum;
    ProgramSets(Clamped(Present()));
    Changed();
}

void KSSpinBox::SetStep(float step) {
    const KSAutolock lock(this);
    if (!std::isfinite(step) || step <= 0)
        return;
    _step = step;
    Changed();
}

float KSSpinBox::MinValue() const {
    const KSAutolock lock(this);
    return _minimum;
}

float KSSpinBox::MaxValue() const {
    const KSAutolock lock(this);
    return _maximum;
}

float KSSpinBox::Step() const {
    const KSAutolock lock(this);
    return _step;
}

void KSSpinBox::SetValue(float value) {
    const KSAutolock lock(this);
    if (!std::isnan(value))
        ProgramSets(Clamped(value));
}

void KSSpinBox::EditValue(float value) {
    const KSAutolock lock(this);
    if (!std::isnan(value))
        UserSets(Clamped(value), true);
}

float KSSpinBox::Value() const {
    return Copy();
}

float KSSpinBox::Clamped(float value) const {
    return (MAX)((MIN)(value, _maximum), _minimum);
}
