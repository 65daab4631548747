#include "product/Edition.h"

#include "product/MapText.h"
#include "product/NodeText.h"
#include "product/TemplateText.h"
#include "settings/Settings.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace product {

namespace {

void CopyFile(const QString &from, const QString &to) {
    QFile::remove(to);
    if (!QFile::copy(from, to)) Complain(QStringLiteral("%1 can't be copied to %2").arg(from, to));
}

// The value of that key of Settings.nml.
QString Setting(const QString &key, const QString &settings) {
    settings::SettingsDocument document;
    if (!document.load(settings)) Complain(QStringLiteral("%1 isn't well-formed").arg(settings));
    return settings::GetXMLNodeText(key, document);
}

// Each text below Templates becomes a template in the folder of the same name.
void BuildTemplates(const QDir &edition, const QDir &target, const QString &extension) {
    const QDir texts(edition.filePath("Templates"));
    QDirIterator files(texts.path(), {"*.json"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QFileInfo text(files.next());
        const QString folder = "Templates/" + texts.relativeFilePath(text.path());
        target.mkpath(folder);
        BuildTemplateFile(text.filePath(), edition,
                          target.filePath(folder + "/" + text.completeBaseName() + "." + extension));
    }
}

} // namespace

void BuildEdition(const QDir &edition, const QDir &target) {
    target.mkpath(QStringLiteral("Startup"));
    for (const char *name : {"Settings.nml", "Default.htm"})
        CopyFile(edition.filePath(QLatin1String(name)), target.filePath(QLatin1String(name)));
    BuildTemplate(edition.filePath("template.json"), target.filePath("template.tpl"));
    for (const char *name : {"Template.nd", "Template.tnd"})
        BuildDefaultNode(edition.filePath(QLatin1String(name) + ".json"),
                         target.filePath(QLatin1String(name)));
    const QString settings = edition.filePath("Settings.nml");
    const QString extension = Setting(QStringLiteral("EXT"), settings);
    for (const QFileInfo &text : QDir(edition.filePath("Startup")).entryInfoList({"*.json"}, QDir::Files))
        BuildMap(text.filePath(), edition,
                 target.filePath("Startup/" + text.completeBaseName() + "." + extension));
    BuildTemplates(edition, target, Setting(QStringLiteral("TEMPLATE"), settings));
}

} // namespace product
