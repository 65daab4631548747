#include "storage/SalvageCopy.h"

#include "storage/EngineError.h"
#include "storage/FileHeader.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

namespace storage {

namespace {

void CopyWhole(const QString &source, const QString &target) {
    QFile::remove(target);
    QFile from(source);
    if (!from.open(QIODevice::ReadOnly)) throw CannotOpenFile(source);
    if (!from.copy(target)) throw EngineError(kErrDiskFull, QStringLiteral("Not enough space on disk."));
    QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
}

void SetNumber(QByteArray &bytes, int at, quint32 value) { qToBigEndian(value, bytes.data() + at); }

qint64 PageSizeOrUsual(const QByteArray &bytes) {
    constexpr qint64 kUsual = 4096;
    const qint64 size = header::PageSize(bytes);
    return size > 0 ? size : kUsual;
}

// Sets right whatever the library refuses a whole file for: what is the same in every file of the form, and
// what the size of the file tells. The list of free pages is dropped.
void MendHeader(QByteArray &bytes, qint64 pageSize, qint64 pages) {
    using namespace header;
    constexpr qint64 kLargestPage = 65536; // written as 1
    constexpr quint32 kUsualSchemaFormat = 4, kUtf8 = 1;
    bytes.replace(0, kMark.size(), kMark);
    qToBigEndian(static_cast<quint16>(pageSize == kLargestPage ? 1 : pageSize), bytes.data() + kPageSizeAt);
    bytes.replace(kVersionsAt, 6, QByteArray("\1\1\0\x40\x20\x20", 6));
    SetNumber(bytes, kPagesAt, static_cast<quint32>(pages));
    SetNumber(bytes, kPagesValidForAt, Number(bytes, kChangesAt));
    SetNumber(bytes, kFirstFreePageAt, 0);
    SetNumber(bytes, kFreePagesAt, 0);
    const quint32 schemaFormat = Number(bytes, kSchemaFormatAt), encoding = Number(bytes, kEncodingAt);
    if (schemaFormat < 1 || schemaFormat > 4) SetNumber(bytes, kSchemaFormatAt, kUsualSchemaFormat);
    if (encoding < 1 || encoding > 3) SetNumber(bytes, kEncodingAt, kUtf8);
    SetNumber(bytes, kLargestRootAt, 0);
    SetNumber(bytes, kIncrementalAt, 0);
}

// Writes a mended first page: that of the model, or the file's own header. A page that was cut off is filled
// up with zeros.
void MendFile(const QString &path, const QString &model) {
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite)) throw CannotOpenFile(path);
    QByteArray bytes = file.read(header::kSize);
    if (bytes.size() < header::kSize) throw DamagedDatabase(path);
    const qint64 pageSize = PageSizeOrUsual(bytes);
    const qint64 pages = (file.size() + pageSize - 1) / pageSize;
    if (!model.isEmpty()) {
        QFile sound(model);
        if (!sound.open(QIODevice::ReadOnly)) throw CannotOpenFile(model);
        bytes = sound.read(pageSize);
        if (bytes.size() < pageSize || PageSizeOrUsual(bytes) != pageSize) throw DamagedDatabase(path);
    }
    MendHeader(bytes, pageSize, pages);
    if (!file.resize(pages * pageSize) || !file.seek(0) || file.write(bytes) != bytes.size() || !file.flush())
        throw EngineError(kErrDiskFull, QStringLiteral("Not enough space on disk."));
}

// Copies the journals of a file that has any; true then.
bool CopyJournals(const QString &path, const QString &copy) {
    bool any = false;
    for (const char *ending : header::kJournalEndings) {
        QFile::remove(copy + QLatin1String(ending));
        const QString journal = path + QLatin1String(ending);
        if (!QFileInfo::exists(journal)) continue;
        CopyWhole(journal, copy + QLatin1String(ending));
        any = true;
    }
    return any;
}

// Has the library take back the change that the journals tell of, or a finished one in. Where it can't, what
// the file alone holds is what there is.
void TakeInJournals(const QString &copy, const QString &name) {
    try {
        Connection(copy, SQLite::OPEN_READWRITE, name)
            .Run(QStringLiteral("SELECT COUNT(*) FROM sqlite_master; PRAGMA wal_checkpoint(TRUNCATE)"));
    } catch (const support::Error &) {
    }
    for (const char *ending : {"-journal", "-wal", "-shm"}) QFile::remove(copy + QLatin1String(ending));
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
    if (CopyJournals(path, copy)) TakeInJournals(copy, path);
    MendFile(copy, model);
    connection_ = std::make_unique<Connection>(copy, SQLite::OPEN_READWRITE, path);
    Loosen(*connection_);
}

} // namespace storage
