// SPDX-License-Identifier: MIT
// A label: the name of an editor, to which its mnemonic leads, or a note.
#include "display/control_mirror.h"
#include "display/pen_style.h"
#include "display/shown_text.h"
#include "toolkit/KSLabel.h"

#include <QLabel>

namespace {

class LabelMirror : public ControlMirror {
public:
    LabelMirror(KSLabel& control, WindowMirror& window, QWidget* parent)
        : ControlMirror(control, window), _label(new QLabel(parent)) {
        SetWidget(_label);
        _label->setTextFormat(Qt::PlainText);
        if (control.Alignment() == KS_ALIGNMENT_RIGHT)
            _label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }

    QString ShownLabel() const override { return ShownText(Label(), true); }

    void ShowLabel(int position, QWidget* editor) override {
        _label->setBuddy(editor);
        _label->setProperty(PenStyle::kNote, !editor);
        // Without an editor, QLabel shows "&" as it is.
        _label->setText(editor ? MarkedLabel(position) : ShownLabel());
        const bool is_long = ShownLabel().size() > kLongestLine;
        _label->setWordWrap(is_long);
        const int width =
            is_long ? _label->fontMetrics().averageCharWidth() * static_cast<int>(kLongestLine) : 0;
        // Without this, the second line of a label in a window of the least size covers what is above it.
        _label->setMinimumSize(width, is_long ? _label->heightForWidth(width) : 0);
    }

private:
    QLabel* _label;
};

}  // namespace

std::unique_ptr<ControlMirror> MirrorLabel(KSLabel& control, WindowMirror& window, QWidget* parent) {
    return std::make_unique<LabelMirror>(control, window, parent);
}
