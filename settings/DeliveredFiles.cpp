#include "settings/DeliveredFiles.h"

#include "settings/Settings.h"
#include "support/Desktop.h"
#include "support/Error.h"
#include "support/Files.h"
#include "support/Platform.h"

#include <QCoreApplication>
#include <QDir>

namespace settings {

namespace {

// The user's own copies, in a folder for each edition.
QString UsersFolder() {
    return QStringLiteral("%1/velmora/%2").arg(support::platform::ConfigFolder(), Terms().TITLE);
}

QString InProgramFolder(const QString &name) { return support::AddBackslash(support::ProgramPath()) + name; }
QString InUsersFolder(const QString &name) { return UsersFolder() + QLatin1Char('/') + name; }

bool MayReplace(const QString &path) {
    return support::platform::MayWriteInto(support::ProgramPath()) && !support::IsReadOnly(path);
}

void MakeFolder(const QString &folder, const char *source) {
    if (QDir().mkpath(folder)) return;
    support::Raise(support::kErrPathNotFound, QLatin1String(source), folder);
}

// Whether new files may go into a folder below the program's. Makes the folder where it is missing.
bool MayFill(const QString &folder) {
    if (support::DirExists(folder)) return support::platform::MayWriteInto(folder);
    return support::platform::MayWriteInto(support::ProgramPath()) && QDir().mkpath(folder);
}

} // namespace

QString PathToRead(const QString &name) {
    const QString delivered = InProgramFolder(name), own = InUsersFolder(name);
    return support::FileExists(own) && !MayReplace(delivered) ? own : delivered;
}

QString PathToWrite(const QString &name) {
    const QString delivered = InProgramFolder(name);
    if (MayReplace(delivered)) return delivered;
    MakeFolder(UsersFolder(), "PathToWrite");
    return InUsersFolder(name);
}

QString TemplatesFolder() { return support::AddBackslash(InProgramFolder(QStringLiteral("Templates"))); }

QString OwnTemplatesFolder() {
    return QDir::toNativeSeparators(
        QStringLiteral("%1/velmora/%2/Templates/").arg(support::platform::DataFolder(), Terms().TITLE));
}

QString FolderForTemplates() {
    const QString beside = TemplatesFolder();
    if (MayFill(beside)) return beside;
    const QString own = OwnTemplatesFolder();
    MakeFolder(own, "FolderForTemplates");
    return own;
}

void TellOfOwnCopies(const QStringList &paths) {
    QStringList own;
    for (const QString &path : paths)
        if (path.startsWith(UsersFolder() + QLatin1Char('/'))) own << QDir::toNativeSeparators(path);
    if (own.isEmpty()) return;
    const QString text =
        QCoreApplication::translate("settings", "The folder of the program may not be written:\r\n%1\r\n\r\n"
                                                "What you chose is kept for you alone, in\r\n%2");
    support::CurrentDesktop().messageBoxes.Show(
        text.arg(QDir::toNativeSeparators(support::ProgramPath()), own.join(QStringLiteral("\r\n"))),
        support::Buttons::Ok, support::Icon::Information, Terms().TITLE);
}

} // namespace settings
