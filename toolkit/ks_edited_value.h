// SPDX-License-Identifier: MIT
// A value that the user edits and Revert puts back.
#pragma once

#include <utility>

template <class T> class ks_edited_value {
public:
    const T& Get() const { return _value; }
    // Each returns whether the value changed.
    bool Edit(T value) { return Replace(std::move(value)); }
    bool Set(T value) {
        const bool changed = Replace(std::move(value));
        _settled = _value;
        return changed;
    }
    bool Revert() { return Replace(_settled); }
    void Settle() { _settled = _value; }
    // Replaces the value and the settled one by what `change` makes of each.
    template <class Change> void Transform(Change change) {
        _value = change(_value);
        _settled = change(_settled);
    }

private:
    bool Replace(T value) {
        if (value == _value)
            return false;
        _value = std::move(value);
        return true;
    }

    T _value{};
    T _settled{};
};
