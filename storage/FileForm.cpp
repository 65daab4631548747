#include "storage/FileForm.h"

#include "storage/EngineError.h"
#include "storage/FileHeader.h"

#include <QFile>
#include <QFileInfo>

namespace storage {

namespace {

QByteArray ReadBeginning(const QString &path) {
    const QFileInfo info(path);
    if (!info.exists()) throw FileNotFound(path);
    QFile file(path);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly)) throw CannotOpenFile(path);
    return file.read(header::kSize);
}

} // namespace

FileForm RecogniseFile(const QString &path) {
    const QByteArray bytes = ReadBeginning(path);
    if (bytes.startsWith(header::kMark)) return FileForm::Native;
    if (bytes.startsWith(QByteArray("\0\1\0\0Standard Jet DB\0", 20))) return FileForm::Jet;
    return FileForm::Unknown;
}

NativeHeader ReadNativeHeader(const QString &path) {
    const QByteArray bytes = ReadBeginning(path);
    if (bytes.size() < header::kSize) throw DamagedDatabase(path);
    NativeHeader result;
    result.pageSize = header::PageSize(bytes);
    if (result.pageSize == 0) throw DamagedDatabase(path);
    if (header::Number(bytes, header::kChangesAt) == header::Number(bytes, header::kPagesValidForAt))
        result.pages = header::Number(bytes, header::kPagesAt);
    result.freePages = header::Number(bytes, header::kFreePagesAt);
    return result;
}

bool HasJournal(const QString &path) {
    for (const char *ending : header::kJournalEndings) {
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
