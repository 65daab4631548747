#include "settings/NewLinks.h"

#include "settings/GetSet.h"
#include "settings/Settings.h"

namespace settings {

namespace {

QString RoutingOfProduct() {
    SettingsDocument document;
    document.load(PathOfSettings());
    return GetXMLNodeText(QStringLiteral("LINKROUTING"), document);
}

} // namespace

QString LinkRouting() {
    const QString own = GetSet(QLatin1String(kLinkRouting));
    return own.isEmpty() ? RoutingOfProduct() : own;
}

void SaveLinkRouting(const QString &routing) { SaveSet(QLatin1String(kLinkRouting), routing); }

} // namespace settings
