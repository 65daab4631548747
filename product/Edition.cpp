#include "product/Edition.h"

#include "app/settings/Settings.h"
#include "product/MapText.h"
#include "product/NodeText.h"

#include <QFile>
#include <QFileInfo>

namespace product {

namespace {

void CopyFile(const QString &from, const QString &to) {
    QFile::remove(to);
    if (!QFile::copy(from, to)) Complain(QStringLiteral("%1 can't be copied to %2").arg(from, to));
}

QString Extension(const QString &settings) {
    settings::SettingsDocument document;
    if (!document.load(settings)) Complain(QStringLiteral("%1 isn't well-formed").arg(settings));
    return settings::GetXMLNodeText(QStringLiteral("EXT"), document);
}

} // namespace

void BuildEdition(const QDir &edition, const QDir &target) {
    target.mkpath(QStringLiteral("Startup"));
    target.mkpath(QStringLiteral("Templates"));
    for (const char *name : {"Settings.nml", "Default.htm"})
        CopyFile(edition.filePath(QLatin1String(name)), target.filePath(QLatin1String(name)));
    for (const QString &name : QDir(edition.filePath("Templates")).entryList(QDir::Files))
        CopyFile(edition.filePath("Templates/" + name), target.filePath("Templates/" + name));
    BuildTemplate(edition.filePath("template.json"), target.filePath("template.tpl"));
    for (const char *name : {"Template.nd", "Template.tnd"})
        BuildDefaultNode(edition.filePath(QLatin1String(name) + ".json"),
                         target.filePath(QLatin1String(name)));
    const QString extension = Extension(edition.filePath("Settings.nml"));
    for (const QFileInfo &text : QDir(edition.filePath("Startup")).entryInfoList({"*.json"}, QDir::Files))
        BuildMap(text.filePath(), edition,
                 target.filePath("Startup/" + text.completeBaseName() + "." + extension));
}

} // namespace product
