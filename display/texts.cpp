// SPDX-License-Identifier: MIT
#include "display/texts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QString>
#include <QTranslator>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace {

// What Qt calls the languages of the bundled catalogs.
struct code {
    std::string_view language;
    const char* qt;
};

constexpr code kCodes[] = {{"deutsch", "de"},  {"espanol", "es"},      {"francais", "fr"},
                           {"italiano", "it"}, {"nederlands", "nl"},   {"nihongo", "ja"},
                           {"polski", "pl"},   {"portugues", "pt_BR"}, {"svenska", "sv"}};

}  // namespace

QString texts::Text(const text& row) {
    return QString::fromUtf8(ks_toolkit_locale->String(row));
}

void texts::TranslateQt(QCoreApplication& application) {
    const auto* row = std::ranges::find(kCodes, ks_toolkit_locale->Language(), &code::language);
    if (row == std::end(kCodes))
        return;
    auto* translator = new QTranslator(&application);
    if (translator->load(QStringLiteral("qtbase_") + QLatin1String(row->qt),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
}
