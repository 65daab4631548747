// Loading a damaged map file ends well or in an error of the program, whatever the damage.
#include "cli/Session.h"
#include "support/Error.h"

#include <cstdint>
#include <QFile>
#include <QTemporaryDir>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("input.map"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return 0;
    file.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size));
    file.close();
    QFile::remove(path + QStringLiteral("-journal"));
    cli::Session session;
    try {
        session.Open(path);
    } catch (const support::Error &) {
        // Said clearly: that is all that is asked for.
    }
    return 0;
}
