// SPDX-License-Identifier: MIT
// What is typed, pasted or dropped for a path.
#pragma once

#include <QString>

// Returns the path that a text means: without blanks and line ends around it, of a file:// address what it
// stands for, and with the home directory for a leading "~/".
QString PathFrom(const QString& text);
