#include "storage/FileForm.h"

#include "storage/EngineError.h"

#include <bit>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

namespace storage {

namespace {

constexpr int kHeaderSize = 100;

QByteArray ReadBeginning(const QString &path) {
    const QFileInfo info(path);
    if (!info.exists()) throw FileNotFound(path);
    QFile file(path);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly)) throw CannotOpenFile(path);
    return file.read(kHeaderSize);
}

qint64 Number(const QByteArray &header, int at) { return qFromBigEndian<quint32>(header.constData() + at); }

} // namespace

FileForm RecogniseFile(const QString &path) {
    const QByteArray header = ReadBeginning(path);
    if (header.startsWith(QByteArray("SQLite format 3\0", 16))) return FileForm::Native;
    if (header.startsWith(QByteArray("\0\1\0\0Standard Jet DB\0", 20))) return FileForm::Jet;
    return FileForm::Unknown;
}

NativeHeader ReadNativeHeader(const QString &path) {
    constexpr int kPageSizeAt = 16;
    constexpr int kChangesAt = 24;
    constexpr int kPagesAt = 28;
    constexpr int kFreePagesAt = 36;
    constexpr int kPagesValidForAt = 92;
    const QByteArray header = ReadBeginning(path);
    if (header.size() < kHeaderSize) throw DamagedDatabase(path);
    NativeHeader result;
    result.pageSize = qFromBigEndian<quint16>(header.constData() + kPageSizeAt);
    if (result.pageSize == 1) result.pageSize = 65536;
    if (result.pageSize < 512 || !std::has_single_bit(static_cast<quint64>(result.pageSize)))
        throw DamagedDatabase(path);
    if (Number(header, kChangesAt) == Number(header, kPagesValidForAt))
        result.pages = Number(header, kPagesAt);
    result.freePages = Number(header, kFreePagesAt);
    return result;
}

bool HasJournal(const QString &path) {
    for (const char *ending : {"-journal", "-wal"}) {
        const QFileInfo journal(path + QString::fromLatin1(ending));
        if (journal.exists() && journal.size() > 0) return true;
    }
    return false;
}

void CheckNativeSize(const QString &path) {
    if (HasJournal(path)) return;
    const NativeHeader header = ReadNativeHeader(path);
    const qint64 size = QFileInfo(path).size();
    if (size % header.pageSize != 0 || size < header.pages * header.pageSize) throw DamagedDatabase(path);
}

} // namespace storage
