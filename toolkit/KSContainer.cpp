// SPDX-License-Identifier: MIT
// The view that carries a tree of controls into a window, and knows which of them have changed.
#include "toolkit/KSContainer.h"

#include "hdr/ks_assert.h"

#include <utility>

KSContainer::KSContainer(KSRect<long> frame, const char* name) : BView(name), _frame(frame) {}

KSContainer::~KSContainer() = default;

void KSContainer::SetContent(KSControl* content) {
    KS_ASSERT(content && !_content && !content->Parent());
    _content.reset(content);
    content->_container = this;
}

void KSContainer::SetChangeListener(std::function<void()> listener) {
    _listener = std::move(listener);
}

KSContainer::Changes KSContainer::TakeChanges() {
    for (KSControl* control : _changes.controls)
        control->_change_listed = false;
    return std::exchange(_changes, {});
}

void KSContainer::NoteChange(KSControl* control) {
    if (control->_change_listed)
        return;
    const bool first = _changes.IsEmpty();
    _changes.controls.push_back(control);
    control->_change_listed = true;
    if (first)
        Tell();
}

void KSContainer::NoteLayout(bool redraw) {
    const bool first = _changes.IsEmpty();
    _changes.layout = true;
    _changes.redraw |= redraw;
    if (first)
        Tell();
}

void KSContainer::NoteRedraw() {
    const bool first = _changes.IsEmpty();
    _changes.redraw = true;
    if (first)
        Tell();
}

void KSContainer::Tell() const {
    if (_listener)
        _listener();
}
