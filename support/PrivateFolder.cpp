#include "support/PrivateFolder.h"

#include "support/Error.h"
#include "support/Files.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace support {

namespace {

const QString kLockName = QStringLiteral(".lock");

QString NameStart(const QString &purpose) { return QStringLiteral("velmora-%1-").arg(purpose); }

[[noreturn]] void RaiseNoFolder() { Raise(kErrPathFileAccess, QStringLiteral("PrivateFolder"), TempPath()); }

QString MakeFolder(const QString &purpose) {
    QTemporaryDir folder(QDir::tempPath() + QLatin1Char('/') + NameStart(purpose) + QStringLiteral("XXXXXX"));
    folder.setAutoRemove(false);
    if (!folder.isValid() || !platform::IsPrivateFolder(folder.path())) RaiseNoFolder();
    return folder.path();
}

QString LockFile(const QString &folder) { return folder + QLatin1Char('/') + kLockName; }

// This user's own folders: in a temporary folder that all share, others may have made folders of such names.
QStringList OwnFolders(const QString &purpose) {
    QStringList paths;
    const QDir temp(QDir::tempPath());
    for (const QString &name :
         temp.entryList({NameStart(purpose) + QLatin1Char('*')},
                        QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot, QDir::Name))
        if (platform::IsPrivateFolder(temp.filePath(name))) paths.append(temp.filePath(name));
    return paths;
}

bool IsOld(const QString &folder) {
    return QFileInfo(folder).lastModified() < QDateTime::currentDateTime().addDays(-1);
}

void SweepFolder(const QString &folder) {
    const QString lockFile = LockFile(folder);
    if (!QFileInfo::exists(lockFile)) {
        if (IsOld(folder)) QDir(folder).removeRecursively();
        return;
    }
    // Held while the content goes, so that whoever has just made the folder sees that it does.
    if (const auto lock = platform::LockExisting(lockFile, 0)) QDir(folder).removeRecursively();
}

} // namespace

// A sweep that runs just now may take a folder away before its lock is held: then another is made. Where the
// file system knows no locks, the last one does without.
PrivateFolder::PrivateFolder(const QString &purpose) {
    constexpr int kTries = 3;
    for (int left = kTries; left > 0 && !lock_; --left) {
        if (!path_.isEmpty()) QDir(path_).removeRecursively();
        path_ = MakeFolder(purpose);
        lock_ = platform::Lock(LockFile(path_), 0);
        if (!QFileInfo::exists(LockFile(path_))) lock_.reset();
    }
    if (!QFileInfo::exists(path_)) RaiseNoFolder();
    path_ = QDir::toNativeSeparators(path_);
}

PrivateFolder::~PrivateFolder() {
#ifdef Q_OS_WIN
    lock_.reset(); // a file that is open cannot go there
#endif
    QDir(path_).removeRecursively();
}

void SweepPrivateFolders(const QString &purpose) {
    for (const QString &folder : OwnFolders(purpose)) SweepFolder(folder);
}

QString LastingPrivateFolder(const QString &purpose) {
    const QStringList folders = OwnFolders(purpose);
    return folders.isEmpty() ? MakeFolder(purpose) : folders.first();
}

QStringList LastingPrivateFolders(const QString &purpose) { return OwnFolders(purpose); }

} // namespace support
