// Where journals stand: one folder each, with the file of the journal, copies of embedded files, and a lock
// that the program holds as long as it keeps the journal.
#pragma once

#include "support/Platform.h"

#include <QString>

namespace recovery {

using FileLock = std::unique_ptr<support::platform::FileLock>;

// The folder of all journals of the product, below the user's state folder.
QString JournalsFolder();

QString JournalPath(const QString &folder);
QString CopyPath(const QString &folder, const QString &name);

struct HeldFolder {
    QString path; // empty while there is none
    FileLock lock;
};

// A new folder in `root`, held. Error 75 "Path/File access error", 70 or 61 when it can't be made.
HeldFolder MakeFolder(const QString &root);
// Holds the folder; the result is empty when a program, this one too, holds it already.
HeldFolder HoldFolder(const QString &path);
// Deletes the folder and its files, as far as they can be deleted.
void RemoveFolder(HeldFolder folder);

} // namespace recovery
