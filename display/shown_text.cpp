// SPDX-License-Identifier: MIT
#include "display/shown_text.h"

#include <QStringList>

namespace {

constexpr qsizetype kMostLines = 20;  // of a tip, which must fit the screen too

bool BreaksLine(QChar character) {
    const QChar::Category category = character.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

// Returns whether a blank divides the text into two lines that are short enough.
bool FitsTwoLines(const QString& text) {
    const qsizetype blank = text.lastIndexOf(u' ', kLongestLine);
    return blank >= 0 && text.size() - blank - 1 <= kLongestLine;
}

}  // namespace

QString ShownText(const QString& text, bool may_break) {
    QString line = text;
    for (QChar& character : line)
        if (BreaksLine(character))
            character = u' ';
    return may_break && FitsTwoLines(line) ? line : CutText(line, kLongestLine);
}

QString TipFor(const QString& text, const QString& shown) {
    if (shown.size() == text.size())
        return {};
    QStringList lines;
    QString rest = text;
    while (!rest.isEmpty() && lines.size() < kMostLines) {
        const qsizetype blank = rest.size() > kLongestLine ? rest.lastIndexOf(u' ', kLongestLine) : -1;
        const qsizetype end = blank > 0 ? blank + 1 : kLongestLine;
        lines.append(rest.left(end).toHtmlEscaped());
        rest.remove(0, end);
    }
    return QStringLiteral("<p style='white-space:pre'>") + lines.join(QStringLiteral("<br>"));
}

QString CutText(const QString& text, qsizetype length) {
    if (text.size() <= length)
        return text;
    // Not between the halves of one character.
    const qsizetype kept = text[length - 2].isHighSurrogate() ? length - 2 : length - 1;
    return text.left(kept) + u'…';
}
