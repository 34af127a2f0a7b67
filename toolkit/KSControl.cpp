// SPDX-License-Identifier: MIT
#include "toolkit/KSControl.h"

#include "kits/BLooper.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSHistory.h"

#include <algorithm>
#include <utility>

KSControl::KSControl(const char* name, unsigned) : KSFrame(name) {}

KSPoint<long> KSControl::MinSize() {
    return {};
}

bool KSControl::Revert() {
    return false;
}

void KSControl::SendReverted(BLooper&) {}

void KSControl::Settle() {}

void KSControl::SettleUnderEdit(const std::function<void()>& settle) {
    const KSAutolock lock(this);
    settle();
}

bool KSControl::IsEdited() const {
    return false;
}

bool KSControl::HasEdits() const {
    const KSAutolock lock(this);
    return IsEdited() || std::ranges::any_of(Children(), [](const auto& child) { return child->HasEdits(); });
}

bool KSControl::IsEditor() const {
    return false;
}

std::any KSControl::ExchangeValue(std::any) {
    return {};
}

bool KSControl::HoldsValue(const std::any&) const {
    return false;
}

void KSControl::Hide(bool hide) {
    const KSAutolock lock(this);
    if (_hidden == hide)
        return;
    _hidden = hide;
    Changed();
}

bool KSControl::IsHidden() const {
    const KSAutolock lock(this);
    return _hidden;
}

void KSControl::SetLabel(const char* label, bool) {
    const KSAutolock lock(this);
    _label = label ? label : "";
    Changed();
}

std::string KSControl::Label() const {
    const KSAutolock lock(this);
    return _label;
}

void KSControl::SetBubbleHelp(const char* text) {
    const KSAutolock lock(this);
    _bubble_help = text ? text : "";
    Changed();
}

std::string KSControl::BubbleHelp() const {
    const KSAutolock lock(this);
    return _bubble_help;
}

void KSControl::SetTarget(BHandler* handler, BLooper* looper) {
    const KSAutolock lock(this);
    _target = handler ? dynamic_cast<BLooper*>(handler) : looper;
}

void KSControl::SetMessage(const BMessage* message) {
    const KSAutolock lock(this);
    _message = message ? std::optional(*message) : std::nullopt;
}

void KSControl::Invoke() {
    const KSAutolock lock(this);
    Send(_message);
}

void KSControl::MakeDefault(bool is_default) {
    const KSAutolock lock(this);
    _default = is_default;
    Changed();
}

bool KSControl::IsDefault() const {
    const KSAutolock lock(this);
    return _default;
}

void KSControl::ResetLayout(bool, bool redraw) {
    const KSAutolock lock(this);
    if (KSContainer* container = Container())
        container->RequestLayout(redraw);
}

void KSControl::RedrawSelf() {
    const KSAutolock lock(this);
    if (KSContainer* container = Container())
        container->RequestRedraw();
}

void KSControl::Record(std::any before, bool in_run) {
    if (KSHistory* history = KSHistory::Of(*this))
        history->Add(*this, std::move(before), in_run);
}

void KSControl::Changed() {
    if (KSContainer* container = Container())
        container->AddChange(this);
}

void KSControl::Send(const std::optional<BMessage>& message) const {
    if (message && _target)
        _target->PostMessage(*message);
}
