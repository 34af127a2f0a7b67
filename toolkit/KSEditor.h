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
        return ChangedIf(_value.Revert());
    }
    void Settle() override {
        const KSAutolock lock(this);
        _value.Settle();
    }
    void SettleUnderEdit(const std::function<void()>& settle) override {
        const KSAutolock lock(this);
        const bool is_edited = _value.IsEdited();
        const T edit = _value.Get();
        settle();
        if (is_edited)
            UserSets(edit);
    }
    bool IsEdited() const override {
        const KSAutolock lock(this);
        return _value.IsEdited();
    }

protected:
    using KSControl::KSControl;

    void ProgramSets(T value) {
        const KSAutolock lock(this);
        ChangedIf(_value.Set(std::move(value)));
    }
    void UserSets(T value) {
        const KSAutolock lock(this);
        ChangedIf(_value.Edit(std::move(value)));
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

    ks_edited_value<T> _value;
};
