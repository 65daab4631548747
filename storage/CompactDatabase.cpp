#include "storage/Connection.h"
#include "storage/EngineError.h"
#include "storage/FileForm.h"
#include "storage/JetImport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace storage {

namespace {

// A file without free space is compact as it is: its bytes are copied.
bool IsCompact(const QString &path) {
    const NativeHeader header = ReadNativeHeader(path);
    return !HasJournal(path) && header.pages > 0 && header.freePages == 0;
}

void CopyBytes(const QString &source, const QString &target) {
    constexpr qint64 kBlock = 1 << 20;
    CheckNativeSize(source);
    QFile from(source);
    QFile to(target);
    if (!from.open(QIODevice::ReadOnly)) throw CannotOpenFile(source);
    if (!to.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        throw CannotOpenFile(target);
    while (!from.atEnd()) {
        const QByteArray block = from.read(kBlock);
        if (block.isEmpty() || to.write(block) != block.size()) {
            const bool isFull = to.error() == QFileDevice::ResourceError;
            to.close();
            to.remove();
            throw isFull ? EngineError(kErrDiskFull, QStringLiteral("Not enough space on disk."))
                         : EngineError(kErrIo, QStringLiteral("Disk or network error."));
        }
    }
}

void Rewrite(Connection &connection, const QString &target) {
    const QString sql = QStringLiteral("VACUUM INTO ?");
    try {
        const Statement statement = connection.Prepare(sql);
        BindAll(connection, statement.get(), {target});
        connection.RunToEnd(statement.get(), sql);
    } catch (...) {
        QFile::remove(target);
        throw;
    }
}

} // namespace

void CompactDatabase(const QString &source, const QString &target, const QString &, int) {
    const QString from = QDir::toNativeSeparators(QFileInfo(source).absoluteFilePath());
    const QString to = QDir::toNativeSeparators(QFileInfo(target).absoluteFilePath());
    const FileForm form = RecogniseFile(from);
    if (form == FileForm::Unknown) throw UnrecognizedFormat(from);
    if (QFileInfo::exists(to)) throw DatabaseExists();
    if (form == FileForm::Jet) {
        Rewrite(*ImportJet(from), to);
    } else if (IsCompact(from)) {
        CopyBytes(from, to);
    } else {
        CheckNativeSize(from);
        Connection connection(from, SQLite::OPEN_READWRITE, from);
        Rewrite(connection, to);
    }
}

} // namespace storage
