#include "support/AtomicFile.h"

#include "support/FileErrors.h"
#include "support/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>

namespace support {

namespace {

using platform::Failure;

// The file that `path` leads to, through links; itself when it leads nowhere.
QString ResolvedTarget(const QString &path) {
    const QFileInfo info(path);
    if (!info.isSymLink()) return info.absoluteFilePath();
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? info.symLinkTarget() : canonical;
}

// What the names of the new files of a target begin with.
QString NewNameStart(const QFileInfo &target) {
    constexpr int kLongest = 60; // characters, so that the whole stays below what file systems allow
    return QStringLiteral(".%1.").arg(target.fileName().left(kLongest));
}

constexpr QLatin1String kNewNameEnd(".new");

QString NewNameBeside(const QString &target) {
    const QFileInfo info(target);
    return info.absolutePath() + QLatin1Char('/') + NewNameStart(info) +
           QString::number(QRandomGenerator::global()->generate64(), 36) + kNewNameEnd;
}

// Whether a name is that of a new file of the target, of which `start` is NewNameStart, or of a copy kept of
// it (NAME.bak, NAME.1.bak).
bool IsNewName(const QString &name, const QString &start) {
    static const QRegularExpression rest(QStringLiteral("\\A(([0-9]+\\.)?bak\\.)?[0-9a-z]{1,13}\\z"));
    return name.startsWith(start) && name.endsWith(kNewNameEnd) &&
           rest.match(name.mid(start.size(), name.size() - start.size() - kNewNameEnd.size())).hasMatch();
}

// Takes the lock of a file just made. False when a sweep came in between and took the file away; a file
// system without locks gives none, and the file stays.
bool LockNewFile(const QString &path, std::unique_ptr<platform::FileLock> &lock) {
    constexpr int kSweepMilliseconds = 50;
    lock = platform::LockExisting(path, kSweepMilliseconds);
    return QFileInfo::exists(path);
}

void RaiseUnlessReplaceable(const QString &target) {
    const QFileInfo info(target);
    if (!QFileInfo(info.absolutePath()).isDir()) Raise(Failure::NoFolder, "AtomicFile", target);
    if (info.isDir()) Raise(Failure::Access, "AtomicFile", target);
    if (info.exists() && IsReadOnly(target)) Raise(Failure::Access, "AtomicFile", target);
}

void OpenToRead(QFile &file, const char *routine, const QString &path) {
    const QFileInfo info(path);
    if (!info.exists()) Raise(Failure::NotFound, routine, path);
    if (info.isDir()) Raise(Failure::Access, routine, path);
    if (!file.open(QIODevice::ReadOnly))
        Raise(info.isReadable() ? Failure::Access : Failure::NoPermission, routine, path);
}

} // namespace

AtomicFile::AtomicFile(const QString &target) : target_(ResolvedTarget(target)) {
    RaiseUnlessReplaceable(target_);
    QString path;
    do {
        path = NewNameBeside(target_);
        RaiseIfFailed(platform::CreateNew(path), "AtomicFile", target_);
    } while (!LockNewFile(path, lock_));
    path_ = path;
}

AtomicFile::~AtomicFile() {
    if (!committed_) QFile::remove(path_);
}

void AtomicFile::Write(const QByteArray &bytes) {
    RaiseIfFailed(platform::WriteFile(path_, bytes, platform::WriteMode::Replace), "AtomicFile", target_);
}

void AtomicFile::Append(const QByteArray &bytes) {
    RaiseIfFailed(platform::WriteFile(path_, bytes, platform::WriteMode::Append), "AtomicFile", target_);
}

void AtomicFile::Commit() {
    if (QFileInfo::exists(target_)) platform::CopyPermissions(target_, path_);
    RaiseIfFailed(platform::FlushFile(path_), "AtomicFile", target_);
    RaiseIfFailed(platform::RenameOver(path_, target_), "AtomicFile", target_);
    committed_ = true;
    lock_.reset();
}

void SweepNewFiles(const QString &target) {
    const QFileInfo info(ResolvedTarget(target));
    const QDir folder(info.absolutePath());
    const QString start = NewNameStart(info);
    for (const QString &name : folder.entryList(QDir::Files | QDir::Hidden | QDir::NoSymLinks)) {
        if (!IsNewName(name, start)) continue;
        const QString path = folder.filePath(name);
        if (const auto lock = platform::LockExisting(path, 0)) QFile::remove(path);
    }
}

void FlushToDisk(const QString &path) { RaiseIfFailed(platform::FlushFile(path), "FlushToDisk", path); }

void ReplaceFile(const QString &newFile, const QString &target) {
    if (!QFileInfo::exists(newFile)) Raise(Failure::NotFound, "ReplaceFile", newFile);
    RaiseIfFailed(platform::RenameOver(newFile, target), "ReplaceFile", target);
}

void CopyFileTo(const QString &source, const QString &target) {
    constexpr qint64 kBlock = 1 << 20;
    QFile input(source);
    OpenToRead(input, "CopyFileTo", source);
    AtomicFile copy(target);
    while (!input.atEnd()) {
        const QByteArray block = input.read(kBlock);
        if (block.isEmpty()) Raise(Failure::Access, "CopyFileTo", source);
        RaiseIfFailed(platform::WriteFile(copy.Path(), block, platform::WriteMode::Append), "CopyFileTo",
                      target);
    }
    copy.Commit();
}

QByteArray ReadWholeFile(const QString &path) {
    QFile file(path);
    OpenToRead(file, "ReadWholeFile", path);
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) Raise(Failure::Access, "ReadWholeFile", path);
    return bytes;
}

} // namespace support
