// SPDX-License-Identifier: MIT
// What assistive tools find: every editor, hidden pages' too, by its name and with its value.
#include "tests/display/shown_program.h"

#include <QAccessible>
#include <QAccessibleInterface>

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

void Collect(QAccessibleInterface* from, Editors& editors) {
    switch (from->role()) {
    case QAccessible::ColorChooser:
    case QAccessible::EditableText:
    case QAccessible::ButtonDropDown:
    case QAccessible::SpinBox:
    case QAccessible::CheckBox:
    case QAccessible::ComboBox:
    case QAccessible::List:
    case QAccessible::Window:
    case QAccessible::Grouping:
    case QAccessible::Button:
        editors[{from->text(QAccessible::Name).toStdString(), from->role()}] = ValueOf(*from);
        break;
    default:
        break;
    }
    for (int i = 0; i < from->childCount(); ++i)
        if (QAccessibleInterface* child = from->child(i))
            Collect(child, editors);
}

TEST_F(Accessibility, FindsEachEditorByItsNameWithItsValue) {
    const std::string path = home.NewFile("a.png");
    home.Write(home.SettingsFile(), "KS_PEN_BG_LOW_BMP = " + path + "\nKS_PEN_TEXT = 1,2,3,4\n");
    ShownProgram::Run([&](ShownProgram& program) {
        Editors editors;
        ASSERT_TRUE(program.Eventually([&] {
            editors.clear();
            Collect(QAccessible::queryAccessibleInterface(program.Top()), editors);
            return editors[{"Mouse hold time", QAccessible::SpinBox}] == "30000" &&
                   editors[{"Default color and Text", QAccessible::ColorChooser}] == "#01020304";
        }));
        const auto expect = [&](const std::string& name, QAccessible::Role role, const std::string& value) {
            ASSERT_TRUE(editors.contains({name, role})) << name << " " << role;
            const std::string found = editors[{name, role}];
            EXPECT_EQ(found, value) << name << " " << role;
        };
        for (int pen = 0; pen < KS_PEN_NONE; ++pen) {
            const std::string name = LocalString(pen_labels[pen]);
            const ks_color color = _colors[pen]->Color();
            char value[10];
            std::snprintf(value, sizeof value, color.alpha < 255 ? "#%02x%02x%02x04" : "#%02x%02x%02x",
                          color.red, color.green, color.blue);
            expect(name, QAccessible::ColorChooser, value);
            if (pen < kBackgroundCount)
                expect(name + ": bitmap", QAccessible::EditableText, pen == 0 ? path : "");
        }
        for (int i = 0; i < kFontCount; ++i) {
            const BFont font = _fonts[i]->Font();
            expect(LocalString(font_labels[i]), QAccessible::ButtonDropDown,
                   font.Family() + " " + font.Style() + ", " + std::to_string(std::lround(font.Size())));
        }
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
    });
}

}  // namespace
