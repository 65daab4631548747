// Builds the delivered files of one edition: velmora-product EDITION FOLDER reads the texts of the folder
// EDITION and leaves their final form in FOLDER, which becomes the program's folder.
#include "product/Edition.h"
#include "support/Error.h"
#include "support/Files.h"
#include "support/headless/HeadlessDesktop.h"
#include "support/RegistryStore.h"

#include <cstdio>
#include <memory>
#include <QDir>
#include <QGuiApplication>
#include <QLocale>

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: velmora-product EDITION FOLDER\n");
        return 2;
    }
    QLocale::setDefault(QLocale::c()); // dates of templates are English, wherever they are built
    try {
        support::HeadlessDesktop desktop(std::make_unique<support::MemoryRegistryStore>());
        const QDir edition(QDir(QString::fromLocal8Bit(argv[1])).absolutePath());
        const QDir folder(QDir(QString::fromLocal8Bit(argv[2])).absolutePath());
        support::SetProgramPath(folder.path());
        product::BuildEdition(edition, folder);
    } catch (const support::Error &error) {
        std::fprintf(stderr, "velmora-product: %s\n", error.what());
        return 1;
    }
    return 0;
}
