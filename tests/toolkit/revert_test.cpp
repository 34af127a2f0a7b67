// SPDX-License-Identifier: MIT
// The toolkit's application: the directory and the catalog it opens, Revert, and what a change notice
// settles.
#include "kits/BRoster.h"
#include "tests/support/home.h"
#include "toolkit/KSApplication.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSLocale.h"
#include "toolkit/KSSpinBox.h"
#include "toolkit/KSWindow.h"

#include <cstdlib>
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

class ToolkitApplication : public testing::Test {
protected:
    void SetUp() override {
        if (std::filesystem::is_directory("/boot/home"))
            GTEST_SKIP() << "this is the platform itself";
        setenv("XDG_CONFIG_HOME", (root / "config").c_str(), 1);
        setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    }
    // Makes a window with two editors, in the application's thread.
    void BuildWindow() {
        auto* group = new KSControl(nullptr, 0);
        group->AddChild(box = new KSCheckBox(nullptr, 0), nullptr);
        group->AddChild(spin = new KSSpinBox(nullptr, 0), nullptr);
        auto* container = new KSContainer({0, 0, 9, 9}, nullptr);
        container->SetContent(group);
        auto* window = new KSWindow({0, 0, 9, 9}, "", 1, 0, 0, 0);
        window->AddChild(new KSContainer({0, 0, 9, 9}, nullptr));  // one without content
        window->AddChild(container);
        box->SetValue(true);
        spin->SetValue(10);
    }
    void Edit(float value) {
        box->EditValue(!box->Value());
        spin->EditValue(value);
    }
    static void Receive(const char (&code)[5]) {
        BMessage message(ks_message_code(code));
        be_app->MessageReceived(&message);
    }

    TemporaryDirectory root;
    KSCheckBox* box = nullptr;
    KSSpinBox* spin = nullptr;
};

TEST_F(ToolkitApplication, RevertsToWhatWasSettledLast) {
    Application([&] {
        BuildWindow();
        Edit(20);
        Receive("OTHR");
        EXPECT_EQ(spin->Value(), 20);
        Receive("REVE");
        EXPECT_TRUE(box->Value());
        EXPECT_EQ(spin->Value(), 10);

        Edit(30);
        const BMessage other(ks_message_code("OTHR")), notice(ks_message_code("fAPL"));
        be_roster->Broadcast(&notice);
        Edit(40);
        be_roster->Broadcast(&other);
        Receive("fAPL");  // another program's notice settles nothing here
        Receive("REVE");
        EXPECT_FALSE(box->Value());
        EXPECT_EQ(spin->Value(), 30);
    }).Run();
}

TEST_F(ToolkitApplication, CreatesTheSettingsDirectoryAndOpensTheCatalog) {
    Application([] {}).Run();
    EXPECT_TRUE(std::filesystem::is_directory(root / "config"));
    EXPECT_STREQ(ks_locale->String(1, "OK"), "OK");
    root.Write("config/Kestrune/Catalogs/deutsch/App.catalog", "1 Gut\n");
    root.Write("config/Nymbrel_settings", "LANGUAGE = deutsch\n");
    Application([] { EXPECT_STREQ(ks_locale->String(1, "OK"), "Gut"); }).Run();
}

TEST_F(ToolkitApplication, TakesNoCommandsFromOtherPrograms) {
    const Application app([] {});
    EXPECT_TRUE(app.AcceptsBroadcast(ks_message_code("fAPL")));
    for (const std::uint32_t command : {ks_message_code("OKAY"), ks_message_code("RSCO"), B_QUIT_REQUESTED})
        EXPECT_FALSE(app.AcceptsBroadcast(command)) << command;
}

}  // namespace
