// SPDX-License-Identifier: MIT
// A spin box: arrows and wheel step once, Page Up and Page Down ten times.
#include "display/control_mirror.h"
#include "display/number_box.h"
#include "toolkit/KSSpinBox.h"

#include <cmath>

namespace {

bool IsWhole(float value) {
    return value == std::floor(value);
}

class SpinBoxMirror : public ControlMirror {
public:
    SpinBoxMirror(KSSpinBox& control, WindowMirror& window, QWidget* parent)
        : ControlMirror(control, window), _control(control), _spin(new NumberBox(parent)) {
        SetWidget(_spin);
        QObject::connect(_spin, &NumberBox::valueChanged, _spin,
                         [this](double value) { _control.EditValue(static_cast<float>(value)); });
    }

    void Fetch() override {
        ControlMirror::Fetch();
        _minimum = _control.MinValue();
        _maximum = _control.MaxValue();
        _step = _control.Step();
        _value = _control.Value();
    }

    void Apply() override {
        ControlMirror::Apply();
        ApplyBounds();
        if (static_cast<float>(_spin->value()) != _value)
            _spin->setValue(_value);
    }

    void Commit() override { _spin->interpretText(); }
    QWidget* Editor() const override { return _spin; }

private:
    // Qt's setters replace the text that is being typed even where they change nothing.
    void ApplyBounds() {
        const bool whole = IsWhole(_minimum) && IsWhole(_maximum) && IsWhole(_step) && IsWhole(_value);
        if (const int decimals = whole ? 0 : 2; _spin->decimals() != decimals)
            _spin->setDecimals(decimals);
        if (_spin->minimum() != _minimum || _spin->maximum() != _maximum)
            _spin->setRange(_minimum, _maximum);
        if (_spin->singleStep() != _step)
            _spin->setSingleStep(_step);
    }

    KSSpinBox& _control;
    NumberBox* _spin;
    float _minimum = 0, _maximum = 0, _step = 0, _value = 0;
};

}  // namespace

std::unique_ptr<ControlMirror> MirrorSpinBox(KSSpinBox& control, WindowMirror& window, QWidget* parent) {
    return std::make_unique<SpinBoxMirror>(control, window, parent);
}
