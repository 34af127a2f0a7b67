// SPDX-License-Identifier: MIT
#include "display/path_text.h"

#include <QDir>
#include <QUrl>

#include <cstring>

QString PathFrom(const QString& text) {
    QString path = text.trimmed();
    for (const char* scheme : {"file://localhost", "file://", "file:"})
        if (path.startsWith(QLatin1String(scheme), Qt::CaseInsensitive)) {
            const QString rest = path.mid(static_cast<qsizetype>(std::strlen(scheme)));
            if (rest.startsWith(u'/') && !rest.startsWith(QLatin1String("//")))
                return QUrl::fromPercentEncoding(rest.toUtf8());
        }
    if (path.startsWith(QLatin1String("~/")))
        path.replace(0, 1, QDir::homePath());
    return path;
}
