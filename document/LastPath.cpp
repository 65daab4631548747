#include "document/LastPath.h"

#include "app/settings/Settings.h"
#include "support/clsPaths.h"
#include "support/Desktop.h"
#include "support/Error.h"
#include "support/Files.h"

namespace document {

namespace {

QString lastPath;

QString MapFilter() {
    const settings::ProductTerms &terms = settings::Terms();
    return QStringLiteral("%1 Files|*.%2|All Files|*.*").arg(terms.MAP, terms.EXT);
}

} // namespace

const QString &LastPath() { return lastPath; }
void SetLastPath(const QString &folder) { lastPath = folder; }

QString GetMapFile(bool bNew) {
    using namespace support::fileflags;
    return support::PassOn("GetMapFile", [&] {
        if (lastPath.isEmpty()) lastPath = support::clsPaths().GetMyDocsPath();
        support::CommonDialogs &dialogs = support::CurrentDesktop().dialogs;
        int filterRow = 1;
        const QString &extension = settings::Terms().EXT;
        const QString path =
            bNew ? dialogs.ShowSaveFileDialog(MapFilter(), extension, lastPath,
                                              kHideReadOnly | kOverwritePrompt | kPathMustExist | kExplorer,
                                              nullptr, filterRow)
                 : dialogs.ShowOpenFileDialog(MapFilter(), extension, lastPath,
                                              kHideReadOnly | kFileMustExist | kExplorer, nullptr, filterRow);
        if (!path.isEmpty()) lastPath = path.left(support::LastSeparator(path) + 1);
        return path;
    });
}

} // namespace document
