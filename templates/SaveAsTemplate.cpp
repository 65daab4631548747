#include "templates/SaveAsTemplate.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Surface.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "settings/DeliveredFiles.h"
#include "settings/Settings.h"
#include "support/Error.h"
#include "support/FileNames.h"
#include "support/Files.h"
#include "templates/DiagramNode.h"
#include "templates/ScratchFile.h"
#include "templates/TemplateDb.h"
#include "timeline/PrepFileForImport.h"

namespace templates {

QString ProposedPath(const QString &tabText) {
    return settings::FolderForTemplates() +
           support::SafeFileName(tabText + QLatin1Char('.') + settings::Terms().TEMPLATE);
}

QString FirstIcon() {
    for (const QString &folder : {settings::TemplatesFolder(), settings::OwnTemplatesFolder()}) {
        const QStringList icons =
            support::GetFiles(folder + QStringLiteral("*.ico"), support::fileattributes::kNormal);
        if (!icons.isEmpty()) return folder + icons.front();
    }
    return {};
}

void SaveAsTemplate(document::MapWindow &window, diagram::Surface &Flow, const QString &iconFile,
                    const QString &outputFile) {
    support::PassOn("SaveAsTemplate", [&] {
        const ScratchFile scratch;
        {
            const diagram::Uncounted carrier(Flow.Actions()); // the node that is put there is no unsaved work
            timeline::CarryNames(PutDiagramNode(Flow), timeline::NamesOf(window.clsSettings()));
        }
        diagram::SaveFile(Flow, scratch.Path());
        CreateTemplate(scratch.Path(), iconFile, outputFile);
    });
}

} // namespace templates
