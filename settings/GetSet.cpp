#include "settings/GetSet.h"

#include "settings/Settings.h"
#include "support/cRegistry.h"
#include "support/Val.h"

namespace settings {

namespace {
support::cRegistry SettingsAt(support::RegistryRoot root, const QString &name) {
    support::cRegistry registry;
    registry.ClassKey = static_cast<std::uint32_t>(root);
    registry.SectionKey = QString::fromLatin1(kSettingsPath);
    registry.ValueKey = name;
    return registry;
}

// Of a setting that turns something off: absent and 0 are on.
bool IsOn(const char *dont) { return support::Val(GetSet(QLatin1String(dont))) == 0; }
void SaveOn(const char *dont, bool on) {
    SaveSet(QLatin1String(dont), on ? QStringLiteral("0") : QStringLiteral("1"));
}
} // namespace

QString GetSet(const QString &name, const QString &defaultValue) {
    support::cRegistry machine = SettingsAt(support::RegistryRoot::LocalMachine, name);
    machine.Default = defaultValue;
    support::cRegistry user = SettingsAt(support::RegistryRoot::CurrentUser, name);
    user.Default = machine.Value();
    return user.Value().toString();
}

void SaveSet(const QString &name, const QString &value) {
    SettingsAt(support::RegistryRoot::CurrentUser, name).SetValue(value);
}

bool GetStartupEnabled() { return IsOn(kDontStartup); }
void SaveStartupEnabled(bool on) { SaveOn(kDontStartup, on); }
bool GetStartPageEnabled() { return IsOn(kDontStartPage); }
void SaveStartPageEnabled(bool on) { SaveOn(kDontStartPage, on); }

QString WindowPath() { return QStringLiteral("SOFTWARE\\") + Terms().TITLE; }

} // namespace settings
