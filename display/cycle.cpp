// SPDX-License-Identifier: MIT
// A cycle is a combo box.
#include "display/combo.h"
#include "display/control_mirror.h"
#include "display/marks.h"
#include "toolkit/KSCycle.h"

#include <QMimeData>
#include <QStringList>

namespace {

class CycleMirror : public ControlMirror {
public:
    CycleMirror(KSCycle& control, WindowMirror& window, QWidget* parent)
        : ControlMirror(control, window), _control(control), _combo(new Combo(parent)) {
        SetWidget(_combo);
        QObject::connect(_combo, &QComboBox::currentIndexChanged, _combo,
                         [this](int index) { _control.EditSelection(index); });
    }

    void Fetch() override {
        ControlMirror::Fetch();
        _labels.clear();
        char label[64];
        for (long i = 0; _control.GetLabel(i, label); ++i)
            _labels.append(QString::fromUtf8(label));
        _selection = static_cast<int>(_control.CurrentSelection());
    }

    void Apply() override {
        ControlMirror::Apply();
        QStringList shown;
        for (int i = 0; i < _combo->count(); ++i)
            shown.append(_combo->itemText(i));
        if (shown != _labels) {
            _combo->clear();
            _combo->addItems(_labels);
        }
        _combo->setCurrentIndex(_selection);
        marks::Describe(*_combo, _combo->currentText());
    }

    QString CopiedText() const override { return _combo->currentText(); }
    std::function<void()> Paster(const QMimeData& data) override {
        const int index = _combo->findText(data.text().trimmed());
        return index < 0 ? nullptr : std::function<void()>([=, this] { _combo->setCurrentIndex(index); });
    }

    QWidget* Editor() const override { return _combo; }

private:
    KSCycle& _control;
    QComboBox* _combo;
    QStringList _labels;
    int _selection = -1;
};

}  // namespace

std::unique_ptr<ControlMirror> MirrorCycle(KSCycle& control, WindowMirror& window, QWidget* parent) {
    return std::make_unique<CycleMirror>(control, window, parent);
}
