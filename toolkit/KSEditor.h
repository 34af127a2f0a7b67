// SPDX-License-Identifier: MIT
// What the controls that edit one value have in common.
#pragma once

#include "toolkit/KSControl.h"
#include "toolkit/ks_edited_value.h"

#include <utility>

// A control whose value is a T, with equality. The derived classes give the operations their names.
template <class T> class KSEditor : public KSControl {
public:
    bool Revert() override {
        const KSAutolock lock(this);
        T before = _value.Get();
        return RecordedIf(_value.Revert(), std::move(before), false);
    }
    void Settle() override {
        const KSAutolock lock(this);
        const bool was_edited = _value.IsEdited();
        _value.Settle();
        ChangedIf(was_edited);
    }
    void SettleUnderEdit(const std::function<void()>& settle) override {
        const KSAutolock lock(this);
        const bool is_edited = _value.IsEdited();
        const T edit = _value.Get();
        settle();
        if (is_edited)
            ChangedIf(_value.Edit(edit));
    }
    bool IsEdited() const override {
        const KSAutolock lock(this);
        return _value.IsEdited();
    }
    bool IsEditor() const override { return true; }

    std::any ExchangeValue(std::any value) override {
        const KSAutolock lock(this);
        std::any before = _value.Get();
        ChangedIf(_value.Edit(std::any_cast<T&&>(std::move(value))));
        return before;
    }
    bool HoldsValue(const std::any& value) const override {
        const KSAutolock lock(this);
        return std::any_cast<const T&>(value) == _value.Get();
    }

protected:
    using KSControl::KSControl;

    void ProgramSets(T value) {
        const KSAutolock lock(this);
        const bool was_edited = _value.IsEdited();
        ChangedIf(_value.Set(std::move(value)) || was_edited);
    }
    // `in_run`: edits that follow each other closely are one (KSHistory::Add).
    void UserSets(T value, bool in_run = false) {
        const KSAutolock lock(this);
        T before = _value.Get();
        RecordedIf(_value.Edit(std::move(value)), std::move(before), in_run);
    }
    T Copy() const {
        const KSAutolock lock(this);
        return _value.Get();
    }
    // For callers that hold the lock.
    const T& Present() const { return _value.Get(); }

private:
    bool ChangedIf(bool changed) {
        if (changed)
            Changed();
        return changed;
    }
    bool RecordedIf(bool changed, T before, bool in_run) {
        if (changed)
            Record(std::move(before), in_run);
        return ChangedIf(changed);
    }

    ks_edited_value<T> _value;
};
