// SPDX-License-Identifier: MIT
// A program of the toolkit with every kind of control. It wears the look of the settings file, and follows
// when the preferences program changes it.
#include "display/display.h"
#include "toolkit/KSApplication.h"
#include "toolkit/KSButton.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSCycle.h"
#include "toolkit/KSLabel.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSPicture.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSPopFont.h"
#include "toolkit/KSSeparator.h"
#include "toolkit/KSSpinBox.h"
#include "toolkit/KSTitleGroup.h"
#include "toolkit/KSWindow.h"

#include <string>

namespace {

// Makes a control; it belongs to `parent`.
template <class Control> Control* Add(KSControl* parent, const char* label = "") {
    auto* control = new Control(nullptr, 0);
    control->SetLabel(label, true);
    parent->AddChild(control, nullptr);
    return control;
}

// A group without a frame; empty, it is a spacer.
KSControl* AddGroup(KSControl* parent, long orientation) {
    auto* group = Add<KSControl>(parent);
    group->SetOrientation(orientation);
    return group;
}

// A control with a label before it, in a grid of two columns.
template <class Editor> Editor* AddEditor(KSControl* grid, const char* label, const char* bubble_help) {
    Add<KSLabel>(grid, label)->SetAlignment(KS_ALIGNMENT_RIGHT);
    auto* editor = Add<Editor>(grid);
    editor->SetBubbleHelp(bubble_help);
    return editor;
}

class GalleryApplication : public KSApplication {
public:
    GalleryApplication() : KSApplication("application/x-vnd.NymbrelGallery", nullptr) {}

    void ReadyToRun() override;
    void MessageReceived(BMessage* message) override;

private:
    static constexpr std::uint32_t kPressed = ks_message_code("PRSS");

    void AddList(KSControl* parent);
    void AddEditors(KSControl* parent);
    void AddButtons(KSControl* parent);

    KSButton* _press = nullptr;  // owned by the window, as all controls are
    int _times = 0;
};

class GalleryWindow : public KSWindow {
public:
    GalleryWindow() : KSWindow({840, 100, 1279, 399}, "Gallery", 1, 0, 0, 0) {}

    // Closing the window ends the program.
    bool QuitRequested() override {
        be_app->PostMessage(B_QUIT_REQUESTED);
        return true;
    }
};

void GalleryApplication::ReadyToRun() {
    auto* root = new KSControl(nullptr, 0);
    root->SetOrientation(KS_ORIENTATION_VERTICAL);
    root->SetBorder({4, 4, 4, 4});
    KSControl* contents = AddGroup(root, KS_ORIENTATION_HORIZONTAL);
    AddList(contents);
    AddEditors(contents);
    Add<KSSeparator>(root);
    AddButtons(root);

    auto* container = new KSContainer({0, 0, 439, 299}, "gallery");
    container->SetContent(root);
    auto* window = new GalleryWindow;
    window->AddChild(container);
    window->Show();
}

void GalleryApplication::AddList(KSControl* parent) {
    KSControl* column = AddGroup(parent, KS_ORIENTATION_VERTICAL);
    Add<KSPicture>(column)->SetFileName("NymbrelConfig.tga");
    auto* list = Add<KSListView>(column, "Fruits");
    for (const char* fruit : {"Apple", "Banana", "Cherry", "Date", "Elderberry", "Fig"})
        list->AddItem(new KSStringItem(fruit), -1, true);
    list->Select(1, false);
}

void GalleryApplication::AddEditors(KSControl* parent) {
    KSControl* group = AddGroup(parent, KS_ORIENTATION_VERTICAL);
    group->SetLabel("Controls", true);
    group->SetFrameType(KS_FRAME_GROUP);
    group->SetFrameState(1);
    group->SetBorder({6, 6, 6, 6});
    KSControl* grid = AddGroup(Add<KSTitleGroup>(group, "Every kind"), KS_ORIENTATION_VERTICAL);
    grid->SetColumns(2);
    AddEditor<KSColorField>(grid, "Colour", "Click to choose a colour, or drag one here")
        ->SetColor({80, 150, 255, 255}, false, false);
    AddEditor<KSPopFile>(grid, "File", "A picture's path");
    AddEditor<KSPopFont>(grid, "Font", "Click to choose a font");
    AddEditor<KSSpinBox>(grid, "Number", "Between 0 and 100; hold an arrow to repeat it")->SetValue(42);
    auto* cycle = AddEditor<KSCycle>(grid, "Choice", "One of three");
    for (const char* label : {"Small", "Medium", "Large"})
        cycle->AddLabel(label);
    AddGroup(grid, KS_ORIENTATION_HORIZONTAL);
    Add<KSCheckBox>(grid, "On or off")->SetValue(true);
}

void GalleryApplication::AddButtons(KSControl* parent) {
    KSControl* row = AddGroup(parent, KS_ORIENTATION_HORIZONTAL);
    _press = Add<KSButton>(row, "Press");
    _press->SetBubbleHelp("Sends a message to the program, which counts it");
    AddGroup(row, KS_ORIENTATION_HORIZONTAL);
    auto* close = Add<KSButton>(row, "Close");
    close->MakeDefault(true);
    for (const auto& [button, code] : {std::pair(_press, kPressed), std::pair(close, B_QUIT_REQUESTED)}) {
        const BMessage message(code);
        button->SetTarget(this, nullptr);
        button->SetMessage(&message);
    }
}

void GalleryApplication::MessageReceived(BMessage* message) {
    if (message->what == kPressed)
        _press->SetLabel(("Pressed: " + std::to_string(++_times)).c_str(), true);
    else
        KSApplication::MessageReceived(message);
}

}  // namespace

int main() {
    const auto server = ks_open_display();
    GalleryApplication().Run(server.get());
}
