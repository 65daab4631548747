// Builds the delivered files of one edition: velmora-product EDITION FOLDER reads the texts of the folder
// EDITION and leaves their final form in FOLDER, which becomes the program's folder.
// velmora-product --map TEXT EDITION FOLDER MAP builds one map from its text, with the looks of the edition
// and the template of the program's folder.
#include "product/Edition.h"
#include "product/MapText.h"
#include "support/Error.h"
#include "support/Files.h"
#include "support/headless/HeadlessDesktop.h"
#include "support/RegistryStore.h"

#include <cstdio>
#include <memory>
#include <QDir>
#include <QGuiApplication>
#include <QLocale>

namespace {

void BuildFolder(const QString &edition, const QString &folder) {
    support::SetProgramPath(folder);
    product::BuildEdition(QDir(edition), QDir(folder));
}

void BuildOneMap(const QString &text, const QString &edition, const QString &folder, const QString &map) {
    support::SetProgramPath(folder);
    product::BuildMap(text, QDir(edition), map);
}

} // namespace

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const bool one = argc == 6 && qstrcmp(argv[1], "--map") == 0;
    if (!one && argc != 3) {
        std::fprintf(stderr, "usage: velmora-product EDITION FOLDER\n"
                             "       velmora-product --map TEXT EDITION FOLDER MAP\n");
        return 2;
    }
    const auto path = [argv](int i) { return QDir(QString::fromLocal8Bit(argv[i])).absolutePath(); };
    QLocale::setDefault(QLocale::c()); // dates of templates are English, wherever they are built
    try {
        support::HeadlessDesktop desktop(std::make_unique<support::MemoryRegistryStore>());
        one ? BuildOneMap(path(2), path(3), path(4), path(5)) : BuildFolder(path(1), path(2));
    } catch (const support::Error &error) {
        std::fprintf(stderr, "velmora-product: %s\n", error.what());
        return 1;
    }
}
