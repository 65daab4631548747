// Many files that come into being together, which cost much to flush one by one. Errors are those of
// support/AtomicFile.h.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace support {

// Makes a file that must not be there yet, without waiting for the disk.
void WriteNewFile(const QString &path, const QByteArray &bytes);
// Waits until all these files of `newFolder` are on the disk, then renames each over the one of its name in
// `folder`, on the same disk, and flushes the folder once. An error before the first rename leaves all
// targets as they were; after a later one each target is whole, the old file or the new one.
void ReplaceFiles(const QString &newFolder, const QStringList &names, const QString &folder);

} // namespace support
