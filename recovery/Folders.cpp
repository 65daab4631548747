#include "recovery/Folders.h"

#include "settings/Settings.h"
#include "support/Error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

namespace recovery {

namespace {

constexpr int kAttempts = 5;   // another program may sweep a folder that is just being made
constexpr int kLockWait = 100; // milliseconds

QString LockPath(const QString &folder) { return folder + QStringLiteral("/lock"); }

// Not from Desktop::random, which only the window's thread may use.
QString NewName() { return QUuid::createUuid().toString(QUuid::WithoutBraces); }

HeldFolder Hold(const QString &path, int milliseconds) {
    HeldFolder held{path, support::platform::Lock(LockPath(path), milliseconds)};
    if (held.lock && QFileInfo::exists(LockPath(path))) return held;
    return {};
}

} // namespace

QString JournalsFolder() {
    return QStringLiteral("%1/%2/recovery").arg(support::platform::StateFolder(), settings::Terms().TITLE);
}

QString JournalPath(const QString &folder) { return folder + QStringLiteral("/journal"); }
QString CopyPath(const QString &folder, const QString &name) { return folder + u'/' + name; }

HeldFolder MakeFolder(const QString &root) {
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        const QString path = root + u'/' + NewName();
        if (!support::platform::MakePrivateFolder(root) || !support::platform::MakePrivateFolder(path)) break;
        if (HeldFolder held = Hold(path, kLockWait); held.lock) return held;
        QDir().rmdir(path);
    }
    support::Raise(support::kErrPathFileAccess, QStringLiteral("Journal"), root);
}

HeldFolder HoldFolder(const QString &path) { return QFileInfo::exists(path) ? Hold(path, 0) : HeldFolder(); }

void RemoveFolder(HeldFolder folder) {
    if (folder.path.isEmpty()) return;
    const QDir dir(folder.path);
    QFile::remove(JournalPath(folder.path)); // first: without it there is nothing to offer
    for (const QString &name : dir.entryList(QDir::Files | QDir::Hidden | QDir::System))
        if (name != QLatin1String("lock")) QFile::remove(dir.filePath(name));
    folder.lock.reset(); // some systems delete no file that is held
    QFile::remove(LockPath(folder.path));
    QDir().rmdir(folder.path);
}

} // namespace recovery
