#include "support/ManyFiles.h"

#include "support/FileErrors.h"
#include "support/PlatformFlush.h"

#include <QDir>

namespace support {

void WriteNewFile(const QString &path, const QByteArray &bytes) {
    RaiseIfFailed(platform::CreateNew(path), "WriteNewFile", path);
    RaiseIfFailed(platform::WriteFile(path, bytes, platform::WriteMode::Replace), "WriteNewFile", path);
    platform::BeginFlush(path);
}

void ReplaceFiles(const QString &newFolder, const QStringList &names, const QString &folder) {
    const QDir from(newFolder), to(folder);
    for (const QString &name : names)
        RaiseIfFailed(platform::FlushFile(from.filePath(name)), "ReplaceFiles", to.filePath(name));
    for (const QString &name : names)
        RaiseIfFailed(platform::Rename(from.filePath(name), to.filePath(name)), "ReplaceFiles",
                      to.filePath(name));
    platform::FlushFolder(folder);
}

} // namespace support
