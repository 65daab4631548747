// Writes the help of one edition: velmora-help GUIDE SETTINGS ICON VERSION DATE FILE reads the guide, the
// edition's Settings.nml and the icon, and writes the PDF FILE with that version and date (2026-11-22).
#include "product/help/Help.h"
#include "support/Error.h"
#include "support/Files.h"
#include "support/headless/HeadlessDesktop.h"
#include "support/RegistryStore.h"

#include <cstdio>
#include <memory>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>
#include <QSaveFile>

namespace {

product::HelpTask TaskOf(const QStringList &arguments) {
    support::SetProgramPath(QFileInfo(arguments.at(2)).absolutePath());
    settings::LoadSettings();
    return {arguments.at(1), settings::Terms(), arguments.at(4),
            QDate::fromString(arguments.at(5), Qt::ISODate), arguments.at(3)};
}

void Write(const QString &path, const QByteArray &bytes) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw support::Error(support::kErrFileNotFound, QStringLiteral("velmora-help"),
                             QStringLiteral("%1 can't be written").arg(path));
}

} // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QHashSeed::setDeterministicGlobalSeed(); // fonts are written in the order of a hash
    QGuiApplication app(argc, argv);
    if (argc != 7) {
        std::fprintf(stderr, "usage: velmora-help GUIDE SETTINGS ICON VERSION DATE FILE\n");
        return 2;
    }
    try {
        support::HeadlessDesktop desktop(std::make_unique<support::MemoryRegistryStore>());
        const QStringList arguments = QCoreApplication::arguments();
        Write(arguments.at(6), product::HelpPdf(TaskOf(arguments)));
    } catch (const support::Error &error) {
        std::fprintf(stderr, "velmora-help: %s\n", error.what());
        return 1;
    }
    return 0;
}
