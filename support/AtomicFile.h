// Files that are replaced as a whole: written beside their target, flushed to the disk, then renamed over it,
// so that a failure at any moment leaves the old file as it was.
//
// Errors of everything here carry the path in their description: 53 "File not found", 61 "Disk full",
// 70 "Permission denied", 75 "Path/File access error", 76 "Path not found".
#pragma once

#include "support/Platform.h"

#include <QByteArray>
#include <QString>

namespace support {

// A new file in the folder of its target. Write to Path() by any means, close it, then Commit. A new file
// that was not committed is deleted with the object. The object holds a lock on it, so that others can tell
// it from one whose process was killed.
class AtomicFile {
public:
    // Creates the empty new file. A target that is a link stands for the file that it leads to. Error 75 when
    // the target is a folder or may not be written, 76 when its folder is missing, 70 when that may not be
    // written.
    explicit AtomicFile(const QString &target);
    ~AtomicFile();
    AtomicFile(const AtomicFile &) = delete;
    AtomicFile &operator=(const AtomicFile &) = delete;

    const QString &Path() const { return path_; }
    const QString &Target() const { return target_; }

    // Replaces what the new file holds.
    void Write(const QByteArray &bytes);
    // Adds to it.
    void Append(const QByteArray &bytes);
    // Gives the new file the target's permissions, flushes it and renames it over the target. Once only.
    void Commit();

private:
    QString target_;
    QString path_;
    std::unique_ptr<platform::FileLock> lock_;
    bool committed_ = false;
};

// Deletes the new files beside `target` that processes left when they were killed: those that nobody holds a
// lock on. Where the file system knows no locks none is deleted.
void SweepNewFiles(const QString &target);

// Waits until the file's content is on the disk.
void FlushToDisk(const QString &path);
// Renames `newFile` over `target`, which need not exist, both in one folder, and flushes the folder's entry.
// After an error the target is as it was.
void ReplaceFile(const QString &newFile, const QString &target);
// Copies the content of `source` to `target`, replaced as a whole when it exists.
void CopyFileTo(const QString &source, const QString &target);
// The whole file; error 53 or 70 or 75.
QByteArray ReadWholeFile(const QString &path);

} // namespace support
