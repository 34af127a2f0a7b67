// SPDX-License-Identifier: MIT
// The dialog that a font pop-up opens, with family, style, size and a sample.
#pragma once

#include "kits/BFont.h"

#include <QDialog>
#include <QFont>

#include <compare>
#include <functional>
#include <tuple>
#include <utility>

class NumberBox;
class QCheckBox;
class QGridLayout;
class QLineEdit;
class QListWidget;

// Returns the nearest installed font.
QFont ToQFont(const BFont& font);

class FontPanel : public QDialog {
public:
    // Starts with `font`, which is offered even where it is not installed. Other names are offered only when
    // they fit the settings file.
    FontPanel(const BFont& font, QWidget* parent);

    BFont Font() const;

    // Calls `changed` with the font whenever another one is chosen.
    void SetChangeListener(std::function<void(const BFont&)> changed) { _changed = std::move(changed); }

protected:
    // The Down key leads from the search to the list.
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void AddLists(QGridLayout* grid);
    void AddSearch(QGridLayout* grid);
    void AddSize(QGridLayout* grid);
    void AddSample(QGridLayout* grid);
    void FillFamilies();
    // Hides the families that are not looked for.
    void Search();
    // Chooses the first family that is found, unless the chosen one is among them.
    void TakeFound();
    // Fills the styles of the chosen family and selects the one nearest to the style that the user wants.
    void FillStyles();
    void ShowSample();

    // How a style looks. Styles are listed in this order.
    struct font_style {
        bool is_of_other_width;
        int weight;
        bool is_slanted;

        auto operator<=>(const font_style&) const = default;
    };
    static font_style StyleOf(const QString& family, const QString& name);
    // How far a style is from the one that the user wants.
    std::tuple<bool, int, bool> DistanceOf(const font_style& other) const;

    BFont _start;
    QString _wanted_name;  // of the style
    font_style _wanted;
    QLineEdit* _search;
    QCheckBox* _fixed_only;
    QListWidget* _families;
    QListWidget* _styles;
    NumberBox* _size;
    double _size_at_start;
    QLineEdit* _sample;
    std::function<void(const BFont&)> _changed;
};
