// SPDX-License-Identifier: MIT
// Lists: the selection and who is told of it, and how items are measured and drawn.
#include "kits/BLooper.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSWindow.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr std::uint32_t kListed = ks_message_code("LIST");

class RecordingLooper : public BLooper {
public:
    void PostMessage(const BMessage& message) override { codes.push_back(message.what); }
    std::vector<std::uint32_t> codes;
};

class RecordingList : public KSListView {
public:
    RecordingList() : KSListView(nullptr, 0) {}
    void SelectionChanged() override { selections.push_back(CurrentSelection()); }
    std::vector<long> selections;
};

using selection_list = std::vector<long>;

class ListView : public testing::Test {
protected:
    void SetUp() override {
        for (const char* name : {"english", "deutsch", "francais"})
            list->AddItem(new KSStringItem(name), -1, true);
        const BMessage message(kListed);
        list->SetSelectionMessage(&message);
        list->SetTarget(&looper, nullptr);
    }
    // Puts the list into a window that has somebody to show it.
    void ShowIt() {
        container->SetContent(list.release());
        window.AddChild(container);
        container->SetChangeListener([] {});
    }

    RecordingLooper looper;
    KSWindow window{{0, 0, 9, 9}, "", 1, 0, 0, 0};
    KSContainer* container = new KSContainer({0, 0, 9, 9}, nullptr);
    std::unique_ptr<RecordingList> list = std::make_unique<RecordingList>();
    RecordingList* shown = list.get();

    ~ListView() override {
        if (list)
            delete container;
    }
};

TEST_F(ListView, KeepsItsItemsAndItsSelectionTogether) {
    EXPECT_EQ(list->CurrentSelection(), -1);
    list->Select(1, false);
    EXPECT_TRUE(list->ItemAt(1)->IsSelected());
    list->EditSelection(2);
    list->AddItem(new KSStringItem("first"), 0, true);
    list->AddItem(new KSStringItem("last"), 99, true);
    EXPECT_EQ(list->CurrentSelection(), 3);
    EXPECT_TRUE(list->Revert()) << "an item that is added settles nothing";
    EXPECT_EQ(list->CurrentSelection(), 2);
    EXPECT_EQ(list->CountItems(), 5);
    std::string names;
    for (long i = 0; i < list->CountItems(); ++i)
        names += static_cast<KSStringItem*>(list->ItemAt(i))->String() + std::string(" ");
    EXPECT_EQ(names, "first english deutsch francais last ");
    EXPECT_EQ(list->ItemAt(-1), nullptr);
    EXPECT_EQ(list->ItemAt(5), nullptr);
    list->Select(0, false);
    EXPECT_FALSE(list->ItemAt(2)->IsSelected());
    list->Select(5, false);
    EXPECT_EQ(list->CurrentSelection(), -1);
    EXPECT_FALSE(list->ItemAt(0)->IsSelected());
    EXPECT_EQ(list->MinSize(), KSPoint<long>(0, 4 * 24));
}

TEST_F(ListView, TellsAtOnceWhereNobodyShowsIt) {
    list->Select(0, false);
    list->Select(0, false);
    list->Select(2, false);
    list->EditSelection(-1);
    list->EditSelection(7);
    EXPECT_EQ(list->selections, (selection_list{0, 2, -1}));
    EXPECT_EQ(looper.codes, std::vector<std::uint32_t>(3, kListed));
}

TEST_F(ListView, LetsWhoeverShowsItCallTheHook) {
    ShowIt();
    shown->Select(0, false);
    shown->Select(1, false);
    EXPECT_EQ(shown->selections, selection_list{});
    EXPECT_EQ(container->TakeChanges().controls, std::vector<KSControl*>{shown});
    shown->CallSelectionHook();
    shown->CallSelectionHook();
    EXPECT_EQ(shown->selections, selection_list{1});
    shown->EditSelection(2);
    EXPECT_EQ(shown->selections, (selection_list{1, 2}));
    EXPECT_EQ(looper.codes.size(), 3u);
}

TEST_F(ListView, ReportsWhatRevertPutsBack) {
    list->Select(0, false);
    list->EditSelection(1);
    EXPECT_TRUE(list->Revert());
    EXPECT_FALSE(list->Revert());
    EXPECT_EQ(list->selections, (selection_list{0, 1, 0}));
    EXPECT_EQ(looper.codes.size(), 2u);
    RecordingLooper reverting;
    list->SendReverted(reverting);
    EXPECT_EQ(looper.codes.size(), 3u);
    list->EditSelection(2);
    list->Settle();
    EXPECT_FALSE(list->Revert());
    list->SetSelectionMessage(nullptr);  // no editor any more
    list->EditSelection(1);
    EXPECT_FALSE(list->Revert());
    EXPECT_EQ(list->CurrentSelection(), 1);
}

// Texts are as wide as they have bytes times 7 and 11 high, 9 of them above the base line.
class TextSurface : public KSSurface {
public:
    void SetHighPen(ks_pen pen) override { log << "pen " << pen << '\n'; }
    KSPoint<long> StringSize(const char*, long length, long* ascent) override {
        *ascent = 9;
        return {7 * length, 11};
    }
    void DrawString(const char* text, long length, KSPoint<long> where) override {
        log << std::string(text, static_cast<std::size_t>(length)) << " at " << where.x << ',' << where.y
            << '\n';
    }
    void FillRect(KSRect<long> rect) override {
        log << "fill " << rect.left << ',' << rect.top << ',' << rect.right << ',' << rect.bottom << '\n';
    }
    std::ostringstream log;
};

TEST_F(ListView, DrawsItsItemsWithTheSurfaceOfTheMoment) {
    TextSurface surface;
    KSListItem* item = list->ItemAt(1);
    long ascent = 5;
    EXPECT_EQ(list->StringSize("text", &ascent, nullptr, -1, KS_TRUNCATE_NONE, true), KSPoint<long>());
    EXPECT_EQ(ascent, 0);

    list->SetSurface(&surface);
    EXPECT_EQ(list->StringSize("text", nullptr, nullptr, 3, KS_TRUNCATE_NONE, true), KSPoint<long>(21, 11));
    item->RenderSetup(list.get());
    EXPECT_EQ(item->Height(), 20);
    item->DrawItem(list.get(), {2, 40, 99, 59}, {2, 40}, nullptr, 1);
    list->Select(1, false);
    item->DrawItem(list.get(), {2, 40, 99, 59}, {2, 40}, nullptr, 1);
    list->SetSurface(nullptr);
    item->DrawItem(list.get(), {2, 40, 99, 59}, {2, 40}, nullptr, 1);
    EXPECT_EQ(surface.log.str(), "pen 5\nfill 2,40,99,59\npen 9\ndeutsch at 6,53\n"
                                 "pen 8\nfill 2,40,99,59\npen 9\ndeutsch at 6,53\n");
}

}  // namespace
