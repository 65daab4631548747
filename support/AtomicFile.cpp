#include "support/AtomicFile.h"

#include "support/Error.h"
#include "support/Files.h"
#include "support/Platform.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

namespace support {

namespace {

using platform::Failure;

// Error number and text of a failure.
struct FailureText {
    Failure failure;
    long number;
    const char *text;
};
constexpr FailureText kFailureTexts[] = {
    {Failure::NotFound, kErrFileNotFound, "File not found"},
    {Failure::NoPermission, kErrPermissionDenied, "Permission denied"},
    {Failure::DiskFull, kErrDiskFull, "Disk full"},
    {Failure::NoFolder, kErrPathNotFound, "Path not found"},
    {Failure::Access, kErrPathFileAccess, "Path/File access error"},
};

[[noreturn]] void Raise(Failure failure, const char *routine, const QString &path) {
    for (const FailureText &row : kFailureTexts)
        if (row.failure == failure)
            throw Error(row.number, QString::fromLatin1(routine),
                        QStringLiteral("%1: %2").arg(QLatin1String(row.text), path));
    throw Error(kErrPathFileAccess, QString::fromLatin1(routine), path);
}

void RaiseIfFailed(Failure failure, const char *routine, const QString &path) {
    if (failure != Failure::None) Raise(failure, routine, path);
}

// The file that `path` leads to, through links; itself when it leads nowhere.
QString ResolvedTarget(const QString &path) {
    const QFileInfo info(path);
    if (!info.isSymLink()) return info.absoluteFilePath();
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? info.symLinkTarget() : canonical;
}

QString NewNameBeside(const QString &target) {
    const QFileInfo info(target);
    return QStringLiteral("%1/.%2.%3.new")
        .arg(info.absolutePath(), info.fileName().left(60),
             QString::number(QRandomGenerator::global()->generate64(), 36));
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
    const QString path = NewNameBeside(target_);
    RaiseIfFailed(platform::CreateNew(path), "AtomicFile", target_);
    path_ = path;
}

AtomicFile::~AtomicFile() {
    if (!committed_) QFile::remove(path_);
}

void AtomicFile::Write(const QByteArray &bytes) {
    RaiseIfFailed(platform::WriteFile(path_, bytes, platform::WriteMode::Replace), "AtomicFile", target_);
}

void AtomicFile::Commit() {
    if (QFileInfo::exists(target_)) platform::CopyPermissions(target_, path_);
    RaiseIfFailed(platform::FlushFile(path_), "AtomicFile", target_);
    RaiseIfFailed(platform::RenameOver(path_, target_), "AtomicFile", target_);
    committed_ = true;
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
