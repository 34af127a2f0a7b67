// SPDX-License-Identifier: MIT
// A cycle is a combo box. The wheel turns it only while it has the focus, so that scrolling changes nothing.
#include "display/control_mirror.h"
#include "display/marks.h"
#include "toolkit/KSCycle.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QMimeData>
#include <QStringList>
#include <QWheelEvent>

namespace {

class Combo : public QComboBox {
public:
    explicit Combo(QWidget* parent) : QComboBox(parent) { setFocusPolicy(Qt::StrongFocus); }

protected:
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore();
    }
};

// On Linux, Qt gives assistive tools a combo box's text as its name, even where it has a name.
class ComboAccessible : public QAccessibleWidget {
public:
    explicit ComboAccessible(QComboBox* combo)
        : QAccessibleWidget(combo, QAccessible::ComboBox), _combo(combo) {}

    QString text(QAccessible::Text kind) const override {
        switch (kind) {
        case QAccessible::Name:
            return _combo->accessibleName();
        case QAccessible::Value:
            return _combo->currentText();
        case QAccessible::Description:  // of the two, the accessibility bus carries only this one
            return _combo->accessibleDescription();
        default:
            return QAccessibleWidget::text(kind);
        }
    }
    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(_combo->view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child->object() == _combo->view() ? 0 : -1;
    }
    QStringList actionNames() const override {
        return QStringList{showMenuAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override {
        if (action == showMenuAction())
            _combo->showPopup();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    QComboBox* _combo;
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
    auto* combo = dynamic_cast<Combo*>(object);
    return combo ? new ComboAccessible(combo) : nullptr;
}

class CycleMirror : public ControlMirror {
public:
    CycleMirror(KSCycle& control, WindowMirror& window, QWidget* parent)
        : ControlMirror(control, window), _control(control), _combo(new Combo(parent)) {
        SetWidget(_combo);
        QAccessible::installFactory(MakeAccessible);  // a second time changes nothing
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
