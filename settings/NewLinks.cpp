#include "settings/NewLinks.h"

#include "settings/GetSet.h"
#include "settings/Settings.h"
#include "support/Files.h"

namespace settings {

namespace {

QString ProductsRouting() {
    SettingsDocument document;
    document.load(support::AddBackslash(support::ProgramPath()) + QLatin1String("Settings.nml"));
    return GetXMLNodeText(QStringLiteral("LINKROUTING"), document);
}

} // namespace

QString LinkRouting() {
    const QString own = GetSet(QLatin1String(kLinkRouting));
    return own.isEmpty() ? ProductsRouting() : own;
}

void SaveLinkRouting(const QString &routing) { SaveSet(QLatin1String(kLinkRouting), routing); }

} // namespace settings
