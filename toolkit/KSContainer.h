// SPDX-License-Identifier: MIT
// The view that carries a tree of controls into a window, and knows which of them have changed.
#pragma once

#include "hdr/KSRect.h"
#include "kits/BView.h"
#include "toolkit/KSControl.h"

#include <functional>
#include <memory>
#include <vector>

class KSContainer : public BView {
public:
    KSContainer(KSRect<long> frame, const char* name);
    ~KSContainer() override;

    // Takes over the tree. Called once, before the window is shown.
    void SetContent(KSControl* content);
    KSControl* Content() const { return _content.get(); }
    KSRect<long> Frame() const { return _frame; }

    // For whoever shows the window; all under its lock. `listener` is called under the lock, at once when
    // changes are waiting and later by the thread that makes the first change after they were taken. It must
    // not wait. Null ends it.
    void SetChangeListener(std::function<void()> listener);
    bool HasChangeListener() const { return _listener != nullptr; }
    struct Changes {
        std::vector<KSControl*> controls;  // each once, in the order of their first change
        bool layout = false;
        bool redraw = false;

        bool IsEmpty() const { return controls.empty() && !layout && !redraw; }
    };
    Changes TakeChanges();

private:
    friend class KSControl;
    void AddChange(KSControl* control);
    void RequestLayout(bool redraw);
    void RequestRedraw();
    void CallListener() const;

    KSRect<long> _frame;
    std::unique_ptr<KSControl> _content;
    std::function<void()> _listener;
    Changes _changes;
};
