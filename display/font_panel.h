// SPDX-License-Identifier: MIT
// The dialog that a font pop-up opens, with family, style and size.
#pragma once

#include "kits/BFont.h"

#include <QDialog>
#include <QFont>

#include <functional>
#include <utility>

class QDoubleSpinBox;
class QLabel;
class QListWidget;
class QListWidgetItem;

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

private:
    void FillFamilies();
    void FillStyles();
    void ShowSample();

    BFont _start;
    QListWidget* _families;
    QListWidget* _styles;
    QDoubleSpinBox* _size;
    double _size_at_start;
    QLabel* _sample;
    std::function<void(const BFont&)> _changed;
};
