// SPDX-License-Identifier: MIT
// The lists are filled when the panel is opened: looking up every font takes longer than the whole start.
#include "display/font_panel.h"

#include "display/look.h"
#include "display/number_box.h"
#include "display/screen_fit.h"
#include "display/texts.h"
#include "display/typed_text.h"
#include "toolkit/KSPopFont.h"
#include "toolkit/settings_values.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

constexpr double kStep = 0.5;
constexpr QSize kPanel(560, 440);
constexpr int kSampleFrame = 8;

// Qt lists families that share a name as "Family [Foundry]".
QString FamilyName(const QString& listed) {
    const qsizetype foundry = listed.indexOf(QLatin1String(" ["));
    return foundry > 0 && listed.endsWith(u']') ? listed.left(foundry) : listed;
}

bool CanBeStored(const QString& name) {
    return ks_fits_font_field(name.toStdString());
}

// Whether a style is not of the family's usual width.
bool IsOfOtherWidth(const QString& style) {
    const auto has = [&](const char* word) {
        return style.contains(QLatin1String(word), Qt::CaseInsensitive);
    };
    return has("Condensed") || has("Narrow") || has("Compressed") || has("Expanded") || has("Extended");
}

QLabel* AddLabel(QGridLayout* grid, int column, const texts::text& title, QWidget* editor) {
    auto* label = new QLabel(texts::Text(title), editor->parentWidget());
    label->setBuddy(editor);
    editor->setAccessibleName(label->text().remove(u'&'));
    grid->addWidget(label, 0, column);
    return label;
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
    result.setPointSizeF(look::BoundedPoints(font.Size(), kSmallestFontSize, kLargestFontSize));
    return result;
}

FontPanel::FontPanel(const BFont& font, QWidget* parent)
    : QDialog(parent),
      _start(font),
      _wanted_name(QString::fromStdString(font.Style())),
      _wanted(StyleOf(QString::fromStdString(font.Family()), _wanted_name)) {
    setAttribute(Qt::WA_DeleteOnClose);
    auto* grid = new QGridLayout(this);
    AddLists(grid);
    AddSearch(grid);
    AddSize(grid);
    AddSample(grid);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    grid->addWidget(buttons, 5, 0, 1, 3);
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 2);
    grid->setSpacing(look::kGap);
    PlaceDialog(*this, kPanel, *parent);

    FillFamilies();
    FillStyles();
    connect(_families, &QListWidget::currentRowChanged, this, [this] { FillStyles(); });
    connect(_styles, &QListWidget::currentTextChanged, this, [this](const QString& style) {
        _wanted_name = style;
        _wanted = StyleOf(CurrentText(_families), style);
        ShowSample();
    });
    connect(_size, &QDoubleSpinBox::valueChanged, this, [this] { ShowSample(); });
    for (const QListWidget* list : {_families, _styles})
        connect(list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
}

void FontPanel::AddLists(QGridLayout* grid) {
    _families = new QListWidget(this);
    _styles = new QListWidget(this);
    AddLabel(grid, 0, texts::kFamily, _families);
    AddLabel(grid, 1, texts::kStyle, _styles);
    grid->addWidget(_families, 2, 0);
    grid->addWidget(_styles, 1, 1, 2, 1);
}

void FontPanel::AddSearch(QGridLayout* grid) {
    _search = new QLineEdit(this);
    _search->setPlaceholderText(texts::Text(texts::kSearch));
    _search->setAccessibleName(_search->placeholderText());
    _search->installEventFilter(this);
    LetEnterTakeTypedText(_search, _search);
    _fixed_only = new QCheckBox(texts::Text(texts::kFixedOnly), this);
    connect(_search, &QLineEdit::textChanged, this, [this] { Search(); });
    connect(_search, &QLineEdit::returnPressed, this, [this] { TakeFound(); });
    connect(_fixed_only, &QCheckBox::toggled, this, [this] { Search(); });
    grid->addWidget(_search, 1, 0);
    grid->addWidget(_fixed_only, 3, 0, 1, 3);
}

void FontPanel::AddSize(QGridLayout* grid) {
    _size = new NumberBox(this);
    _size->setRange(kSmallestFontSize, kLargestFontSize);
    _size->setSingleStep(kStep);
    _size->setValue(look::BoundedPoints(_start.Size(), kSmallestFontSize, kLargestFontSize));
    _size_at_start = _size->value();
    QLabel* label = AddLabel(grid, 2, texts::kSize, _size);
    label->setText(label->text() + QStringLiteral(" (pt)"));
    grid->addWidget(_size, 1, 2);
}

void FontPanel::AddSample(QGridLayout* grid) {
    _sample = new QLineEdit(texts::Text(texts::kSample), this);
    _sample->setAccessibleName(texts::Text(texts::kSampleText));
    _sample->setAlignment(Qt::AlignCenter);
    _sample->setFixedHeight(fontMetrics().height() * 4);
    _sample->setCursorPosition(0);
    grid->addWidget(_sample, 4, 0, 1, 3);
}

bool FontPanel::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down) {
        TakeFound();
        _families->setFocus();
        return true;
    }
    return QDialog::eventFilter(object, event);
}

void FontPanel::Search() {
    const QStringList words = _search->text().split(u' ', Qt::SkipEmptyParts);
    for (int row = 0; row < _families->count(); ++row) {
        const QString family = _families->item(row)->text();
        const bool is_found = std::ranges::all_of(
            words, [&](const QString& word) { return family.contains(word, Qt::CaseInsensitive); });
        _families->setRowHidden(row, !is_found ||
                                         (_fixed_only->isChecked() && !QFontDatabase::isFixedPitch(family)));
    }
    _families->scrollToItem(_families->currentItem());
}

void FontPanel::TakeFound() {
    const auto is_hidden = [this](int row) { return _families->isRowHidden(row); };
    if (!is_hidden(_families->currentRow()))
        return;
    for (int row = 0; row < _families->count(); ++row)
        if (!is_hidden(row)) {
            _families->setCurrentRow(row);
            return;
        }
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

FontPanel::font_style FontPanel::StyleOf(const QString& family, const QString& name) {
    if (QFontDatabase::styles(family).contains(name)) {
        const QFont font = QFontDatabase::font(family, name, look::kSmallestPoints);
        return {IsOfOtherWidth(name), font.weight(), font.style() != QFont::StyleNormal};
    }
    // Of a font that is not installed only the name tells.
    const auto has = [&](const char* word) {
        return name.contains(QLatin1String(word), Qt::CaseInsensitive);
    };
    return {IsOfOtherWidth(name), has("Bold") ? QFont::Bold : QFont::Normal, has("Italic") || has("Oblique")};
}

void FontPanel::FillStyles() {
    const QString family = CurrentText(_families);
    QStringList styles;
    for (const QString& style : QFontDatabase::styles(family))
        if (CanBeStored(style))
            styles.append(style);
    std::ranges::sort(styles, {},
                      [&](const QString& name) { return std::pair(StyleOf(family, name), name); });
    // The font that the panel started with keeps its style, installed or not.
    const QString present = QString::fromStdString(_start.Style());
    if (family == QString::fromStdString(_start.Family()) && !present.isEmpty() && !styles.contains(present))
        styles.prepend(present);
    if (styles.isEmpty())
        styles.append(QStringLiteral("Regular"));
    {
        const QSignalBlocker blocker(_styles);
        _styles->clear();
        _styles->addItems(styles);
        if (!SelectRow(_styles, _wanted_name))
            SelectRow(_styles, *std::ranges::min_element(styles, {}, [&](const QString& name) {
                          return DistanceOf(StyleOf(family, name));
                      }));
    }
    ShowSample();
}

// Slant first, then weight, then width.
std::tuple<bool, int, bool> FontPanel::DistanceOf(const font_style& other) const {
    return {other.is_slanted != _wanted.is_slanted, std::abs(other.weight - _wanted.weight),
            other.is_of_other_width != _wanted.is_of_other_width};
}

void FontPanel::ShowSample() {
    const BFont font = Font();
    QFont shown = ToQFont(font);
    const double room = _sample->height() - kSampleFrame, needed = QFontMetricsF(shown).height();
    if (needed > room)
        shown.setPointSizeF(shown.pointSizeF() * room / needed);
    _sample->setFont(shown);
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
