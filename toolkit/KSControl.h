// SPDX-License-Identifier: MIT
// A control: a node of a window's tree with a label, a visibility and a message that it sends.
//
// A control holds its own state; whoever shows the window mirrors it. The lock of the control's window guards
// the state. Getters and setters take it themselves, so single calls are safe from any thread; a caller that
// needs several values of one moment holds the lock around them. The tree, its layout (KSGroup) and its
// frames (KSFrame) do not change once the window is shown, so these need no lock.
//
// Values change in two ways. The program's setters, named in each class, also settle the value: Revert comes
// back to it. The user's operations are named Edit...; whoever shows the window calls them on its thread.
// What they and Revert replace can be brought back (KSHistory).
//
// The lock of a closed window cannot be taken. From then on its controls belong to the thread that deletes
// the window; single calls still work there.
#pragma once

#include "kits/BMessage.h"
#include "toolkit/KSFrame.h"

#include <any>
#include <functional>
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
    // Sends the message, if there is one, that tells of a value which Revert has put back. `caller` is the
    // looper on whose thread this is called, without the lock. As the target it receives the message before
    // this returns: the commands that wait in its queue find what belongs to the value.
    virtual void SendReverted(BLooper& caller);
    // Makes the control's own present value its settled one.
    virtual void Settle();
    // Calls `settle`, under the lock, which is to give the control a new settled value. If the user has
    // edited the value, the edit is kept.
    virtual void SettleUnderEdit(const std::function<void()>& settle);
    // Whether the control's own value is not its settled one: the user has changed it.
    virtual bool IsEdited() const;
    // Whether this is so for the control or one below it.
    bool HasEdits() const;
    // Whether the control has a value that the user edits and Revert puts back.
    virtual bool IsEditor() const;

    // For the window's history. ExchangeValue gives the control another value, as an edit that is no step,
    // and returns the one that it had. Both are of the kind that the control has given to Record.
    virtual std::any ExchangeValue(std::any value);
    virtual bool HoldsValue(const std::any& value) const;

    void Hide(bool hide);
    bool IsHidden() const;

    // Copies the label; null means none. `redraw` is true.
    void SetLabel(const char* label, bool redraw);
    std::string Label() const;

    // A short text that tells what the control is for, shown where the pointer rests on it for the look's
    // wait time. Copied; null means none.
    void SetBubbleHelp(const char* text);
    std::string BubbleHelp() const;

    // Messages go to `handler`, which must be a looper to receive any; when it is null, they go to `looper`.
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
    // Makes the user's present edit a step of the window's history, or a part of one (KSHistory::Add). Called
    // under the window's lock after the value has changed; `before` is what it was.
    void Record(std::any before, bool in_run);
    // Tells whoever shows the window that this control's state has changed. Called under the window's lock.
    void Changed();
    BLooper* Target() const { return _target; }
    void Send(const std::optional<BMessage>& message) const;

private:
    friend class KSContainer;

    std::string _label;
    std::string _bubble_help;
    std::optional<BMessage> _message;
    BLooper* _target = nullptr;
    bool _hidden = false;
    bool _default = false;
    bool _change_listed = false;
};
