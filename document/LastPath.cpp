#include "document/LastPath.h"

#include "settings/Settings.h"
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

bool MayStartIn(const QString &folder) {
    if (folder.isEmpty() || !support::DirExists(folder)) return false;
    const QString program = support::clsPaths().LongName(support::ProgramPath());
    return !support::IsSameFile(support::clsPaths().LongName(folder), program);
}

QString FolderToSaveIn(const QString &map) {
    for (const QString &folder : {support::clsPaths().DoGetFilePath(map), lastPath})
        if (MayStartIn(folder)) return support::AddBackslash(folder);
    return support::clsPaths().GetMyDocsOrHomePath();
}

} // namespace

const QString &LastPath() { return lastPath; }
void SetLastPath(const QString &folder) { lastPath = folder; }

QString PlaceToSave(const QString &map) { return FolderToSaveIn(map) + support::FileTitle(map); }

QString GetMapFile(bool bNew, const QString &map) {
    using namespace support::fileflags;
    return support::PassOn("GetMapFile", [&] {
        if (lastPath.isEmpty()) lastPath = support::clsPaths().GetMyDocsPath();
        support::CommonDialogs &dialogs = support::CurrentDesktop().dialogs;
        int filterRow = 1;
        const QString &extension = settings::Terms().EXT;
        const QString path =
            bNew ? dialogs.ShowSaveFileDialog(MapFilter(), extension, PlaceToSave(map),
                                              kHideReadOnly | kOverwritePrompt | kPathMustExist | kExplorer,
                                              nullptr, filterRow)
                 : dialogs.ShowOpenFileDialog(MapFilter(), extension, lastPath,
                                              kHideReadOnly | kFileMustExist | kExplorer, nullptr, filterRow);
        if (!path.isEmpty()) lastPath = path.left(support::LastSeparator(path) + 1);
        return path;
    });
}

} // namespace document
