// SPDX-License-Identifier: MIT
// What the user has edited in a window, to be undone and redone.
//
// It keeps edits, not values of its own: for each control of a step, the value to bring back. Undoing a step
// exchanges these with what the controls hold. So redoing it brings back exactly what was there before, also
// where another program had changed a value in between. A value that undo or redo brings back is an edit: it
// does not settle.
//
// All of it is used under the window's lock.
#pragma once

#include "kits/BLooper.h"

#include <any>
#include <chrono>
#include <deque>
#include <functional>
#include <vector>

class BWindow;
class KSControl;

class KSHistory {
public:
    using time_point = std::chrono::steady_clock::time_point;
    static constexpr std::size_t kMostSteps = 1000;  // the oldest are dropped
    static constexpr std::chrono::seconds kRun{1};   // the longest pause within a run of edits

    // Returns the history of a window, or of the window that shows a control. Null where there is none.
    static KSHistory* Of(BWindow* window);
    static KSHistory* Of(const KSControl& control);

    // All edits that are made in a window while it lives are one step. Takes the window's lock and holds it;
    // converts to false when it could not be taken. Inside another Step of that window it adds to that one.
    class Step {
    public:
        explicit Step(BWindow* window);
        // In the window that shows `control`, if any.
        explicit Step(const KSControl& control);
        ~Step();
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;

        explicit operator bool() const { return static_cast<bool>(_lock); }

    private:
        BAutolock _lock;
        KSHistory* _history;
    };

    // Each does nothing where there is nothing to undo or redo.
    void Undo() { Exchange(_done, _undone); }
    void Redo() { Exchange(_undone, _done); }
    bool CanUndo() const { return !_done.empty(); }
    bool CanRedo() const { return !_undone.empty(); }

    // For controls: `control` had the value `before`, which the user has just replaced. An edit `in_run`
    // joins the step of the same control's edit before it if no more than kRun has passed, or at any time
    // while the user types in that control.
    void Add(KSControl& control, std::any before, bool in_run);
    // Whether the newest step is a run of edits of `control` that goes on.
    bool IsRunOf(const KSControl& control) const { return _run == &control; }
    // The user has begun to type in `control`; null when he has finished.
    void SetTyping(const KSControl* control);

    // Takes the place of the steady clock.
    void SetClock(std::function<time_point()> now) { _now = std::move(now); }

private:
    struct edit {
        KSControl* control;
        std::any value;  // what undo, or redo, brings back
    };
    using step = std::vector<edit>;  // each control once

    // Takes back or makes again the newest step of `from`, which goes to `to`.
    void Exchange(std::deque<step>& from, std::deque<step>& to);
    // Forgets the edits of the newest step that have left their controls as they were before.
    void DropIdleEdits();

    std::deque<step> _done, _undone;  // the newest last
    int _open_steps = 0;
    bool _is_begun = false;           // whether the open step is the newest in `_done`
    const KSControl* _run = nullptr;  // what the newest step edits, if edits can join it
    const KSControl* _typing = nullptr;
    time_point _last_edit;
    std::function<time_point()> _now = std::chrono::steady_clock::now;
};
