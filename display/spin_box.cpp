// SPDX-License-Identifier: MIT
// A spin box: arrows and wheel step once, Page Up and Page Down ten times. A number typed outside the bounds
// becomes the nearer bound.
#include "display/control_mirror.h"
#include "display/marks.h"
#include "display/texts.h"
#include "toolkit/KSLook.h"
#include "toolkit/KSSpinBox.h"

#include <QDoubleSpinBox>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

class Spin : public QDoubleSpinBox {
public:
    explicit Spin(QWidget* parent) : QDoubleSpinBox(parent) {
        // The wheel turns it only while it has the focus: scrolling the window changes nothing.
        setFocusPolicy(Qt::StrongFocus);
        setAlignment(Qt::AlignRight);
    }

protected:
    QValidator::State validate(QString& text, int& position) const override {
        const QValidator::State state = QDoubleSpinBox::validate(text, position);
        bool is_number;
        locale().toDouble(text, &is_number);
        return state == QValidator::Invalid && is_number ? QValidator::Intermediate : state;
    }

    void fixup(QString& text) const override {
        bool is_number;
        const double typed = locale().toDouble(text, &is_number);
        text = textFromValue(is_number ? std::clamp(typed, minimum(), maximum()) : value());
    }

    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus())
            QDoubleSpinBox::wheelEvent(event);
        else
            event->ignore();
    }
};

bool IsWhole(float value) {
    return value == std::floor(value);
}

class SpinBoxMirror : public ControlMirror {
public:
    SpinBoxMirror(KSSpinBox& control, WindowMirror& window, QWidget* parent)
        : ControlMirror(control, window), _control(control), _spin(new Spin(parent)) {
        SetWidget(_spin);
        if (ks_current_look->IsTime(&control))
            marks::Describe(*_spin, texts::Text(texts::kMicroseconds));
        QObject::connect(_spin, &QDoubleSpinBox::valueChanged, _spin,
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
    QDoubleSpinBox* _spin;
    float _minimum = 0, _maximum = 0, _step = 0, _value = 0;
};

}  // namespace

std::unique_ptr<ControlMirror> MirrorSpinBox(KSSpinBox& control, WindowMirror& window, QWidget* parent) {
    return std::make_unique<SpinBoxMirror>(control, window, parent);
}
