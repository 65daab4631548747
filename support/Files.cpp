#include "support/Files.h"

#include "support/Error.h"
#include "support/Platform.h"

#include <algorithm>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryFile>

namespace support {

namespace {

QString programFolder;

// The path with its links resolved; as it is where nothing exists.
QString ResolvedPath(const QString &path) {
    const QString resolved = QFileInfo(path).canonicalFilePath();
    return resolved.isEmpty() ? path : resolved;
}

bool StartsLikeWindows(const QString &path) {
    return (path.size() >= 2 && path[0].isLetter() && path[1] == QLatin1Char(':')) ||
           path.startsWith(QLatin1String("\\\\"));
}

// Whether the backslash separates the parts of `path`.
bool HasBackslashes(const QString &path) {
#ifdef Q_OS_WIN
    Q_UNUSED(path);
    return true;
#else
    return StartsLikeWindows(path) || !path.startsWith(QLatin1Char('/'));
#endif
}

bool IsSeparator(QChar character, bool backslashes) {
    return character == QLatin1Char('/') || (backslashes && character == QLatin1Char('\\'));
}

[[noreturn]] void RaiseOfFile(long number, const char *routine, const QString &path) {
    Raise(number, QString::fromLatin1(routine), path);
}

bool LacksWriteRights(const QFileInfo &info) {
    constexpr QFile::Permissions kWrite = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    return !info.isWritable() || !(info.permissions() & kWrite);
}

int AttributesOf(const QFileInfo &info) {
    int attributes = fileattributes::kNormal;
    if (info.isDir()) attributes |= fileattributes::kDirectory;
    if (info.isHidden()) attributes |= fileattributes::kHidden;
    if (LacksWriteRights(info)) attributes |= fileattributes::kReadOnly;
    return attributes;
}

// The filter for names that the second argument of GetFiles asks for.
QDir::Filters FiltersFor(int attributes) {
    QDir::Filters filters = QDir::Files;
    if (attributes & fileattributes::kHidden) filters |= QDir::Hidden;
    if (attributes & fileattributes::kSystem) filters |= QDir::System;
    if (attributes & fileattributes::kDirectory) filters |= QDir::Dirs;
    return filters;
}

// A folder's path as the platform opens it: parts that another platform's separator divides become its own.
QString OpenablePath(const QString &path) {
    if (StartsLikeWindows(path) || !HasBackslashes(path)) return QDir::fromNativeSeparators(path);
    QString own = path;
    return own.replace(QLatin1Char('\\'), QLatin1Char('/'));
}

QRegularExpression NamePattern(const QString &pattern) {
    // A name without a point matches "*.*" too, and "*." names that have no extension.
    if (pattern == QLatin1String("*.*")) return QRegularExpression(QString());
    if (pattern == QLatin1String("*.")) return QRegularExpression(QStringLiteral("\\A[^.]*\\z"));
    QString expression = QRegularExpression::escape(pattern);
    expression.replace(QLatin1String("\\*"), QLatin1String(".*"))
        .replace(QLatin1String("\\?"), QLatin1String("."));
    return QRegularExpression(QRegularExpression::anchoredPattern(expression),
                              QRegularExpression::CaseInsensitiveOption |
                                  QRegularExpression::DotMatchesEverythingOption);
}

} // namespace

QChar SeparatorOf(const QString &path) {
    if (StartsLikeWindows(path)) return QLatin1Char('\\');
    for (const QChar character : path)
        if (IsSeparator(character, HasBackslashes(path))) return character;
    return QDir::separator();
}

qsizetype LastSeparator(const QString &path) {
    const bool backslashes = HasBackslashes(path);
    qsizetype position = path.size() - 1;
    while (position >= 0 && !IsSeparator(path[position], backslashes)) --position;
    return position;
}

QString AddBackslash(const QString &text, const QString &ending) {
    return text.endsWith(ending) ? text : text + ending;
}

QString AddBackslash(const QString &folder) {
    if (!folder.isEmpty() && LastSeparator(folder) == folder.size() - 1) return folder;
    return folder + SeparatorOf(folder);
}

bool IsSameFile(const QString &a, const QString &b) {
    const bool ofWindows = StartsLikeWindows(a) && StartsLikeWindows(b);
    return IsSameFile(a, b, ofWindows ? Qt::CaseInsensitive : platform::PathCase());
}

bool IsSameFile(const QString &a, const QString &b, Qt::CaseSensitivity sensitivity) {
    const QString first = ResolvedPath(a), second = ResolvedPath(b);
    if (first == second) return true;
    if (first.compare(second, Qt::CaseInsensitive) != 0) return false;
    const QByteArray identity = platform::FileIdentity(first), other = platform::FileIdentity(second);
    if (identity.isEmpty() || other.isEmpty()) return sensitivity == Qt::CaseInsensitive;
    return identity == other;
}

bool FileExists(const QString &path) {
    const QFileInfo info(path);
    return !path.isEmpty() && info.exists() && !info.isDir();
}

bool DirExists(const QString &path) { return !path.isEmpty() && QFileInfo(path).isDir(); }

QString GetFileTitle(const QString &path, bool bWithExt) {
    const QString title = FileTitle(path);
    if (bWithExt) return title;
    const qsizetype point = title.lastIndexOf(QLatin1Char('.'));
    if (point < 0) Raise(kErrInvalidProcedureCall, QStringLiteral("GetFileTitle"));
    return title.left(point);
}

QString FileTitle(const QString &path) { return path.mid(LastSeparator(path) + 1); }

QString TempPath() { return QDir::toNativeSeparators(QDir::tempPath()); }

QString GetTempFile(const QString &prefix) {
    const QString start = prefix.isEmpty() ? QStringLiteral("ABC") : prefix.left(3);
    QTemporaryFile file(QDir::tempPath() + QLatin1Char('/') + start + QStringLiteral("XXXXXX.tmp"));
    file.setAutoRemove(false);
    if (!file.open()) RaiseOfFile(kErrPathFileAccess, "GetTempFile", TempPath());
    return QDir::toNativeSeparators(file.fileName());
}

QStringList GetFiles(const QString &pattern, int attributes) {
    const qsizetype end = LastSeparator(pattern) + 1;
    const QDir folder(end == 0 ? QStringLiteral(".") : OpenablePath(pattern.left(end)));
    if (!folder.exists()) return {};
    const QRegularExpression expression = NamePattern(pattern.mid(end));
    QStringList names;
    for (const QString &name : folder.entryList(FiltersFor(attributes), QDir::Unsorted))
        if (expression.match(name).hasMatch()) names.append(name);
    std::sort(names.begin(), names.end(), [](const QString &a, const QString &b) {
        const int order = a.compare(b, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : a < b;
    });
    return names;
}

int GetFileAttribs(const QString &path) {
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists()) RaiseOfFile(kErrFileNotFound, "GetFileAttribs", path);
    return AttributesOf(info);
}

bool IsReadOnly(const QString &path) {
    const QFileInfo info(path);
    return info.exists() && LacksWriteRights(info);
}

void Kill(const QString &path) {
    if (!FileExists(path)) RaiseOfFile(kErrFileNotFound, "Kill", path);
    if (IsReadOnly(path)) RaiseOfFile(kErrPathFileAccess, "Kill", path);
    if (!QFile::remove(path)) RaiseOfFile(kErrPermissionDenied, "Kill", path);
}

void ClearReadOnly(const QString &path) {
    if (!FileExists(path)) return;
    QFile::setPermissions(path, QFile::permissions(path) | QFileDevice::WriteOwner | QFileDevice::WriteUser);
}

QString ProgramPath() {
    if (!programFolder.isEmpty()) return programFolder;
    if (QCoreApplication::instance()) return QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
    return QDir::toNativeSeparators(QFileInfo(platform::ExecutablePath()).absolutePath());
}

void SetProgramPath(const QString &folder) { programFolder = folder; }

} // namespace support
