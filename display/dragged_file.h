// SPDX-License-Identifier: MIT
#pragma once

#include <QMimeData>
#include <QString>
#include <QUrl>

// Returns the path of the one local file that is dragged, or an empty one.
inline QString DraggedFile(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 && urls.front().isLocalFile() ? urls.front().toLocalFile() : QString();
}
