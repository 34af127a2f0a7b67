// SPDX-License-Identifier: MIT
// A control: a node of a window's tree with a label, a visibility and a message that it sends.
//
// A control holds its own state; whoever shows the window mirrors it. The state is guarded by the lock of
// the window that holds the control: getters and setters take it themselves, so single calls are safe from
// any thread; a caller that needs several values of one moment holds the lock around them.
//
// Values change in two ways: by the program (the setters that are named in each class, which also settle the
// value: Revert comes back to it) and by the user (the operations named Edit..., called by whoever shows the
// window on its thread).
//
// Once the window has been closed its lock cannot be taken any more; from then on the controls belong to the
// thread that deletes the window, for which single calls still work.
#pragma once

#include "kits/BMessage.h"
#include "toolkit/KSFrame.h"

#include <optional>
#include <string>

class BLooper;

class KSControl : public KSFrame {
public:
    // `name` may be null; `flags` is 0.
    KSControl(const char* name, unsigned flags);

    // The least size in pixels at which the control can be used; (0, 0) leaves it to whoever shows it.
    virtual KSPoint<long> MinSize();
    // Puts the control's own value back to its settled one; returns whether that changed it.
    virtual bool Revert();
    // Makes the control's own present value its settled one.
    virtual void Settle();

    void Hide(bool hide);
    bool IsHidden() const;

    // Copies the label; null means none. `redraw` is true.
    void SetLabel(const char* label, bool redraw);
    std::string Label() const;

    // Messages are posted to `handler`, which has to be a looper to get any, or to `looper` where that is
    // null.
    void SetTarget(BHandler* handler, BLooper* looper);
    // Keeps a copy of the message; null sends none.
    void SetMessage(const BMessage* message);
    // Posts the message to the target, if both are there.
    void Invoke();

    // Makes this the button that Enter presses.
    void MakeDefault(bool is_default);
    bool IsDefault() const;

    // Lays the control's tree out again and draws it again, when a window shows it.
    void ResetLayout(bool whole, bool redraw);
    void RedrawSelf();

    // Calls `visit` for this control and every one below it, parents first.
    template <class Visit> void ForEach(Visit visit) {
        visit(*this);
        for (const auto& child : Children())
            child->ForEach(visit);
    }

protected:
    // Tells whoever shows the window that this control's state is not what it shows any more. Called under
    // the window's lock.
    void Changed();
    void Send(const std::optional<BMessage>& message) const;

private:
    friend class KSContainer;

    std::string _label;
    std::optional<BMessage> _message;
    BLooper* _target = nullptr;
    bool _hidden = false;
    bool _default = false;
    bool _change_listed = false;
};

// A value that the user edits and Revert can put back.
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
