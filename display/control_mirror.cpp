// SPDX-License-Identifier: MIT
// The common part of the mirrors, and the table of the makers.
#include "display/control_mirror.h"

#include "display/marks.h"
#include "display/pen_style.h"
#include "display/shown_text.h"
#include "display/window_mirror.h"
#include "toolkit/KSButton.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSCycle.h"
#include "toolkit/KSLabel.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSLookPreview.h"
#include "toolkit/KSPicture.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSPopFont.h"
#include "toolkit/KSSeparator.h"
#include "toolkit/KSSpinBox.h"

#include <QAbstractSpinBox>
#include <QEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTextDocument>
#include <QWidget>

namespace {

using Maker = std::unique_ptr<ControlMirror> (*)(KSControl&, WindowMirror&, QWidget*);

// Returns null when the control is of another kind.
template <class Kind, std::unique_ptr<ControlMirror> (*Make)(Kind&, WindowMirror&, QWidget*)>
std::unique_ptr<ControlMirror> MakeIf(KSControl& control, WindowMirror& window, QWidget* parent) {
    Kind* kind = dynamic_cast<Kind*>(&control);
    return kind ? Make(*kind, window, parent) : nullptr;
}

// KSControl is last: it takes what no other row takes.
constexpr Maker kMakers[] = {
    MakeIf<KSLabel, MirrorLabel>,         MakeIf<KSColorField, MirrorColorField>,
    MakeIf<KSPopFile, MirrorPopFile>,     MakeIf<KSPopFont, MirrorPopFont>,
    MakeIf<KSSpinBox, MirrorSpinBox>,     MakeIf<KSCheckBox, MirrorCheckBox>,
    MakeIf<KSCycle, MirrorCycle>,         MakeIf<KSListView, MirrorListView>,
    MakeIf<KSButton, MirrorButton>,       MakeIf<KSPicture, MirrorPicture>,
    MakeIf<KSSeparator, MirrorSeparator>, MakeIf<KSLookPreview, MirrorLookPreview>,
    MakeIf<KSControl, MirrorGroup>,
};

// Shows a widget's bubble help only where the look wants any.
class BubbleHelpSwitch : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        return event->type() == QEvent::ToolTip && !PenStyle::Instance().Wearing().Look().bubble_help;
    }
};

}  // namespace

std::unique_ptr<ControlMirror> MakeMirror(KSControl& control, WindowMirror& window, QWidget* parent) {
    std::unique_ptr<ControlMirror> mirror;
    for (const Maker make : kMakers) {
        mirror = make(control, window, parent);
        if (mirror)
            break;
    }
    return mirror;
}

ControlMirror::ControlMirror(KSControl& control, WindowMirror& window) : _control(control), _window(window) {}

void ControlMirror::Fetch() {
    _label = QString::fromStdString(_control.Label());
    _hidden = _control.IsHidden();
    _bubble_help = QString::fromStdString(_control.BubbleHelp());
    _is_edited = _control.IsEdited();
}

void ControlMirror::Apply() {
    const KSGroup* parent = _control.Parent();
    if (parent && parent->ForceMode() == KS_FORCE_STACKED)
        _window.Find(static_cast<const KSControl*>(parent))->Apply();
    else if (_widget && _hidden != _shown_hidden)
        _widget->setVisible(!_hidden);
    _shown_hidden = _hidden;
    if (_widget)
        ApplyTip();
    if (Editor())
        marks::Mark(*Editor(), _is_edited);
}

QLineEdit* ControlMirror::Line() const {
    QWidget* editor = Editor();
    return qobject_cast<QAbstractSpinBox*>(editor) ? editor->findChild<QLineEdit*>()
                                                   : qobject_cast<QLineEdit*>(editor);
}

std::unique_ptr<QMimeData> ControlMirror::Copied() const {
    const QLineEdit* line = Line();
    const QString text = !line ? CopiedText() : line->hasSelectedText() ? line->selectedText() : line->text();
    if (text.isEmpty())
        return nullptr;
    auto data = std::make_unique<QMimeData>();
    data->setText(text);
    return data;
}

std::function<void()> ControlMirror::Paster(const QMimeData& data) {
    if (!Line() || !data.hasText())
        return nullptr;
    return [line = Line(), text = data.text()] { line->insert(text); };
}

QString ControlMirror::ShownLabel() const {
    return ShownText(_label);
}

// A bubble help says more than the whole of a label that is cut.
void ControlMirror::ApplyTip() {
    if (!_bubble_help.isEmpty() && !_bubble_help_switch)
        _widget->installEventFilter(_bubble_help_switch = new BubbleHelpSwitch(_widget));
    const QString tip = _bubble_help.isEmpty()              ? TipFor(_label, ShownLabel())
                        : Qt::mightBeRichText(_bubble_help) ? Qt::convertFromPlainText(_bubble_help)
                                                            : _bubble_help;
    if (tip != _tip)
        _widget->setToolTip(_tip = tip);
}

void ControlMirror::SetName(const QString& name) {
    if (Editor())
        Editor()->setAccessibleName(name);
}

void ControlMirror::ShowLabel(int, QWidget*) {}

QString ControlMirror::MarkedLabel(int position) const {
    const QString label = ShownLabel();
    QString marked;
    for (int i = 0; i < label.size(); ++i) {
        if (i == position || label[i] == u'&')
            marked += u'&';
        marked += label[i];
    }
    return marked;
}
