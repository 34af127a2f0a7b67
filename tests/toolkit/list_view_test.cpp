// SPDX-License-Identifier: MIT
// Lists: the selection and who is told of it, and how items are measured and drawn.
#include "tests/support/recorders.h"
#include "tests/support/recording_surface.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSWindow.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace {

class RecordingList : public KSListView {
public:
    RecordingList() : KSListView(nullptr, 0) {}
    void SelectionChanged() override { selections.push_back(CurrentSelection()); }
    std::vector<long> selections;
};

class ListView : public testing::Test {
protected:
    ListView() {
        for (const char* name : {"english", "deutsch", "francais"})
            list->AddItem(new KSStringItem(name), -1, true);
        const BMessage message(ks_message_code("LIST"));
        list->SetSelectionMessage(&message);
        list->SetTarget(&looper, nullptr);
        container->SetContent(list);
        window.AddChild(container);
    }

    RecordingLooper looper;
    KSWindow window{{0, 0, 9, 9}, "", 1, 0, 0, 0};
    KSContainer* container = new KSContainer({0, 0, 9, 9}, nullptr);
    RecordingList* list = new RecordingList;
};

TEST_F(ListView, KeepsItsItemsAndItsSelectionTogether) {
    list->Select(1, false);
    list->EditSelection(2);
    list->AddItem(new KSStringItem("first"), 0, true);
    list->AddItem(new KSStringItem("last"), 99, true);
    EXPECT_EQ(list->CurrentSelection(), 3);
    EXPECT_TRUE(list->Revert()) << "an item that is added settles nothing";
    EXPECT_EQ(list->CurrentSelection(), 2);
    std::string names;
    for (long i = 0; i < list->CountItems(); ++i)
        names += static_cast<KSStringItem*>(list->ItemAt(i))->String() + std::string(" ");
    EXPECT_EQ(names, "first english deutsch francais last ");
    list->Select(5, false);
    EXPECT_EQ(list->CurrentSelection(), -1);
    EXPECT_FALSE(list->ItemAt(2)->IsSelected());
    EXPECT_EQ(list->MinSize(), KSPoint<long>(0, 4 * 24));
}

TEST_F(ListView, TellsAtOnceWhereNobodyShowsIt) {
    list->Select(0, false);
    list->Select(0, false);
    list->Select(2, false);
    list->EditSelection(-1);
    list->EditSelection(7);
    EXPECT_TRUE(list->Revert());
    EXPECT_FALSE(list->Revert());
    EXPECT_EQ(list->selections, (std::vector<long>{0, 2, -1, 2}));
    EXPECT_EQ(looper.codes.size(), 3u);
    RecordingLooper reverting;
    list->SendReverted(reverting);
    EXPECT_EQ(looper.codes, std::vector(4, ks_message_code("LIST")));
    list->SetSelectionMessage(nullptr);  // no editor any more
    list->EditSelection(1);
    EXPECT_FALSE(list->Revert());
}

TEST_F(ListView, LetsWhoeverShowsItCallTheHook) {
    container->SetChangeListener([] {});
    list->Select(0, false);
    list->Select(1, false);
    EXPECT_EQ(list->selections, std::vector<long>{});
    EXPECT_EQ(container->TakeChanges().controls, std::vector<KSControl*>{list});
    list->CallSelectionHook();
    list->CallSelectionHook();
    list->EditSelection(2);
    EXPECT_EQ(list->selections, (std::vector<long>{1, 2}));
    EXPECT_EQ(looper.codes.size(), 3u);
}

TEST_F(ListView, DrawsItsItemsWithTheSurfaceOfTheMoment) {
    RecordingSurface surface(12);
    KSListItem* item = list->ItemAt(1);
    long ascent = 5;
    EXPECT_EQ(list->StringSize("text", &ascent, nullptr, -1, KS_TRUNCATE_NONE, true), KSPoint<long>());
    EXPECT_EQ(ascent, 0);
    for (RecordingSurface* present : {&surface, &surface, static_cast<RecordingSurface*>(nullptr)}) {
        list->SetSurface(present);
        item->RenderSetup(list);
        EXPECT_EQ(item->Height(), 20);
        item->DrawItem(list, {2, 40, 99, 59}, {2, 40}, nullptr, 1);
        list->Select(1, false);
    }
    EXPECT_EQ(surface.drawn.str(), "pen 5; fill 2,40,99,59; pen 9; deutsch at 6,53; "
                                   "pen 8; fill 2,40,99,59; pen 9; deutsch at 6,53; ");
}

}  // namespace
