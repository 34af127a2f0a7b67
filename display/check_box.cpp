// SPDX-License-Identifier: MIT
// A check box, which carries its label itself.
#include "display/control_mirror.h"
#include "toolkit/KSCheckBox.h"

#include <QCheckBox>
#include <QMimeData>

namespace {

class CheckBoxMirror : public ControlMirror {
public:
    CheckBoxMirror(KSCheckBox& control, WindowMirror& window, QWidget* parent)
        : ControlMirror(control, window), _control(control), _box(new QCheckBox(parent)) {
        SetWidget(_box);
        QObject::connect(_box, &QCheckBox::toggled, _box, [this](bool on) { _control.EditValue(on); });
    }

    void Fetch() override {
        ControlMirror::Fetch();
        _on = _control.Value();
    }

    void Apply() override {
        ControlMirror::Apply();
        _box->setChecked(_on);
    }

    QWidget* Editor() const override { return _box; }
    bool NamesItself() const override { return true; }

    // As the settings file has it.
    QString CopiedText() const override { return _box->isChecked() ? kOn : kOff; }
    std::function<void()> Paster(const QMimeData& data) override {
        const QString text = data.text().trimmed();
        if (text != kOn && text != kOff)
            return nullptr;
        return [=, this] { _box->setChecked(text == kOn); };
    }

    void ShowLabel(int position, QWidget*) override { _box->setText(MarkedLabel(position)); }

private:
    static constexpr QLatin1String kOn{"1"}, kOff{"0"};

    KSCheckBox& _control;
    QCheckBox* _box;
    bool _on = false;
};

}  // namespace

std::unique_ptr<ControlMirror> MirrorCheckBox(KSCheckBox& control, WindowMirror& window, QWidget* parent) {
    return std::make_unique<CheckBoxMirror>(control, window, parent);
}
