// What differs between platforms below Qt's level; one source file per platform. Nothing here raises an
// error: failures are told by result.
#pragma once

#include <memory>
#include <QByteArray>
#include <QString>
#include <Qt>

namespace support::platform {

enum class Failure { None, NotFound, NoPermission, DiskFull, NoFolder, Access };

// Whether file names that differ in nothing but upper and lower case are the same, as a rule.
Qt::CaseSensitivity PathCase();
// What tells a file from every other one, however its path is written; empty where it isn't there or the
// platform doesn't tell.
QByteArray FileIdentity(const QString &path);

// Waits until the content of a file is on the disk.
Failure FlushFile(const QString &path);
// Puts `newFile` in the place of `target` in one step and waits until the folder's entry is on the disk.
Failure RenameOver(const QString &newFile, const QString &target);
// Creates a file that must not exist yet, empty.
Failure CreateNew(const QString &path);
// True for a folder itself, not a link to one, that belongs to this user and that nobody else may enter.
bool IsPrivateFolder(const QString &path);
// Makes a folder into which only the user may look, and the folders above it; true when it is there
// afterwards.
bool MakePrivateFolder(const QString &path);
// Writes all of `bytes` to a file that exists, behind its content or in place of it.
enum class WriteMode { Replace, Append };
Failure WriteFile(const QString &path, const QByteArray &bytes, WriteMode mode);
// Gives `path` the permissions of `model`.
void CopyPermissions(const QString &model, const QString &path);

// The path of the running executable.
QString ExecutablePath();
// That of the program of this name (without an ending) in the same folder, whether or not it is there.
QString CompanionProgram(const QString &name);
// The 8.3 and the long form; empty where there is none.
QString ShortForm(const QString &path);
QString LongForm(const QString &path);
// The system's folders, without a separator at their ends.
QString WindowsFolder();
QString SystemFolder();
// Where programs keep what must outlive them, but isn't the user's own work as yet, without a separator at
// its end; the folder need not exist.
QString StateFolder();
// Where programs keep what their user has chosen, in the same way.
QString ConfigFolder();
// Where programs keep what their user has made with them, in the same way.
QString DataFolder();
// Where programs keep what they can make again, in the same way.
QString CacheFolder();
// Whether this user may make files in the folder and replace those that are there. A folder that has every
// right to write taken away is left alone by an administrator's program too. False where there is none.
bool MayWriteInto(const QString &folder);
// The login name.
QString UserName();

// A lock between processes, and between objects of one process, held until destroyed.
class FileLock {
public:
    virtual ~FileLock() = default;
};
// Waits up to `milliseconds` for the lock that `path` names (the file is made and stays); null when not got.
std::unique_ptr<FileLock> Lock(const QString &path, int milliseconds);
// The same on a file that must exist. The file can be read, written, renamed and deleted meanwhile. Null at
// once where the file system knows no locks.
std::unique_ptr<FileLock> LockExisting(const QString &path, int milliseconds);

// Percent of the memory that is available (Linux, macOS) or in use (Windows). -1 when the platform doesn't
// tell it, and on the other platforms.
int AvailableMemoryPercent();
int MemoryLoadPercent();

} // namespace support::platform
