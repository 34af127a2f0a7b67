// SPDX-License-Identifier: MIT
// The lists are filled when the panel is opened: looking up every font takes longer than the whole start.
#include "display/font_panel.h"

#include "display/look.h"
#include "display/texts.h"
#include "toolkit/settings_values.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>

namespace {

constexpr double kSmallest = 1, kLargest = 512, kStep = 0.5;

// Qt lists families that share a name as "Family [Foundry]".
QString FamilyName(const QString& listed) {
    const qsizetype foundry = listed.indexOf(QLatin1String(" ["));
    return foundry > 0 && listed.endsWith(u']') ? listed.left(foundry) : listed;
}

bool CanBeStored(const QString& name) {
    return ks_fits_font_field(name.toStdString());
}

QListWidget* AddList(QGridLayout* grid, int column, const texts::text& title, QWidget* parent) {
    auto* list = new QListWidget(parent);
    auto* label = new QLabel(texts::Text(title), parent);
    label->setBuddy(list);
    list->setAccessibleName(label->text().remove(u'&'));
    grid->addWidget(label, 0, column);
    grid->addWidget(list, 1, column);
    return list;
}

// Selects the row of this text; returns false when there is none.
bool SelectRow(QListWidget* list, const QString& text) {
    const QList<QListWidgetItem*> found = list->findItems(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (found.isEmpty())
        return false;
    list->setCurrentItem(found.front());
    return true;
}

QString CurrentText(const QListWidget* list) {
    return list->currentItem() ? list->currentItem()->text() : QString();
}

}  // namespace

QFont ToQFont(const BFont& font) {
    QFont result(QString::fromStdString(font.Family()));
    result.setStyleName(QString::fromStdString(font.Style()));
    result.setPointSizeF(look::BoundedPoints(font.Size(), kSmallest, kLargest));
    return result;
}

FontPanel::FontPanel(const BFont& font, QWidget* parent) : QDialog(parent), _start(font) {
    setAttribute(Qt::WA_DeleteOnClose);
    auto* grid = new QGridLayout(this);
    _families = AddList(grid, 0, texts::kFamily, this);
    _styles = AddList(grid, 1, texts::kStyle, this);

    auto* size_label = new QLabel(texts::Text(texts::kSize), this);
    _size = new QDoubleSpinBox(this);
    _size->setDecimals(2);
    _size->setRange(kSmallest, kLargest);
    _size->setSingleStep(kStep);
    _size->setValue(look::BoundedPoints(font.Size(), kSmallest, kLargest));
    _size_at_start = _size->value();
    _size->setAccessibleName(size_label->text().remove(u'&'));
    size_label->setBuddy(_size);
    grid->addWidget(size_label, 0, 2);
    grid->addWidget(_size, 1, 2, Qt::AlignTop);

    _sample = new QLabel(texts::Text(texts::kSample), this);
    _sample->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
    _sample->setAlignment(Qt::AlignCenter);
    _sample->setFixedHeight(fontMetrics().height() * 4);
    _sample->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    grid->addWidget(_sample, 2, 0, 1, 3);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    grid->addWidget(buttons, 3, 0, 1, 3);
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 2);
    grid->setSpacing(look::kGap);
    resize(560, 400);

    FillFamilies();
    FillStyles();
    ShowSample();
    connect(_families, &QListWidget::currentRowChanged, this, [this] { FillStyles(); });
    connect(_styles, &QListWidget::currentRowChanged, this, [this] { ShowSample(); });
    connect(_size, &QDoubleSpinBox::valueChanged, this, [this] { ShowSample(); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void FontPanel::FillFamilies() {
    QStringList families;
    for (const QString& listed : QFontDatabase::families())
        if (const QString name = FamilyName(listed);
            CanBeStored(name) && !QFontDatabase::isPrivateFamily(listed))
            families.append(name);
    families.removeDuplicates();
    _families->addItems(families);
    const QString present = QString::fromStdString(_start.Family());
    if (!SelectRow(_families, present)) {
        _families->insertItem(0, present);
        _families->setCurrentRow(0);
    }
    _families->scrollToItem(_families->currentItem(), QAbstractItemView::PositionAtCenter);
}

void FontPanel::FillStyles() {
    const QString family = CurrentText(_families);
    const QString before = _styles->count() ? CurrentText(_styles) : QString::fromStdString(_start.Style());
    {
        const QSignalBlocker blocker(_styles);
        _styles->clear();
        for (const QString& style : QFontDatabase::styles(family))
            if (CanBeStored(style))
                _styles->addItem(style);
        // The font that the panel started with keeps its style, installed or not.
        const QString present = QString::fromStdString(_start.Style());
        if (family == QString::fromStdString(_start.Family()) && !present.isEmpty() &&
            _styles->findItems(present, Qt::MatchExactly | Qt::MatchCaseSensitive).isEmpty())
            _styles->insertItem(0, present);
        if (_styles->count() == 0)
            _styles->addItem(QStringLiteral("Regular"));
        if (!SelectRow(_styles, before))
            _styles->setCurrentRow(0);
    }
    ShowSample();
}

void FontPanel::ShowSample() {
    const BFont font = Font();
    _sample->setFont(ToQFont(font));
    if (_changed)
        _changed(font);
}

BFont FontPanel::Font() const {
    BFont font = _start;
    font.SetFamilyAndStyle(CurrentText(_families).toUtf8().constData(),
                           CurrentText(_styles).toUtf8().constData());
    // A size that was not touched stays as it was, unrounded and unbounded.
    if (_size->value() != _size_at_start)
        font.SetSize(static_cast<float>(_size->value()));
    return font;
}
