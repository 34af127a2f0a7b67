// SPDX-License-Identifier: MIT
// The dialog of family, style and size that a font pop-up opens.
#pragma once

#include "kits/BFont.h"

#include <QDialog>
#include <QFont>

class QDoubleSpinBox;
class QLabel;
class QListWidget;
class QListWidgetItem;

// Returns the installed font that comes nearest.
QFont ToQFont(const BFont& font);

class FontPanel : public QDialog {
public:
    // Starts with `font`, which is offered even where it is not installed. Other names are offered only when
    // they fit the settings file.
    FontPanel(const BFont& font, QWidget* parent);

    BFont Font() const;

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
};
