// SPDX-License-Identifier: MIT
// The toolkit's application: opens the string catalog, wears the look and knows what Revert means.
#pragma once

#include "kits/BApplication.h"
#include "kits/BMessage.h"

class KSApplication : public BApplication {
public:
    // Creates the settings directory if it is missing and links the installed languages
    // (installed_languages.h), opens `catalog` (ks_locale) and the toolkit's own (ks_toolkit_locale) in the
    // chosen language, and reads the look (ks_current_look).
    KSApplication(const char* signature, const char* catalog);

    ~KSApplication() override;

    static constexpr std::uint32_t kRevert = ks_message_code("REVE");
    // What is broadcast when the settings have changed.
    static constexpr std::uint32_t kSettingsChanged = ks_message_code("fAPL");

    // kRevert puts every editor of the windows back to its settled value. kSettingsChanged of another
    // application reads the look again, calls SettingsChanged and has the windows drawn.
    void MessageReceived(BMessage* message) override;
    // kSettingsChanged settles every editor of the windows.
    void BroadcastStarting(const BMessage& message) override;
    // Only 'fAPL': no other program can send commands.
    bool AcceptsBroadcast(std::uint32_t code) const override;

protected:
    // Called on the loop's thread after another application has changed the settings.
    virtual void SettingsChanged() {}

private:
    void RevertEditors();
    void WearSettings();
};
