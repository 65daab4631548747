// Files that do something of their own when they are opened.
#pragma once

#include <QString>

namespace support {

// Whether opening the file can run it or something that it names, on whatever platform: by the ending of its
// name, or of the file that a link leads to, by what it begins with, and by its right to be executed. False
// for a folder, and for what isn't there and has no such name. Reads a few bytes at most.
bool CanRun(const QString &path);
// The part that looks at a name alone.
bool IsNamedLikeAProgram(const QString &path);
// The part that looks at the beginning of a file's content.
bool BeginsLikeAProgram(const QByteArray &beginning);

} // namespace support
