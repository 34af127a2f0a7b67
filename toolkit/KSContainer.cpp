// SPDX-License-Identifier: MIT
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
    if (!_changes.IsEmpty())
        CallListener();
}

KSContainer::Changes KSContainer::TakeChanges() {
    for (KSControl* control : _changes.controls)
        control->_change_listed = false;
    return std::exchange(_changes, {});
}

void KSContainer::AddChange(KSControl* control) {
    if (control->_change_listed)
        return;
    const bool first = _changes.IsEmpty();
    _changes.controls.push_back(control);
    control->_change_listed = true;
    if (first)
        CallListener();
}

void KSContainer::RequestLayout(bool redraw) {
    const bool first = _changes.IsEmpty();
    _changes.layout = true;
    _changes.redraw |= redraw;
    if (first)
        CallListener();
}

void KSContainer::RequestRedraw() {
    const bool first = _changes.IsEmpty();
    _changes.redraw = true;
    if (first)
        CallListener();
}

void KSContainer::CallListener() const {
    if (_listener)
        _listener();
}
