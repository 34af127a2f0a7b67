// SPDX-License-Identifier: MIT
// What assistive tools find: every editor, hidden pages' too, by its name and with its value.
#include "tests/display/shown_program.h"

#include <QAccessible>
#include <QAccessibleInterface>
#include <QLineEdit>
#include <QToolButton>

#include <cmath>
#include <map>

using namespace config;

namespace {

class Accessibility : public Shown {};

std::string ValueOf(QAccessibleInterface& found) {
    if (found.role() == QAccessible::CheckBox)
        return found.state().checked ? "on" : "off";
    if (QAccessibleValueInterface* value = found.valueInterface())
        return std::to_string(std::lround(value->currentValue().toDouble()));
    const bool has_value = found.role() != QAccessible::List && found.role() != QAccessible::Window;
    return has_value ? found.text(QAccessible::Value).toStdString() : std::string();
}

using Editors = std::map<std::pair<std::string, QAccessible::Role>, std::string>;

constexpr QAccessible::Role kRoles[] = {
    QAccessible::ColorChooser, QAccessible::EditableText, QAccessible::ButtonDropDown, QAccessible::SpinBox,
    QAccessible::CheckBox,     QAccessible::ComboBox,     QAccessible::List,           QAccessible::Window,
    QAccessible::Grouping,     QAccessible::Button};

void Collect(QAccessibleInterface* from, Editors& editors) {
    if (std::ranges::count(kRoles, from->role()))
        editors[{from->text(QAccessible::Name).toStdString(), from->role()}] = ValueOf(*from);
    for (int i = 0; i < from->childCount(); ++i)
        if (QAccessibleInterface* child = from->child(i))
            Collect(child, editors);
}

TEST_F(Accessibility, FindsEachEditorByItsNameWithItsValue) {
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "Qt draws large areas in threads of its own, whose locks this sanitizer does not see";
#endif
    ShownProgram::Run([&](ShownProgram& program) {
        for (int pen = 0; pen < KS_PEN_NONE; ++pen)
            _colors[pen]->SetColor(ks_color(2, 3, static_cast<std::uint8_t>(pen), pen ? 4 : 255), false,
                                   false);
        for (int pen = 0; pen < kBackgroundCount; ++pen)
            _backgrounds[pen]->SetText(std::to_string(pen).c_str(), false);
        for (int i = 0; i < kFontCount; ++i) {
            BFont font;
            font.SetFamilyAndStyle("Family", "Style");
            font.SetSize(static_cast<float>(i));
            _fonts[i]->SetValue(&font, false);
        }
        Editors editors;
        program.OnScreen([&] { Collect(QAccessible::queryAccessibleInterface(program.Top()), editors); });
        const auto expect = [&](const std::string& name, QAccessible::Role role, const std::string& value) {
            ASSERT_TRUE(editors.contains({name, role})) << name << " " << role;
            const std::string found = editors[{name, role}];
            EXPECT_EQ(found, value) << name << " " << role;
        };
        for (int pen = 0; pen < KS_PEN_NONE; ++pen) {
            const std::string name = LocalString(pen_labels[pen]);
            char value[10];
            std::snprintf(value, sizeof value, pen ? "#0203%02x04" : "#0203%02x", pen);
            expect(name, QAccessible::ColorChooser, value);
            if (pen < kBackgroundCount)
                expect(name + ": bitmap", QAccessible::EditableText, std::to_string(pen));
        }
        for (int i = 0; i < kFontCount; ++i)
            expect(LocalString(font_labels[i]), QAccessible::ButtonDropDown,
                   "Family Style, " + std::to_string(i));
        expect("Bubblehelp wait time", QAccessible::SpinBox, "2000000");
        expect("Use Bubblehelp", QAccessible::CheckBox, "on");
        expect("BeOS conform", QAccessible::CheckBox, "on");
        expect("Look", QAccessible::ComboBox, "BeOS");
        for (const char* list : {"Language", "Categories"})
            expect(list, QAccessible::List, "");
        expect("Nymbrel Config", QAccessible::Window, "");
        for (const char* group :
             {"Pens", "Text", "System", "Backgrounds", "Fonts", "Options", "Language", "Advanced", "Look"})
            expect(group, QAccessible::Grouping, "");
        for (const char* button : {"OK", "Apply", "Revert", "Reset colors"})
            expect(button, QAccessible::Button, "");

        // Colour and bitmap of a level have names of their own; its label belongs to the colour.
        program.OnScreen([&] {
            auto* color = QAccessible::queryAccessibleInterface(program.Named<QAbstractButton>("Low level"));
            const auto labels = color->relations(QAccessible::Label);
            ASSERT_EQ(labels.size(), 1);
            EXPECT_EQ(labels[0].first->text(QAccessible::Name), QStringLiteral("Low level"));
        });
        program.Open(1);
        EXPECT_TRUE(program.Eventually([&] {
            const auto buttons = program.Named<QLineEdit>("Low level: bitmap")->findChildren<QToolButton*>();
            return buttons.size() == 2 && std::ranges::none_of(buttons, [](QToolButton* button) {
                       return QAccessible::queryAccessibleInterface(button)
                           ->text(QAccessible::Name)
                           .isEmpty();
                   });
        }));
    });
}

}  // namespace
