// SPDX-License-Identifier: MIT
// A push button. Only the window's default button answers Enter; the others are pressed with Space.
#include "display/control_mirror.h"
#include "display/window_mirror.h"
#include "toolkit/KSButton.h"

#include <QPushButton>

namespace {

// A row of buttons with long texts can be made as narrow as the screen; the style cuts the texts.
class Button : public QPushButton {
public:
    explicit Button(QWidget* parent) : QPushButton(parent) {
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

    QSize minimumSizeHint() const override {
        return QPushButton::minimumSizeHint().boundedTo({kWidestLeast, QWIDGETSIZE_MAX});
    }

private:
    static constexpr int kWidestLeast = 170;
};

class ButtonMirror : public ControlMirror {
public:
    ButtonMirror(KSButton& control, WindowMirror& window, QWidget* parent)
        : ControlMirror(control, window), _button(new Button(parent)) {
        SetWidget(_button);
        _button->setAutoDefault(false);
        QObject::connect(_button, &QPushButton::clicked, _button, [this] {
            Window().Commit();
            Control().Invoke();
        });
    }

    void Fetch() override {
        ControlMirror::Fetch();
        _is_default = Control().IsDefault();
    }

    void Apply() override {
        ControlMirror::Apply();
        if (_is_default && !_button->isDefault())
            Window().SetDefaultButton(_button);
    }

    QWidget* Editor() const override { return _button; }
    bool NamesItself() const override { return true; }
    void ShowLabel(int position, QWidget*) override { _button->setText(MarkedLabel(position)); }

private:
    QPushButton* _button;
    bool _is_default = false;
};

}  // namespace

std::unique_ptr<ControlMirror> MirrorButton(KSButton& control, WindowMirror& window, QWidget* parent) {
    return std::make_unique<ButtonMirror>(control, window, parent);
}
