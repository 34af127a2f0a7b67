// SPDX-License-Identifier: MIT
// A separator: a line.
#include "display/control_mirror.h"
#include "toolkit/KSSeparator.h"

#include <QFrame>

namespace {

class SeparatorMirror : public ControlMirror {
public:
    SeparatorMirror(KSSeparator& control, WindowMirror& window, QWidget* parent)
        : ControlMirror(control, window) {
        auto* line = new QFrame(parent);
        line->setFrameStyle(static_cast<int>(QFrame::HLine) | static_cast<int>(QFrame::Sunken));
        SetWidget(line);
    }
};

}  // namespace

std::unique_ptr<ControlMirror> MirrorSeparator(KSSeparator& control, WindowMirror& window, QWidget* parent) {
    return std::make_unique<SeparatorMirror>(control, window, parent);
}
