// Whole text files.
#pragma once

#include <QString>

namespace output {

// The whole file as text: in the encoding of its byte order mark, else UTF-8, else Windows-1252. Error 53, 70
// or 75 with the path.
QString ReadFile(const QString &Path);
// Writes the text as UTF-8 without a byte order mark in the place of what was there, as a whole or not at
// all. A read-only file is written too and is read-only again afterwards. Errors are those of
// support::AtomicFile.
void WriteFile(const QString &Path, const QString &Text);

} // namespace output
