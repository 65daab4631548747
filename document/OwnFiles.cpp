#include "document/OwnFiles.h"

#include "support/AtomicFile.h"

#include <QFile>
#include <QFileInfo>

namespace document {

FileStamp OwnFiles::StampOf(const QString &path) {
    const QFileInfo info(path);
    return {info.size(), info.lastModified()};
}

void OwnFiles::Add(const QString &path) {
    own_.insert(path, StampOf(path));
    Saw(path);
}

void OwnFiles::Saw(const QString &path) { seen_.insert(path, StampOf(path)); }

bool OwnFiles::ChangedSinceSeen(const QString &path) const {
    const auto found = seen_.constFind(path);
    return found != seen_.constEnd() && QFileInfo::exists(path) && *found != StampOf(path);
}

std::optional<FileStamp> OwnFiles::Seen(const QString &path) const {
    const auto found = seen_.constFind(path);
    return found == seen_.constEnd() ? std::nullopt : std::optional(*found);
}

bool OwnFiles::IsOwn(const QString &path) const {
    const auto own = own_.constFind(path);
    return own != own_.constEnd() && Seen(path) == *own;
}

void OwnFiles::TakeUp(const QString &path, const FileStamp &seen, bool own) {
    seen_.insert(path, seen);
    if (own) own_.insert(path, seen);
}

void OwnFiles::Forget(const QString &path) { own_.remove(path); }

bool OwnFiles::Contains(const QString &path) const {
    const auto found = own_.constFind(path);
    return found != own_.constEnd() && *found == StampOf(path);
}

QString KeepBeside(const QString &path) {
    QString kept = path + QStringLiteral(".bak");
    for (int i = 1; QFileInfo::exists(kept) || QFileInfo(kept).isSymLink(); ++i)
        kept = QStringLiteral("%1.%2.bak").arg(path).arg(i);
    support::CopyFileTo(path, kept);
    QFile::setPermissions(kept, QFile::permissions(path));
    return kept;
}

} // namespace document
