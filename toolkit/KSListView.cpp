// SPDX-License-Identifier: MIT
// A list of items of which the user selects one or none.
#include "toolkit/KSListView.h"

#include "hdr/ks_assert.h"
#include "hdr/ks_math.h"
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
    for (long i = 0; i < kShownItems && i < CountItems(); ++i)
        size.y += ItemAt(i)->Height();
    return size;
}

void KSListView::DraggingRequested(KSPoint<long>, BMessage*) {}

void KSListView::SelectionChanged() {}

void KSListView::HideColumnBar(bool, bool) {}

void KSListView::HideHideButton(bool, bool) {}

void KSListView::SetSelectionMessage(const BMessage* message) {
    const KSAutolock lock(this);
    _selection_message = message ? std::optional(*message) : std::nullopt;
}

void KSListView::AddItem(KSListItem* item, long index, bool) {
    KS_ASSERT(item);
    const KSAutolock lock(this);
    const long place = index < 0 || index > CountItems() ? CountItems() : index;
    _items.emplace(_items.begin() + place, item);
    if (place <= _selection.Get())
        _selection.Set(_selection.Get() + 1);
    Changed();
}

long KSListView::CountItems() const {
    const KSAutolock lock(this);
    return static_cast<long>(_items.size());
}

KSListItem* KSListView::ItemAt(long index) const {
    const KSAutolock lock(this);
    return index >= 0 && index < CountItems() ? _items[static_cast<std::size_t>(index)].get() : nullptr;
}

void KSListView::Select(long index, bool) {
    const KSAutolock lock(this);
    if (_selection.Set(ItemAt(index) ? index : -1))
        SelectionMoved();
}

void KSListView::EditSelection(long index) {
    const KSAutolock lock(this);
    if (!_selection.Edit(ItemAt(index) ? index : -1))
        return;
    SelectionMoved();
    TellSelection();
}

long KSListView::CurrentSelection() const {
    const KSAutolock lock(this);
    return _selection.Get();
}

bool KSListView::Revert() {
    const KSAutolock lock(this);
    if (!_selection_message || !_selection.Revert())
        return false;
    SelectionMoved();
    return true;
}

void KSListView::Settle() {
    const KSAutolock lock(this);
    _selection.Settle();
}

void KSListView::SelectionMoved() {
    for (const auto& item : _items)
        item->_selected = false;
    if (KSListItem* item = ItemAt(_selection.Get()))
        item->_selected = true;
    _untold = true;
    Changed();
    const KSContainer* container = Container();
    if (!container || !container->HasChangeListener())
        TellSelection();
}

void KSListView::TellSelection() {
    const KSAutolock lock(this);
    if (!_untold)
        return;
    _untold = false;
    SelectionChanged();
    Send(_selection_message);
}
