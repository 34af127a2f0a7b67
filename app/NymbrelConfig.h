// SPDX-License-Identifier: MIT
// The preferences program: its application, its one window and the list of categories in it.
#pragma once

#include "toolkit/KSApplication.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSWindow.h"

class KSContainer;

// Chooses which of the four editor groups is seen: the item's index is the category's number.
class NCListView : public KSListView {
public:
    // A category: its text, in the text pen, 8 pixels from the left and centred.
    class NCListItem : public KSListItem {
    public:
        // `label` is not copied and has to live as long as the item.
        explicit NCListItem(const char* label) : _label(label) {}

        void DrawItem(KSControl* owner, KSRect<long> frame, KSPoint<long> origin, KSListColumn* column,
                      long index) override;
        void RenderSetup(KSControl* owner) override;
        const char* AccessibleText() const override { return _label; }

    private:
        const char* _label;
        long _text_width = 0;
        long _text_height = 0;
        long _ascent = 0;  // from the text's top to its base line
    };

    NCListView(const char* name, unsigned flags) : KSListView(name, flags) {}

    // At least 100 pixels wide.
    KSPoint<long> MinSize() override;
    // Nothing can be dragged out of the list.
    void DraggingRequested(KSPoint<long> where, BMessage* message) override;
    // A category is marked when the user has changed a value of its group.
    bool IsItemMarked(long index) const override;
    // Shows only the selected category's group. Without a selection, or without the lock, nothing changes.
    void SelectionChanged() override;
};

// Closing it ends the program.
class NCWindow : public KSWindow {
public:
    using KSWindow::KSWindow;

    bool QuitRequested() override;
};

class NCApplication : public KSApplication {
public:
    // What the window's buttons send, besides kRevert.
    static constexpr std::uint32_t kApply = ks_message_code("APPL");
    static constexpr std::uint32_t kOk = ks_message_code("OKAY");
    static constexpr std::uint32_t kResetColors = ks_message_code("RSCO");

    NCApplication();

    // Builds and shows the window, and puts the defaults and the settings file's values into it.
    void ReadyToRun() override;
    void MessageReceived(BMessage* message) override;
    // Always agrees. Edits that were not applied are lost.
    bool QuitRequested() override;
    // Settles nothing after a write that failed: Revert still comes back to what the file holds.
    void BroadcastStarting(const BMessage& message) override;

protected:
    // Brings what the user has not edited to what another program has stored.
    void SettingsChanged() override;

private:
    void BuildContents();
    void StoreSettings();

    // All owned by the window.
    KSContainer* _container = nullptr;
    KSControl* _root = nullptr;
    NCListView* _categories = nullptr;

    bool _is_stored = false;  // whether the last write succeeded
};
