#include "templates/ScratchFile.h"

#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"

#include <QFile>

namespace templates {

ScratchFile::ScratchFile() : path_(support::GetTempFile()) { support::Kill(path_); }

ScratchFile::ScratchFile(const QByteArray &bytes) : path_(support::GetTempFile()) {
    QFile file(path_);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
        QFile::remove(path_);
        support::Raise(support::kErrDiskFull, QStringLiteral("ScratchFile"), path_);
    }
}

ScratchFile::~ScratchFile() { QFile::remove(path_); }

} // namespace templates
