// SPDX-License-Identifier: MIT
// Builds the window and carries out its commands.
#include "app/NymbrelConfig.h"

#include "hdr/ks_math.h"
#include "kits/BRoster.h"
#include "settings/languages.h"
#include "settings/model.h"
#include "settings/settings_file.h"
#include "toolkit/KSButton.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSCycle.h"
#include "toolkit/KSLabel.h"
#include "toolkit/KSLookPreview.h"
#include "toolkit/KSPicture.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSPopFont.h"
#include "toolkit/KSSeparator.h"
#include "toolkit/KSSpinBox.h"
#include "toolkit/KSTitleGroup.h"

#include <array>
#include <iterator>

using namespace config;

namespace {

// A group that only arranges its children; without any it is a spacer.
KSControl* NewGroup() {
    return new KSControl(nullptr, 0);
}

// By the number of the category.
std::array<KSControl*, 4> EditorGroups() {
    return {ch_pen, ch_background, ch_font, ch_dimen};
}

KSControl* NewVerticalGroup() {
    KSControl* group = NewGroup();
    group->SetOrientation(KS_ORIENTATION_VERTICAL);
    return group;
}

KSControl* NewGrid(long columns) {
    KSControl* grid = NewVerticalGroup();
    grid->SetColumns(columns);
    return grid;
}

void MakeEditorGroup(KSControl* group) {
    group->SetFrameType(KS_FRAME_GROUP);
    group->SetFrameState(1);
    group->SetBorder({6, 6, 6, 6});
}

template <class Control> Control* Add(KSControl* parent, Control* child) {
    parent->AddChild(child, nullptr);
    return child;
}

void AddSpacers(KSControl* group, int count) {
    for (int i = 0; i < count; ++i)
        Add(group, NewGroup());
}

KSLabel* AddLabel(KSControl* group, const text& text, long alignment = KS_ALIGNMENT_RIGHT) {
    auto* label = new KSLabel(nullptr, 0);
    label->SetLabel(LocalString(text), true);
    label->SetAlignment(alignment);
    return Add(group, label);
}

KSTitleGroup* AddTitleGroup(KSControl* parent, const text& title) {
    auto* group = new KSTitleGroup(nullptr, 0);
    group->SetLabel(LocalString(title), true);
    return Add(parent, group);
}

// A title group that has a grid in its middle. Returns the grid.
KSControl* AddTitledGrid(KSControl* parent, const text& title, long columns) {
    KSControl* group = AddTitleGroup(parent, title);
    AddSpacers(group, 1);
    KSControl* grid = Add(group, NewGrid(columns));
    AddSpacers(group, 1);
    return grid;
}

KSButton* AddButton(KSControl* parent, const text& label, const BMessage& command) {
    auto* button = new KSButton(nullptr, 0);
    button->SetLabel(LocalString(label), true);
    button->SetTarget(be_app, nullptr);
    button->SetMessage(&command);
    return Add(parent, button);
}

void AddCheckBox(KSControl* parent, KSCheckBox* box, const text& label) {
    box->SetLabel(LocalString(label), true);
    Add(parent, box);
}

void AddPens(KSControl* parent, const text& title, ks_pen first, ks_pen last) {
    KSControl* grid = AddTitledGrid(parent, title, 2);
    AddSpacers(grid, 2);
    for (int pen = first; pen <= last; ++pen) {
        AddLabel(grid, pen_labels[pen]);
        Add(grid, _colors[pen]);
    }
    AddSpacers(grid, 2);
}

KSControl* BuildPens() {
    KSControl* group = NewGroup();
    MakeEditorGroup(group);
    group->SetLabel(LocalString(kStringPensGroup), true);
    AddPens(group, kStringTextPens, KS_PEN_TEXT, KS_PEN_TEXT_BG_MARKED);
    AddPens(group, kStringSystemPens, KS_PEN_SHINE, KS_PEN_PAINTDARK);
    return group;
}

KSControl* BuildBackgrounds() {
    KSControl* group = NewGrid(2);
    MakeEditorGroup(group);
    group->SetName(LocalString(kStringBackgroundsCategory));  // for assistive tools
    AddSpacers(group, 2);
    for (int pen = 0; pen < kBackgroundCount; ++pen) {
        AddLabel(group, pen_labels[pen]);
        KSControl* row = Add(group, NewGroup());
        Add(row, _colors[pen]);
        Add(row, _backgrounds[pen]);
    }
    AddSpacers(group, 2);
    return group;
}

KSControl* BuildFonts() {
    KSControl* group = NewGrid(2);
    MakeEditorGroup(group);
    group->SetName(LocalString(kStringFontsCategory));  // for assistive tools
    AddSpacers(group, 2);
    for (int font = 0; font < kFontCount; ++font) {
        AddLabel(group, font_labels[font]);
        Add(group, _fonts[font]);
    }
    AddSpacers(group, 2);
    return group;
}

void AddLanguages(KSControl* parent) {
    KSControl* group = AddTitleGroup(parent, kStringLanguage);
    group->SetOrientation(KS_ORIENTATION_VERTICAL);
    Add(group, _llist);
    KSControl* note = Add(group, NewGroup());
    AddSpacers(note, 1);
    AddLabel(note, kStringRestartNote, 0);
    AddSpacers(note, 1);
}

void AddAdvanced(KSControl* parent) {
    KSControl* grid = AddTitledGrid(parent, kStringAdvanced, 2);
    AddSpacers(grid, 2);
    AddLabel(grid, kStringBubblehelpTime);
    Add(grid, _bubbletime);
    AddSpacers(grid, 1);
    AddCheckBox(grid, _bubblehelp, kStringUseBubblehelp);
    AddSpacers(grid, 2);
    AddLabel(grid, kStringMouseHoldTime);
    Add(grid, _mousetime);
    AddSpacers(grid, 2);
}

void AddLook(KSControl* parent) {
    KSControl* grid = AddTitledGrid(parent, kStringLook, 3);
    AddSpacers(grid, 3);
    AddCheckBox(grid, _beos_size, kStringBeOSConform);
    Add(grid, _look);
    AddSpacers(grid, 1);
    AddButton(grid, kStringResetColors, BMessage(NCApplication::kResetColors));
    AddSpacers(grid, 3);
}

KSControl* BuildOptions() {
    KSControl* group = NewVerticalGroup();
    MakeEditorGroup(group);
    AddLanguages(group);
    AddAdvanced(group);
    AddLook(group);
    group->SetLabel(LocalString(kStringOptionsGroup), true);
    return group;
}

// The four editor groups in one place; the pens are seen first.
KSControl* BuildEditorStack() {
    KSControl* stack = NewGroup();
    stack->SetForceMode(KS_FORCE_STACKED);
    ch_pen = Add(stack, BuildPens());
    stack->SetName("MainTab");
    ch_background = Add(stack, BuildBackgrounds());
    ch_font = Add(stack, BuildFonts());
    ch_dimen = Add(stack, BuildOptions());
    ch_background->Hide(true);
    ch_font->Hide(true);
    ch_dimen->Hide(true);
    return stack;
}

NCListView* BuildCategories() {
    auto* list = new NCListView(nullptr, 0);
    list->SetListMode(0);
    list->HideColumnBar(true, true);
    list->HideHideButton(true, true);
    for (const text& label :
         {kStringPensCategory, kStringBackgroundsCategory, kStringFontsCategory, kStringOptionsCategory})
        list->AddItem(new NCListView::NCListItem(LocalString(label)), -1, true);
    list->SetName("NCListView");
    list->SetLabel(LocalString(kStringCategories), true);  // for assistive tools
    list->SetWeight({30, 100});
    list->TakePageKeys(true);
    return list;
}

// Returns the OK button.
KSButton* AddButtonRow(KSControl* parent) {
    KSControl* row = Add(parent, NewGroup());
    BMessage command(NCApplication::kRevert);
    AddButton(row, kStringRevert, command);
    AddSpacers(row, 2);
    command.what = NCApplication::kApply;
    AddButton(row, kStringApply, command);
    command.what = NCApplication::kOk;
    return AddButton(row, kStringOk, command);
}

}  // namespace

NCApplication::NCApplication() : KSApplication("application/x-vnd.NymbrelConfig", "NymbrelConfig.catalog") {}

void NCApplication::BuildContents() {
    _root = NewVerticalGroup();
    _root->SetBorder({4, 4, 4, 4});
    MakeEditors();

    KSControl* settings = Add(_root, NewGroup());
    settings->SetName("settings");
    KSControl* left_column = Add(settings, NewVerticalGroup());
    auto* picture = Add(left_column, new KSPicture(nullptr, 0));
    picture->SetFileName("NymbrelConfig.tga");
    _categories = Add(left_column, BuildCategories());
    Add(settings, BuildEditorStack());

    Add(_root, new KSSeparator(nullptr, 0));
    KSButton* ok = AddButtonRow(_root);

    _container = new KSContainer({0, 0, 495, 300}, "view");
    _container->SetContent(_root);
    TieEditors();
    ok->MakeDefault(true);
}

void NCApplication::ReadyToRun() {
    BuildContents();
    auto* window = new NCWindow({100, 100, 600, 400}, LocalString(kStringWindowTitle), 1, 0, 0, 0);
    window->AddChild(_container);
    auto* preview = new KSContainer({496, 0, 765, 300}, "preview");
    preview->SetContent(new KSLookPreview(nullptr, 0));
    window->AddChild(preview);
    window->Show();
    ApplyDefaults();
    ReadSettings();
    _root->ResetLayout(true, true);
}

void NCApplication::MessageReceived(BMessage* message) {
    switch (message->what) {
    case kLanguageSelected:
        TakeSelectedLanguage();
        break;
    case kApply:
        StoreSettings();
        break;
    case kOk:
        StoreSettings();
        be_app->PostMessage(B_QUIT_REQUESTED);
        break;
    case kResetColors:
        ApplyPalette(_beos_size->Value() ? kBeOSConformPalette : kDefaultPalette);
        StoreSettings();
        break;
    default:
        KSApplication::MessageReceived(message);
    }
}

// The change is announced even if the file could not be written.
void NCApplication::StoreSettings() {
    _is_stored = WriteSettings();
    const BMessage changed(kSettingsChanged);
    be_roster->Broadcast(&changed);
}

void NCApplication::BroadcastStarting(const BMessage& message) {
    if (_is_stored)
        KSApplication::BroadcastStarting(message);
}

void NCApplication::SettingsChanged() {
    FollowSettings();
}

bool NCApplication::QuitRequested() {
    return true;
}

bool NCWindow::QuitRequested() {
    be_app->PostMessage(B_QUIT_REQUESTED);
    return true;
}

KSPoint<long> NCListView::MinSize() {
    const KSPoint<long> size = KSListView::MinSize();
    return {(MAX)(size.x, 100L), size.y};
}

void NCListView::DraggingRequested(KSPoint<long>, BMessage*) {}

bool NCListView::IsItemMarked(long index) const {
    return EditorGroups().at(static_cast<std::size_t>(index))->HasEdits();
}

void NCListView::SelectionChanged() {
    const KSAutolock lock(this);
    if (!lock)
        return;
    const std::array groups = EditorGroups();
    const long category = CurrentSelection();
    if (category < 0)
        return;
    for (KSControl* group : groups)
        group->Hide(true);
    if (category < std::ssize(groups)) {
        groups[static_cast<std::size_t>(category)]->Hide(false);
        ResetLayout(true, true);
    }
}

void NCListView::NCListItem::RenderSetup(KSControl* owner) {
    const KSPoint<long> size = owner->StringSize(_label, &_ascent, nullptr, -1, KS_TRUNCATE_NONE, true);
    _text_width = size.x;
    _text_height = size.y;
    SetHeight((MAX)(_text_height + 8, 24L));
}

void NCListView::NCListItem::DrawItem(KSControl* owner, KSRect<long> frame, KSPoint<long> origin,
                                      KSListColumn* column, long index) {
    KSListItem::DrawItem(owner, frame, origin, column, index);
    owner->SetHighPen(KS_PEN_TEXT);
    const KSPoint<long> where = {frame.left + 8, frame.top + (Height() - _text_height) / 2 + _ascent};
    owner->DrawString(_label, where, nullptr, -1, KS_TRUNCATE_NONE, true);
}
