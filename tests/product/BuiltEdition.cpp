#include "tests/product/BuiltEdition.h"

#include "document/DoLoad.h"
#include "product/Edition.h"
#include "settings/Settings.h"
#include "support/Files.h"
#include "support/headless/HeadlessDesktop.h"
#include "support/RegistryStore.h"
#include "tests/Paths.h"

#include <map>
#include <QDirIterator>
#include <QTemporaryDir>

namespace tests {

BuiltEdition::~BuiltEdition() { settings::SetTerms({}); }

void BuiltEdition::BuildInto(const QString &folder, const char *name) {
    // On the desktop that the tool has: the scripted one would draw the same keys in every test.
    {
        const support::HeadlessDesktop desktop(std::make_unique<support::MemoryRegistryStore>());
        support::SetProgramPath(folder);
        product::BuildEdition(QDir(Source(QStringLiteral("product/") + QLatin1String(name))), QDir(folder));
    }
    support::SetDesktop(&desktop_.Get());
}

void BuiltEdition::Build(const char *name) {
    static std::map<std::string, QTemporaryDir> built;
    texts_ = QDir(Source(QStringLiteral("product/") + QLatin1String(name)));
    const bool first = !built.contains(name);
    const QString folder = built[name].path();
    if (first) BuildInto(folder, name);
    support::SetProgramPath(folder);
    folder_ = QDir(folder);
    settings::LoadSettings();
}

QString BuiltEdition::Startup() const {
    const QDir folder(folder_.filePath("Startup"));
    const QStringList maps = folder.entryList({"*." + settings::Terms().EXT}, QDir::Files);
    return maps.isEmpty() ? QString() : folder.filePath(maps.first());
}

QStringList BuiltEdition::TemplateNames() const {
    const QDir folder(texts_.filePath("Templates"));
    QDirIterator files(folder.path(), {"*.json"}, QDir::Files, QDirIterator::Subdirectories);
    QStringList names;
    while (files.hasNext()) names << folder.relativeFilePath(files.next()).chopped(5);
    names.sort();
    return names;
}

QString BuiltEdition::TemplatePath(const QString &name) const {
    return folder_.filePath("Templates/" + name + ".TEM");
}

std::unique_ptr<document::MemoryWindow> BuiltEdition::Open(const QString &path) {
    auto window = std::make_unique<document::MemoryWindow>(desktop_.Get());
    window->clsSettings().SetDatabase(path);
    document::DoLoad(*window);
    return window;
}

} // namespace tests
