// SPDX-License-Identifier: MIT
// The window as a whole: that nothing is cut off, its letters, and how it is shown.
#include "tests/display/shown_program.h"
#include "toolkit/KSContainer.h"

#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>

#include <unistd.h>

using namespace config;

namespace {

class Window : public Shown {};

// At the least size, on every page and in the languages with the longest texts.
class Language : public Shown, public ::testing::WithParamInterface<const char*> {};

void ExpectNothingIsCutOff(QWidget* top) {
    for (QWidget* widget : top->findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->isWindow() || !widget->parentWidget()->isVisible())
            continue;
        int least = 0;
        if (auto* list = dynamic_cast<QListWidget*>(widget)) {
            EXPECT_GE(list->height(), list->minimumSizeHint().height());
        }
        if (auto* label = dynamic_cast<QLabel*>(widget))
            least = label->wordWrap() ? 0 : label->sizeHint().width();
        else if (dynamic_cast<QAbstractButton*>(widget))
            least = widget->minimumSizeHint().width();
        else if (auto* box = dynamic_cast<QGroupBox*>(widget))
            least = box->fontMetrics().horizontalAdvance(box->title());
        EXPECT_GE(widget->width(), least) << widget->accessibleName().toStdString();
        const bool scrolls = dynamic_cast<QScrollArea*>(widget->parentWidget()->parentWidget());
        EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry()) || !least || scrolls)
            << widget->accessibleName().toStdString();
    }
}

// No two things that can be seen together have one mnemonic.
void ExpectMnemonicsDiffer(QWidget* top) {
    std::map<std::string, std::string> texts;
    for (QWidget* widget : top->findChildren<QWidget*>()) {
        auto* label = dynamic_cast<QLabel*>(widget);
        auto* button = dynamic_cast<QAbstractButton*>(widget);
        if (!widget->isVisible() || (!label && !button))
            continue;
        const QString text = label ? label->text() : button->text();
        const std::string key = QKeySequence::mnemonic(text).toString().toStdString();
        EXPECT_TRUE(!key.empty() || !label || !label->buddy()) << text.toStdString();
        if (!key.empty()) {
            EXPECT_TRUE(texts.emplace(key, text.toStdString()).second)
                << key << ": " << text.toStdString() << " and " << texts[key];
        }
    }
}

TEST_P(Language, IsCompleteAtTheLeastSizeWithMnemonicsOfItsOwn) {
    std::filesystem::create_directories(home.CatalogsDirectory());
    std::filesystem::copy(NYMBREL_CATALOGS, home.CatalogsDirectory(),
                          std::filesystem::copy_options::recursive);
    home.Write(home.SettingsFile(), std::string("LANGUAGE = ") + GetParam() + "\n");
    ShownProgram::Run([](ShownProgram& program) {
        program.OnScreen([&] { program.Top()->resize(1, 1); });
        QSize size;
        for (int category = 0; category < 4; ++category) {
            program.Open(category);
            program.OnScreen([&] {
                ExpectNothingIsCutOff(program.Top());
                ExpectMnemonicsDiffer(program.Top());
                if (category == 0)
                    size = program.Top()->size();
                EXPECT_EQ(program.Top()->size(), size);
            });
        }
    });
}

INSTANTIATE_TEST_SUITE_P(All, Language, ::testing::Values("english", "deutsch", "francais", "polski"),
                         [](const auto& test) { return test.param; });

using WindowDeathTest = Window;

TEST_F(WindowDeathTest, IsShownOnceAndNotByAHolderOfItsLock) {
    EXPECT_DEATH(ShownProgram::Run([](ShownProgram& program) { program.Windows().front()->Show(); }),
                 "PutOnScreen: assertion");
    BWindow window({0, 0, 10, 10}, "locked");
    const BAutolock lock(&window);
    EXPECT_DEATH(DisplayServer().Show(&window), "IsLocked");
}

TEST(Server, ThrowsOnWhatAMirrorThrowsWhileShowWaits) {
    struct Unmeasurable : KSListView {
        Unmeasurable() : KSListView(nullptr, 0) {}
        KSPoint<long> MinSize() override { throw std::runtime_error("no size"); }
    };
    const ScopedVariable no_bus("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    const ScopedVariable platform("QT_QPA_PLATFORM", "offscreen");
    TestApplication app;
    app.on_ready = [] {
        auto* container = new KSContainer({0, 0, 9, 9}, nullptr);
        container->SetContent(new Unmeasurable);
        auto* window = new BWindow({0, 0, 9, 9}, "never seen");
        window->AddChild(container);
        window->Show();
    };
    DisplayServer server;
    alarm(60);  // a Show that waits for ever ends the test by this signal
    EXPECT_THROW(app.Run(&server), std::runtime_error);
    alarm(0);
}

TEST(Server, ShowReturnsWhenTheLoopHasEnded) {
    const ScopedVariable platform("QT_QPA_PLATFORM", "offscreen");
    DisplayServer server;
    server.Prepare(false);
    server.Quit();
    server.Run();
    BWindow window({0, 0, 10, 10}, "never seen");
    server.Show(&window);
}

}  // namespace
