// SPDX-License-Identifier: MIT
#include "toolkit/KSHistory.h"

#include "toolkit/KSContainer.h"
#include "toolkit/KSWindow.h"

#include <algorithm>
#include <utility>

namespace {

BWindow* WindowOf(const KSControl& control) {
    const KSContainer* container = control.Container();
    return container ? container->Window() : nullptr;
}

}  // namespace

KSHistory* KSHistory::Of(BWindow* window) {
    auto* shown = dynamic_cast<KSWindow*>(window);
    return shown ? &shown->History() : nullptr;
}

KSHistory* KSHistory::Of(const KSControl& control) {
    return Of(WindowOf(control));
}

KSHistory::Step::Step(BWindow* window) : _lock(window), _history(_lock ? Of(window) : nullptr) {
    if (_history && _history->_open_steps++ == 0)
        _history->_run = nullptr;
}

KSHistory::Step::Step(const KSControl& control) : Step(WindowOf(control)) {}

KSHistory::Step::~Step() {
    if (_history && --_history->_open_steps == 0 && std::exchange(_history->_is_begun, false))
        _history->DropIdleEdits();
}

void KSHistory::Exchange(std::deque<step>& from, std::deque<step>& to) {
    _run = nullptr;
    if (from.empty())
        return;
    for (auto& [control, value] : from.back())
        value = control->ExchangeValue(std::move(value));
    to.push_back(std::move(from.back()));
    from.pop_back();
}

void KSHistory::Add(KSControl& control, std::any before, bool in_run) {
    _undone.clear();
    const time_point now = _now();
    const bool joins_run = in_run && _run == &control && (_typing == &control || now - _last_edit <= kRun);
    _last_edit = now;
    if (joins_run) {
        DropIdleEdits();
        return;
    }
    if (!_is_begun) {
        _done.emplace_back();
        if (_done.size() > kMostSteps)
            _done.pop_front();
    }
    _is_begun = _open_steps > 0;
    _run = in_run && !_is_begun ? &control : nullptr;
    step& newest = _done.back();
    if (std::ranges::find(newest, &control, &edit::control) == newest.end())
        newest.push_back({&control, std::move(before)});
}

void KSHistory::DropIdleEdits() {
    std::erase_if(_done.back(), [](const edit& made) { return made.control->HoldsValue(made.value); });
    if (!_done.back().empty())
        return;
    _done.pop_back();
    _run = nullptr;
}

void KSHistory::SetTyping(const KSControl* control) {
    if (_typing && !control)
        _run = nullptr;
    _typing = control;
}
