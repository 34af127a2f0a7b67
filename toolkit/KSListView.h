// SPDX-License-Identifier: MIT
// A list of items of which the user selects one or none.
#pragma once

#include "toolkit/KSControl.h"
#include "toolkit/ks_edited_value.h"

#include <memory>
#include <vector>

class KSListColumn;  // a list has one unnamed column: always null

class KSListItem {
public:
    virtual ~KSListItem() = default;

    // Draws the item into `frame`, in the list's coordinates; the base draws its background. `origin` is
    // the frame's top left corner, `index` the item's. Called on the display's thread under the lock.
    virtual void DrawItem(KSControl* owner, KSRect<long> frame, KSPoint<long> origin, KSListColumn* column,
                          long index);
    // Measures the item, before it is first drawn and when the font changes.
    virtual void RenderSetup(KSControl* owner);
    // What assistive tools read.
    virtual const char* AccessibleText() const = 0;

    long Height() const { return _height; }
    void SetHeight(long height) { _height = height; }
    bool IsSelected() const { return _selected; }

private:
    friend class KSListView;
    long _height = 24;
    bool _selected = false;
};

// An item that shows a text of its own.
class KSStringItem : public KSListItem {
public:
    explicit KSStringItem(const char* text) : _text(text) {}

    const char* String() const { return _text.c_str(); }
    const char* AccessibleText() const override { return String(); }
    void DrawItem(KSControl* owner, KSRect<long> frame, KSPoint<long> origin, KSListColumn* column,
                  long index) override;
    void RenderSetup(KSControl* owner) override;

private:
    std::string _text;
    long _text_height = 0;
    long _ascent = 0;
};

class KSListView : public KSControl {
public:
    KSListView(const char* name, unsigned flags);

    // The base gives the height of the first items, four at most, and no width.
    KSPoint<long> MinSize() override;
    // Called when the user starts to drag an item, to fill `message` with what is dragged. The base drags
    // nothing.
    virtual void DraggingRequested(KSPoint<long> where, BMessage* message);
    // Called after the selection has changed: on the display's thread under the window's lock where a window
    // shows the list, else by whoever changed it.
    virtual void SelectionChanged();

    // Whether the item at `index` stands for values of which the user has changed one; it is shown with a
    // dot. Called on the display's thread under the lock. In the base none is.
    virtual bool IsItemMarked(long /*index*/) const { return false; }

    void SetListMode(long) {}  // always 0: at most one item is selected
    // These two do nothing: a list has neither here.
    void HideColumnBar(bool, bool) {}
    void HideHideButton(bool, bool) {}
    // Keeps a copy of the message, which goes to the target whenever the selection changes.
    void SetSelectionMessage(const BMessage* message);

    // Takes over `item` and puts it at `index`, or last where that is negative or too large.
    void AddItem(KSListItem* item, long index, bool redraw);
    long CountItems() const;
    // Returns the item, owned by the list, or null for an index without one.
    KSListItem* ItemAt(long index) const;

    // Selects the item at `index` alone, or none where there is no such item. `extend` is false.
    void Select(long index, bool extend);
    // The user's selection; calls the hook at once.
    void EditSelection(long index);
    // Selects an item in the place of a selection of the user's that the program does not take. This neither
    // settles nor is a step of the window's history.
    void CorrectSelection(long index);
    // Returns the selected item's index, or -1.
    long CurrentSelection() const;

    // A list without a selection message edits nothing: its selection is not put back.
    bool Revert() override;
    void SendReverted(BLooper& caller) override;
    void Settle() override;
    void SettleUnderEdit(const std::function<void()>& settle) override;
    bool IsEdited() const override;
    bool IsEditor() const override;
    std::any ExchangeValue(std::any value) override;
    bool HoldsValue(const std::any& value) const override;

    // Calls SelectionChanged if the selection has changed since the last call. For whoever shows the window,
    // under its lock.
    void CallSelectionHook();

private:
    // These are called under the lock.
    long Count() const { return static_cast<long>(_items.size()); }
    KSListItem* Item(long index) const;
    // Makes the user's selection, calls the hook and sends the message; returns whether it is another one.
    bool EditAndTell(long index);
    void SelectionMoved();

    std::vector<std::unique_ptr<KSListItem>> _items;
    std::optional<BMessage> _selection_message;
    ks_edited_value<long> _selection;  // -1 for none, set by the constructor
    bool _hook_is_due = false;
};
