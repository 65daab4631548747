#include "mainwindow/templates/OwnTemplates.h"

#include "support/Error.h"
#include "support/FileNames.h"
#include "support/Files.h"
#include "support/FileStem.h"
#include "support/Platform.h"

#include <QFile>
#include <QFileInfo>

namespace mainwindow {

namespace {

constexpr long kErrFileExists = 58;
const QString kRoutine = QStringLiteral("RenameTemplate");

} // namespace

bool MayChangeIn(const QString &folder) { return support::platform::MayWriteInto(folder); }

QString RenameTemplate(const QString &file, const QString &title) {
    const QFileInfo info(file);
    const QString ending = info.fileName().mid(support::FileStem(file).size());
    QString wanted = title.trimmed();
    if (wanted.endsWith(ending, Qt::CaseInsensitive)) wanted.chop(ending.size()); // typed along
    const QString name = support::SafeFileName(wanted + ending);
    const QString target = QString(file).replace(file.size() - info.fileName().size(), file.size(), name);
    if (name == info.fileName()) return file;
    if (QFileInfo::exists(target) && !support::IsSameFile(file, target))
        throw support::Error(kErrFileExists, kRoutine, QStringLiteral("File already exists: %1").arg(name));
    if (!QFile::rename(file, target)) support::Raise(support::kErrPathFileAccess, kRoutine, file);
    return target;
}

void DeleteTemplate(const QString &file) { support::Kill(file); }

} // namespace mainwindow
