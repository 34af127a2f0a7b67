// SPDX-License-Identifier: MIT
#include "toolkit/KSListView.h"

#include "hdr/ks_assert.h"
#include "hdr/ks_math.h"
#include "kits/BLooper.h"
#include "toolkit/KSContainer.h"

namespace {

constexpr long kShownItems = 4;
constexpr long kTextInset = 4;
constexpr long kTextPadding = 6;
constexpr long kLeastHeight = 20;

}  // namespace

void KSListItem::DrawItem(KSControl* owner, KSRect<long> frame, KSPoint<long>, KSListColumn*, long) {
    owner->SetHighPen(_selected ? KS_PEN_BG_SELECTED : KS_PEN_BG_LIST);
    owner->FillRect(frame);
}

void KSListItem::RenderSetup(KSControl*) {}

void KSStringItem::RenderSetup(KSControl* owner) {
    _text_height = owner->StringSize(String(), &_ascent, nullptr, -1, KS_TRUNCATE_NONE, true).y;
    SetHeight((MAX)(_text_height + kTextPadding, kLeastHeight));
}

void KSStringItem::DrawItem(KSControl* owner, KSRect<long> frame, KSPoint<long> origin, KSListColumn* column,
                            long index) {
    KSListItem::DrawItem(owner, frame, origin, column, index);
    owner->SetHighPen(KS_PEN_TEXT);
    const KSPoint<long> where(frame.left + kTextInset, frame.top + (Height() - _text_height) / 2 + _ascent);
    owner->DrawString(String(), where, nullptr, -1, KS_TRUNCATE_NONE, true);
}

KSListView::KSListView(const char* name, unsigned flags) : KSControl(name, flags) {
    _selection.Set(-1);
}

KSPoint<long> KSListView::MinSize() {
    const KSAutolock lock(this);
    KSPoint<long> size;
    for (long i = 0; i < (MIN)(Count(), kShownItems); ++i)
        size.y += Item(i)->Height();
    return size;
}

void KSListView::DraggingRequested(KSPoint<long>, BMessage*) {}

void KSListView::SelectionChanged() {}

void KSListView::SetSelectionMessage(const BMessage* message) {
    const KSAutolock lock(this);
    _selection_message = message ? std::optional(*message) : std::nullopt;
}

void KSListView::AddItem(KSListItem* item, long index, bool) {
    KS_ASSERT(item);
    const KSAutolock lock(this);
    const long place = index < 0 || index > Count() ? Count() : index;
    _items.emplace(_items.begin() + place, item);
    _selection.Transform([place](long selected) { return selected < place ? selected : selected + 1; });
    Changed();
}

long KSListView::CountItems() const {
    const KSAutolock lock(this);
    return Count();
}

KSListItem* KSListView::ItemAt(long index) const {
    const KSAutolock lock(this);
    return Item(index);
}

KSListItem* KSListView::Item(long index) const {
    return index >= 0 && index < Count() ? _items[static_cast<std::size_t>(index)].get() : nullptr;
}

void KSListView::Select(long index, bool) {
    const KSAutolock lock(this);
    const bool was_edited = IsEdited();
    if (_selection.Set(Item(index) ? index : -1)) {
        SelectionMoved();
        Send(_selection_message);
    } else if (was_edited) {
        Changed();
    }
}

void KSListView::EditSelection(long index) {
    const KSAutolock lock(this);
    const long before = _selection.Get();
    if (EditAndTell(index) && IsEditor())
        Record(before, true);
}

bool KSListView::EditAndTell(long index) {
    if (!_selection.Edit(Item(index) ? index : -1))
        return false;
    SelectionMoved();
    CallSelectionHook();
    Send(_selection_message);
    return true;
}

void KSListView::CorrectSelection(long index) {
    const KSAutolock lock(this);
    if (!_selection.Edit(Item(index) ? index : -1))
        return;
    SelectionMoved();
    Send(_selection_message);
}

long KSListView::CurrentSelection() const {
    const KSAutolock lock(this);
    return _selection.Get();
}

bool KSListView::Revert() {
    const KSAutolock lock(this);
    const long before = _selection.Get();
    if (!_selection_message || !_selection.Revert())
        return false;
    Record(before, false);
    SelectionMoved();
    return true;
}

void KSListView::SendReverted(BLooper& caller) {
    std::optional<BMessage> message;
    {
        const KSAutolock lock(this);
        if (Target() == &caller)
            message = _selection_message;
        else
            Send(_selection_message);
    }
    if (message)
        caller.MessageReceived(&*message);
}

void KSListView::Settle() {
    const KSAutolock lock(this);
    const bool was_edited = IsEdited();
    _selection.Settle();
    if (was_edited)
        Changed();
}

void KSListView::SettleUnderEdit(const std::function<void()>& settle) {
    const KSAutolock lock(this);
    const bool is_edited = IsEdited();
    const long edit = _selection.Get();
    settle();
    if (is_edited)
        EditAndTell(edit);
}

bool KSListView::IsEdited() const {
    const KSAutolock lock(this);
    return _selection_message && _selection.IsEdited();
}

bool KSListView::IsEditor() const {
    const KSAutolock lock(this);
    return _selection_message.has_value();
}

std::any KSListView::ExchangeValue(std::any value) {
    const KSAutolock lock(this);
    const long before = _selection.Get();
    EditAndTell(std::any_cast<long>(value));
    return before;
}

bool KSListView::HoldsValue(const std::any& value) const {
    const KSAutolock lock(this);
    return std::any_cast<long>(value) == _selection.Get();
}

void KSListView::SelectionMoved() {
    for (const auto& item : _items)
        item->_selected = false;
    if (KSListItem* item = Item(_selection.Get()))
        item->_selected = true;
    _hook_is_due = true;
    Changed();
    const KSContainer* container = Container();
    if (!container || !container->HasChangeListener())
        CallSelectionHook();
}

void KSListView::CallSelectionHook() {
    const KSAutolock lock(this);
    if (!_hook_is_due)
        return;
    _hook_is_due = false;
    SelectionChanged();
}
