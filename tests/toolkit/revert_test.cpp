// SPDX-License-Identifier: MIT
// The toolkit's application: the directory and the catalog it opens, Revert, and what a change notice
// settles.
#include "kits/BRoster.h"
#include "tests/support/home.h"
#include "toolkit/KSApplication.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSLocale.h"
#include "toolkit/KSSpinBox.h"
#include "toolkit/KSWindow.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

class Application : public KSApplication {
public:
    explicit Application(std::function<void()> steps)
        : KSApplication("application/x-vnd.Nymbrel-test", "App.catalog"), _steps(std::move(steps)) {}
    void ReadyToRun() override {
        _steps();
        PostMessage(B_QUIT_REQUESTED);
    }

private:
    std::function<void()> _steps;
};

TEST(ToolkitApplication, RevertsToWhatWasSettledLast) {
    const ScopedHome home;
    const ScopedVariable no_bus("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    Application([] {
        auto* spin = new KSSpinBox(nullptr, 0);
        auto* container = new KSContainer({0, 0, 9, 9}, nullptr);
        container->SetContent(spin);
        auto* window = new KSWindow({0, 0, 9, 9}, "", 1, 0, 0, 0);
        window->AddChild(new KSContainer({0, 0, 9, 9}, nullptr));  // one without content
        window->AddChild(container);
        const auto receive = [](const char(&code)[5]) {
            BMessage message(ks_message_code(code));
            be_app->MessageReceived(&message);
        };

        spin->SetValue(10);
        spin->EditValue(20);
        receive("OTHR");
        EXPECT_EQ(spin->Value(), 20);
        receive("REVE");
        EXPECT_EQ(spin->Value(), 10);

        spin->EditValue(30);
        const BMessage other(ks_message_code("OTHR")), notice(ks_message_code("fAPL"));
        be_roster->Broadcast(&notice);
        spin->EditValue(40);
        be_roster->Broadcast(&other);
        receive("fAPL");  // another program's notice settles nothing here
        receive("REVE");
        EXPECT_EQ(spin->Value(), 30);
    }).Run();
}

TEST(ToolkitApplication, OpensTheCatalogAndTakesNoCommandsFromOtherPrograms) {
    const ScopedHome home;
    std::filesystem::remove(home.SettingsDirectory());
    {
        const Application app([] {});
        EXPECT_TRUE(std::filesystem::is_directory(home.SettingsDirectory()));
        EXPECT_TRUE(app.AcceptsBroadcast(ks_message_code("fAPL")));
        EXPECT_FALSE(app.AcceptsBroadcast(ks_message_code("OKAY")));
    }
    home.Write(home.CatalogsDirectory() / "deutsch/App.catalog", "1 Gut\n");
    home.Write(home.SettingsFile(), "LANGUAGE = deutsch\n");
    const Application app([] {});
    EXPECT_STREQ(ks_locale->String(1, "OK"), "Gut");
}

}  // namespace
