// SPDX-License-Identifier: MIT
// Reads pictures from files: every format that Qt reads, and every TGA.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

// Returns whether the file is a picture that can be read, as far as its first bytes tell. Only regular files
// are read, so this never waits.
bool IsPicture(const QString& path);

// Returns the picture, made smaller to fit into `bounds` unless those are empty. Returns a null image when
// the file cannot be read or is unreasonably large.
QImage ReadPicture(const QString& path, QSize bounds = {});
