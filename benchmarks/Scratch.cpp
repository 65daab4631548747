#include "benchmarks/Scratch.h"

#include "benchmarks/Sample.h"
#include "document/clsfrmMain.h"
#include "document/DoSave.h"
#include "document/MemoryWindow.h"
#include "document/SurfaceArray.h"
#include "support/Files.h"

#include <QDir>
#include <QTemporaryDir>

namespace bench {

QString ScratchFolder() {
    static const QTemporaryDir folder;
    return folder.path();
}

QString SampleMap(int nodes) {
    const QString path = ScratchFolder() + QStringLiteral("/sample%1.map").arg(nodes);
    if (QFile::exists(path)) return path;
    document::MemoryWindow window(support::CurrentDesktop());
    window.TabStrip().SetCaption(QStringLiteral("Sample"));
    FillSample(window.AddFlow1()[0], nodes);
    window.clsSettings().SetDatabase(path);
    document::DoSave(window);
    RemoveSafetyCopies();
    return path;
}

void RemoveSafetyCopies() {
    const QDir folder(support::TempPath());
    for (const QString &name : folder.entryList({"ABC*"}, QDir::Files)) QFile::remove(folder.filePath(name));
}

} // namespace bench
