#include "document/CompactDb.h"

#include "document/MapWindow.h"
#include "storage/Database.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"

#include <QFile>

namespace document {

namespace {

constexpr int kVersion30 = 32;
const QString kLocale = QStringLiteral(";LANGID=0x0409;CP=1252;COUNTRY=0");
const QString kPrefix = QStringLiteral("ABC");

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

// Fills the file, which only its owner may read, so that the copy is as private as it should be.
void CopyInto(const QString &source, const QString &target) {
    constexpr qint64 kBlock = 1 << 20;
    QFile from(source), to(target);
    bool good = from.open(QIODevice::ReadOnly) && to.open(QIODevice::WriteOnly | QIODevice::Truncate);
    while (good && !from.atEnd()) {
        const QByteArray block = from.read(kBlock);
        good = !block.isEmpty() && to.write(block) == block.size();
    }
    if (good && to.flush()) return;
    throw support::Error(support::kErrPathFileAccess, QStringLiteral("CompactDb"),
                         QStringLiteral("Path/File access error: %1").arg(target));
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

void CompactDb(MapWindow &window, const QString &sFile, bool bKeep, const QString &sPassword) {
    support::PassOn("CompactDb", [&] {
        window.SetMousePointer(pointer::kHourglass);
        ScratchFile compacted, safetyCopy;
        support::Kill(compacted.Path());
        CopyInto(sFile, safetyCopy.Path());
        safetyCopy.Keep();
        storage::CompactDatabase(sFile, compacted.Path(), LocaleWithPassword(sPassword), kVersion30);
        // A file without free space comes back as it was.
        if (!HaveSameBytes(compacted.Path(), sFile)) support::CopyFileTo(compacted.Path(), sFile);
        if (bKeep) compacted.Keep();
        window.SetMousePointer(pointer::kNormal);
    });
}

} // namespace document
