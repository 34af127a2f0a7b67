// SPDX-License-Identifier: MIT
// The dialog that a font pop-up opens, with family, style and size.
#pragma once

#include "kits/BFont.h"

#include <QDialog>
#include <QFont>

class QDoubleSpinBox;
class QLabel;
class QListWidget;
class QListWidgetItem;

// Returns the nearest installed font.
QFont ToQFont(const BFont& font);

class FontPanel : public QDialog {
public:
    // Starts with `font` and offers it even where it is not installed. Never offers other names that the
    // settings file cannot hold.
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
