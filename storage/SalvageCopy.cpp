#include "storage/SalvageCopy.h"

#include "storage/EngineError.h"
#include "storage/FileForm.h"

#include <bit>
#include <QFile>
#include <QFileInfo>
#include <QtEndian>

namespace storage {

namespace {

constexpr int kHeader = 100;

void CopyWhole(const QString &source, const QString &target) {
    QFile::remove(target);
    QFile from(source);
    if (!from.open(QIODevice::ReadOnly)) throw CannotOpenFile(source);
    if (!from.copy(target)) throw EngineError(kErrDiskFull, QStringLiteral("Not enough space on disk."));
    QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
}

// Where the header's numbers stand, and what they are in every file of the form.
constexpr int kPageSizeAt = 16;
constexpr int kVersionsAt = 18;
constexpr int kReservedAt = 20;
constexpr int kChangesAt = 24;
constexpr int kPagesAt = 28;
constexpr int kFreeListAt = 32;
constexpr int kSchemaFormatAt = 44;
constexpr int kLargestRootAt = 52;
constexpr int kEncodingAt = 56;
constexpr int kIncrementalAt = 64;
constexpr int kValidForAt = 92;

void SetNumber(QByteArray &header, int at, quint32 value) { qToBigEndian(value, header.data() + at); }
quint32 Number(const QByteArray &header, int at) { return qFromBigEndian<quint32>(header.constData() + at); }

qint64 PageSizeOf(const QByteArray &header) {
    constexpr qint64 kUsual = 4096;
    const qint64 size = qFromBigEndian<quint16>(header.constData() + kPageSizeAt);
    if (size == 1) return 65536;
    return size >= 512 && std::has_single_bit(static_cast<quint64>(size)) ? size : kUsual;
}

// What the library refuses a whole file for.
void MendHeader(QByteArray &header, qint64 pageSize, qint64 pages) {
    header.replace(0, 16, QByteArray("SQLite format 3\0", 16));
    qToBigEndian(static_cast<quint16>(pageSize == 65536 ? 1 : pageSize), header.data() + kPageSizeAt);
    header.replace(kVersionsAt, 6, QByteArray("\1\1\0\x40\x20\x20", 6));
    static_assert(kReservedAt == kVersionsAt + 2);
    SetNumber(header, kPagesAt, static_cast<quint32>(pages));
    SetNumber(header, kValidForAt, Number(header, kChangesAt));
    SetNumber(header, kFreeListAt, 0);
    SetNumber(header, kFreeListAt + 4, 0);
    if (Number(header, kSchemaFormatAt) - 1 > 3) SetNumber(header, kSchemaFormatAt, 4);
    if (Number(header, kEncodingAt) - 1 > 2) SetNumber(header, kEncodingAt, 1);
    SetNumber(header, kLargestRootAt, 0);
    SetNumber(header, kIncrementalAt, 0);
}

// A page that was cut off is filled up with zeros.
void MendFile(const QString &path, const QString &model) {
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite)) throw CannotOpenFile(path);
    QByteArray header = file.read(kHeader);
    if (header.size() < kHeader) throw DamagedDatabase(path);
    const qint64 pageSize = PageSizeOf(header);
    const qint64 pages = (file.size() + pageSize - 1) / pageSize;
    if (!model.isEmpty()) {
        QFile sound(model);
        if (!sound.open(QIODevice::ReadOnly)) throw CannotOpenFile(model);
        header = sound.read(pageSize);
        if (header.size() < pageSize || PageSizeOf(header) != pageSize) throw DamagedDatabase(path);
    }
    MendHeader(header, pageSize, pages);
    if (!file.resize(pages * pageSize) || !file.seek(0) || file.write(header) != header.size() ||
        !file.flush())
        throw EngineError(kErrDiskFull, QStringLiteral("Not enough space on disk."));
}

void Loosen(Connection &connection) {
    sqlite3_db_config(connection.Handle(), SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
    // Nobody else knows the copy: it is locked once and not for each of many thousand attempts.
    connection.Run(QStringLiteral(
        "PRAGMA writable_schema=ON; PRAGMA cell_size_check=OFF; PRAGMA locking_mode=EXCLUSIVE"));
}

} // namespace

SalvageCopy::SalvageCopy(const QString &path, const QString &folder, const QString &model) {
    const QString copy = folder + QStringLiteral("/salvage.map");
    CopyWhole(path, copy);
    bool hasJournal = false;
    for (const char *ending : {"-journal", "-wal"}) {
        QFile::remove(copy + QLatin1String(ending));
        const QString journal = path + QLatin1String(ending);
        if (!QFileInfo::exists(journal)) continue;
        CopyWhole(journal, copy + QLatin1String(ending));
        hasJournal = true;
    }
    if (hasJournal) { // the library takes the unfinished change back, or a finished one in
        try {
            Connection(copy, SQLite::OPEN_READWRITE, path)
                .Run(QStringLiteral("SELECT COUNT(*) FROM sqlite_master; PRAGMA wal_checkpoint(TRUNCATE)"));
        } catch (const support::Error &) {
            // What the file alone holds is what there is.
        }
        for (const char *ending : {"-journal", "-wal", "-shm"}) QFile::remove(copy + QLatin1String(ending));
    }
    MendFile(copy, model);
    connection_ = std::make_unique<Connection>(copy, SQLite::OPEN_READWRITE, path);
    Loosen(*connection_);
}

} // namespace storage
