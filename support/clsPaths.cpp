#include "support/clsPaths.h"

#include "support/cRegistry.h"
#include "support/Files.h"
#include "support/Platform.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace support {

namespace {

// A path that only Windows can resolve, on another platform.
bool IsForeign(const QString &path) {
#ifdef Q_OS_WIN
    Q_UNUSED(path);
    return false;
#else
    return SeparatorOf(path) == QLatin1Char('\\');
#endif
}

// `part` as its folder spells it: the same case first, then any; itself when the folder has no such entry.
QString SpellingOf(const QDir &folder, const QString &part) {
    const QStringList names = folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
    if (names.contains(part)) return part;
    for (const QString &name : names)
        if (name.compare(part, Qt::CaseInsensitive) == 0) return name;
    return part;
}

// The documents folder that exists, or an empty text.
QString PlatformDocumentsFolder() {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return DirExists(folder) ? folder : QString();
}

QString RegisteredDocumentsFolder() {
    cRegistry registry;
    registry.SectionKey =
        QStringLiteral("Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders");
    registry.ValueKey = QStringLiteral("Personal");
    return registry.Value().toString();
}

} // namespace

QString clsPaths::DoGetFileTitle(const QString &path) const { return FileTitle(path); }

QString clsPaths::DoGetFilePath(const QString &path) const {
    const qsizetype end = LastSeparator(path);
    if (end < 0) return QString();
    const bool isRoot = end == 0 || (end == 2 && path[1] == QLatin1Char(':'));
    return path.left(isRoot ? end + 1 : end);
}

QString clsPaths::shortName(const QString &path) const {
    const QString form = platform::ShortForm(path);
    return form.isEmpty() ? path : form;
}

QString clsPaths::LongName(const QString &path) const {
    if (path.isEmpty() || IsForeign(path)) return path;
    const QString form = platform::LongForm(path);
    if (!form.isEmpty()) return form;
    return QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
}

QString clsPaths::LongName2(const QString &path) const {
    if (path.isEmpty() || IsForeign(path)) return path;
    const QString whole = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    // The root stays: "/" or "C:/".
    const qsizetype rootEnd = whole.indexOf(QLatin1Char('/')) + 1;
    QString result = whole.left(rootEnd);
    for (const QString &part : whole.mid(rootEnd).split(QLatin1Char('/'), Qt::SkipEmptyParts))
        result = AddBackslash(result, QStringLiteral("/")) + SpellingOf(QDir(result), part);
    return QDir::toNativeSeparators(result);
}

QString clsPaths::GetMyDocsPath() const {
    QString folder = RegisteredDocumentsFolder();
    if (folder.isEmpty()) folder = PlatformDocumentsFolder();
    if (folder.isEmpty()) folder = ProgramPath();
    return AddBackslash(LongName(folder));
}

QString clsPaths::GetMyDocsOrHomePath() const {
    QString folder = RegisteredDocumentsFolder();
    if (!DirExists(folder)) folder = PlatformDocumentsFolder();
    if (folder.isEmpty()) folder = QDir::homePath();
    return AddBackslash(LongName(folder));
}

QString clsPaths::GetWinDir() const { return AddBackslash(platform::WindowsFolder()); }

QString clsPaths::GetSysDir() const { return AddBackslash(platform::SystemFolder()); }

} // namespace support
