// SPDX-License-Identifier: MIT
// Reading pictures from files: whatever the GUI library reads, and every TGA.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

// Whether the file is a picture that can be read, from its first bytes. Never waits: what is no regular file
// is no picture.
bool IsPicture(const QString& path);

// Returns the picture, reduced to fit into `bounds` where those are not empty; a null image when the file
// cannot be read or is unreasonably large.
QImage ReadPicture(const QString& path, QSize bounds = {});
