// Loading and repairing a damaged map file ends well or in an error of the program, whatever the damage; what
// a repair has written loads, and has nothing wrong.
#include "cli/Session.h"
#include "document/RepairMap.h"
#include "support/Error.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <QFile>
#include <QTemporaryDir>

namespace {

void Load(const QString &path) {
    cli::Session session;
    try {
        session.Open(path);
    } catch (const support::Error &) {
        // An error of the program is as good as a map.
    }
}

[[noreturn]] void Fail(const QString &why) {
    std::fprintf(stderr, "%s\n", qPrintable(why));
    std::abort();
}

void Repair(const QString &path, const QString &repaired, const QString &again) {
    QFile::remove(repaired);
    QFile::remove(again);
    try {
        document::RepairMap(path, repaired);
    } catch (const support::Error &) {
        return; // nothing of it can be read
    }
    try {
        cli::Session().Open(repaired);
        const document::RepairReport report = document::RepairMap(repaired, again);
        if (!report.IsClean())
            Fail(report.lost.isEmpty() ? document::RepairText(report.repairs.front()) : report.lost.front());
    } catch (const support::Error &error) {
        Fail(QStringLiteral("what was repaired doesn't load: ") + error.Description());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("input.map"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) return 0;
    file.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size));
    file.close();
    QFile::remove(path + QStringLiteral("-journal"));
    Load(path);
    Repair(path, folder.filePath(QStringLiteral("repaired.map")),
           folder.filePath(QStringLiteral("again.map")));
    return 0;
}
