// SPDX-License-Identifier: MIT
#include "display/number_box.h"

#include "display/typed_text.h"

#include <QLineEdit>
#include <QLocale>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr QStringView kSeparators = u".,\u066B";
constexpr QStringView kSigns = u"+-\u2212";
constexpr qsizetype kGroup = 3;  // digits

// Between the digits of a large number, or around an Arabic sign.
bool IsFiller(QChar character) {
    return character.isSpace() || QStringView(u"'\u2019\u066C\u200E\u200F\u061C").contains(character);
}

bool IsOfNumber(QChar character) {
    return character.isDigit() || kSeparators.contains(character) || kSigns.contains(character) ||
           IsFiller(character);
}

// Returns the text in plain digits and signs, without what only fills it.
QString Plain(const QString& text) {
    QString plain;
    for (const QChar character : text)
        if (character.isDigit())
            plain += QChar(u'0' + character.digitValue());
        else if (kSigns.contains(character))
            plain += character == u'+' ? u'+' : u'-';
        else if (!IsFiller(character))
            plain += character;
    return plain;
}

// The last separator is the decimal one, unless it occurs twice or stands before the last three digits of
// what can only be a whole number: then it groups digits, as the others do.
std::optional<double> ReadNumber(const QString& text, bool is_whole) {
    QString plain = Plain(text);
    const auto is_separator = [](QChar character) { return kSeparators.contains(character); };
    const auto found = std::find_if(plain.crbegin(), plain.crend(), is_separator);
    if (found != plain.crend()) {
        const qsizetype decimals = found - plain.crbegin();
        const bool groups = plain.count(*found) > 1 || (is_whole && decimals == kGroup);
        plain.removeIf(is_separator);
        if (!groups)
            plain.insert(plain.size() - decimals, u'.');
    }
    bool is_number;
    const double number = plain.toDouble(&is_number);
    return is_number && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

}  // namespace

NumberBox::NumberBox(QWidget* parent) : QDoubleSpinBox(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAlignment(Qt::AlignRight);
    LetEnterTakeTypedText(lineEdit(), this);
}

QValidator::State NumberBox::validate(QString& text, int& position) const {
    QString kept = text;
    while (!kept.isEmpty() && (IsFiller(kept.back()) || !IsOfNumber(kept.back())))
        kept.chop(1);
    if (!std::ranges::all_of(kept, IsOfNumber) || kept.isEmpty() != text.isEmpty())
        return QValidator::Invalid;
    text = kept;
    position = std::min(position, static_cast<int>(text.size()));
    const std::optional<double> number = ReadNumber(text, decimals() == 0);
    return number && *number >= minimum() && *number <= maximum() ? QValidator::Acceptable
                                                                  : QValidator::Intermediate;
}

void NumberBox::fixup(QString& text) const {
    const std::optional<double> number = ReadNumber(text, decimals() == 0);
    text = textFromValue(number ? std::clamp(*number, minimum(), maximum()) : value());
}

double NumberBox::valueFromText(const QString& text) const {
    const double unit = std::pow(10, decimals());
    return std::round(ReadNumber(text, decimals() == 0).value_or(value()) * unit) / unit;
}

QString NumberBox::textFromValue(double value) const {
    QLocale plain = locale();
    plain.setNumberOptions(QLocale::OmitGroupSeparator);
    return plain.toString(value, 'f', QLocale::FloatingPointShortest);
}

void NumberBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QDoubleSpinBox::wheelEvent(event);
    else
        event->ignore();
}
