#include "document/CompactDb.h"

#include "document/MapWindow.h"
#include "storage/Database.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/FileNames.h"
#include "support/Files.h"
#include "support/PrivateFolder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

namespace document {

namespace {

constexpr int kVersion30 = 32;
const QString kLocale = QStringLiteral(";LANGID=0x0409;CP=1252;COUNTRY=0");
const QString kPrefix = QStringLiteral("ABC");
const QString kCopies = QStringLiteral("copies");
constexpr int kDaysOfCopies = 7;

QString LocaleWithPassword(const QString &password) {
    return password.isEmpty() ? kLocale : kLocale + QStringLiteral(";pwd=") + password;
}

// A file of the temporary folder that goes with the object unless it is kept.
class ScratchFile {
public:
    ScratchFile() : path_(support::GetTempFile(kPrefix)) {}
    ~ScratchFile() {
        if (!isKept_) QFile::remove(path_);
    }
    ScratchFile(const ScratchFile &) = delete;
    ScratchFile &operator=(const ScratchFile &) = delete;

    const QString &Path() const { return path_; }
    void Keep() { isKept_ = true; }

private:
    QString path_;
    bool isKept_ = false;
};

// The name of the map's safety copy, which is the same at all times and differs between maps of one title.
QString CopyName(const QString &map) {
    const QByteArray path = QFileInfo(map).canonicalFilePath().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(path, QCryptographicHash::Sha256).toHex().left(16);
    return QStringLiteral("%1-%2").arg(QString::fromLatin1(hash),
                                       support::SafeFileName(support::FileTitle(map)));
}

bool CopyInto(QFile &from, QFile &to) {
    constexpr qint64 kBlock = 1 << 20;
    while (!from.atEnd()) {
        const QByteArray block = from.read(kBlock);
        if (block.isEmpty() || to.write(block) != block.size()) return false;
    }
    return to.flush();
}

// The former safety copy of the map is replaced once the new one is whole.
void MakeSafetyCopy(const QString &map) {
    const QDir folder(SafetyCopyFolder());
    const QString target = folder.filePath(CopyName(map));
    QFile from(map);
    QTemporaryFile copy(folder.filePath(kPrefix + QStringLiteral("XXXXXX.tmp")));
    bool good = from.open(QIODevice::ReadOnly) && copy.open() && CopyInto(from, copy);
    if (good) {
        copy.close();
        QFile::remove(target);
        copy.setAutoRemove(false);
        good = QFile::rename(copy.fileName(), target);
    }
    if (!good) support::Raise(support::kErrPathFileAccess, QStringLiteral("CompactDb"), target);
}

// A user may have several folders of safety copies, so copies of one map, which have one name, can be in more
// than one of them.
QFileInfoList SafetyCopies() {
    QFileInfoList copies;
    for (const QString &folder : support::LastingPrivateFolders(kCopies))
        copies += QDir(folder).entryInfoList(QDir::Files | QDir::Hidden);
    return copies;
}

bool HaveSameBytes(const QString &a, const QString &b) {
    constexpr qint64 kBlock = 1 << 20;
    QFile first(a), second(b);
    if (!first.open(QIODevice::ReadOnly) || !second.open(QIODevice::ReadOnly) ||
        first.size() != second.size())
        return false;
    while (!first.atEnd())
        if (first.read(kBlock) != second.read(kBlock)) return false;
    return true;
}

} // namespace

QString SafetyCopyFolder() { return support::LastingPrivateFolder(kCopies); }

void SweepSafetyCopies(const QDateTime &now) {
    const QDateTime oldest = now.addDays(-kDaysOfCopies);
    const QFileInfoList copies = SafetyCopies();
    QHash<QString, QDateTime> newest; // by name
    for (const QFileInfo &copy : copies) {
        QDateTime &latest = newest[copy.fileName()];
        if (!latest.isValid() || latest < copy.lastModified()) latest = copy.lastModified();
    }
    for (const QFileInfo &copy : copies)
        if (copy.lastModified() < oldest || copy.lastModified() < newest[copy.fileName()])
            QFile::remove(copy.filePath());
}

void CompactDb(MapWindow &window, const QString &sFile, bool bKeep, const QString &sPassword) {
    support::PassOn("CompactDb", [&] {
        window.SetMousePointer(pointer::kHourglass);
        ScratchFile compacted;
        support::Kill(compacted.Path());
        MakeSafetyCopy(sFile);
        storage::CompactDatabase(sFile, compacted.Path(), LocaleWithPassword(sPassword), kVersion30);
        // A file without free space comes back as it was.
        if (!HaveSameBytes(compacted.Path(), sFile)) support::CopyFileTo(compacted.Path(), sFile);
        if (bKeep) compacted.Keep();
        window.SetMousePointer(pointer::kNormal);
    });
}

} // namespace document
