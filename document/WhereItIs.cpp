#include "document/WhereItIs.h"

#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "support/clsPaths.h"
#include "support/Files.h"

#include <algorithm>
#include <QDir>
#include <QFileInfo>

namespace document {

namespace {

// The parts of the path behind its root.
QStringList PartsOf(QString path) {
    if (support::SeparatorOf(path) == u'\\') path.replace(u'\\', u'/');
    QStringList parts = path.split(u'/', Qt::SkipEmptyParts);
    if (!parts.isEmpty() && parts.first().endsWith(u':')) parts.removeFirst();
    return parts;
}

// The longest end of the path that stands below the folder; empty for none.
QString FoundBelow(const QString &folder, const QStringList &parts) {
    constexpr qsizetype kDeepest = 64; // a path in a map may be of any length
    if (parts.contains(QStringLiteral(".."))) return QString();
    for (qsizetype first = std::max(qsizetype(0), parts.size() - kDeepest); first < parts.size(); ++first) {
        const QString path = QDir(folder).filePath(parts.mid(first).join(u'/'));
        if (QFileInfo::exists(path)) return QDir::toNativeSeparators(path);
    }
    return QString();
}

bool HasRoot(const QString &path) {
    return QDir::isAbsolutePath(path) || (path.size() > 1 && path[1] == u':') || path.startsWith(u'\\');
}

} // namespace

QString WhereItIs(const QString &stored, const QString &map) {
    if (stored.isEmpty() || (HasRoot(stored) && QFileInfo::exists(stored))) return stored;
    const QString folder = support::clsPaths().DoGetFilePath(map);
    const QString found = folder.isEmpty() ? QString() : FoundBelow(folder, PartsOf(stored));
    return found.isEmpty() ? stored : found;
}

QString WhereItIs(const QString &stored, MapWindow &window) {
    return WhereItIs(stored, window.clsSettings().ShownFile());
}

bool IsOnNetwork(const QString &path) {
    return path.startsWith(QLatin1String("\\\\")) || path.startsWith(QLatin1String("//"));
}

} // namespace document
