// SPDX-License-Identifier: MIT
#include "toolkit/KSApplication.h"

#include "kits/BWindow.h"
#include "kits/storage.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSHistory.h"
#include "toolkit/KSLocale.h"
#include "toolkit/KSLook.h"
#include "toolkit/installed_languages.h"

#include <vector>

namespace {

// Calls `visit` for the content of every window, under that window's lock. What it edits in one window is one
// step.
template <class Visit> void ForEachContent(const BApplication& application, Visit visit) {
    for (BWindow* window : application.Windows()) {
        const KSHistory::Step step(window);
        if (!step)
            continue;
        for (const auto& view : window->Children()) {
            const auto* container = dynamic_cast<const KSContainer*>(view.get());
            if (container && container->Content())
                visit(*container->Content());
        }
    }
}

// Calls `visit` for every control of every window, under that window's lock.
template <class Visit> void ForEachControl(const BApplication& application, Visit visit) {
    ForEachContent(application, [&](KSControl& content) { content.ForEach(visit); });
}

}  // namespace

KSApplication::KSApplication(const char* signature, const char* catalog) : BApplication(signature) {
    ks_create_settings_directory();
    ks_link_installed_languages();
    ks_locale->Open(catalog);
    ks_toolkit_locale->Open("Nymbrel.catalog");
    ks_current_look->Read();
}

KSApplication::~KSApplication() {
    // The windows and their editors go after this.
    ks_current_look->Untie();
}

void KSApplication::MessageReceived(BMessage* message) {
    if (message->what == kRevert)
        RevertEditors();
    else if (message->what == kSettingsChanged && message->IsSourceRemote())
        WearSettings();
    else
        BApplication::MessageReceived(message);
}

void KSApplication::BroadcastStarting(const BMessage& message) {
    if (message.what == kSettingsChanged)
        ForEachControl(*this, [](KSControl& control) { control.Settle(); });
}

void KSApplication::RevertEditors() {
    std::vector<KSControl*> reverted;
    ForEachControl(*this, [&](KSControl& control) {
        if (control.Revert())
            reverted.push_back(&control);
    });
    for (KSControl* control : reverted)
        control->SendReverted(*this);
}

void KSApplication::WearSettings() {
    ks_current_look->Read();
    SettingsChanged();
    ForEachContent(*this, [](KSControl& content) { content.RedrawSelf(); });
}

bool KSApplication::AcceptsBroadcast(std::uint32_t code) const {
    return code == kSettingsChanged;
}
