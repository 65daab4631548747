#include "output/export/NewFiles.h"

#include "support/Error.h"
#include "support/Files.h"
#include "support/ManyFiles.h"

#include <QDir>
#include <QTemporaryDir>

namespace output {

namespace {

[[noreturn]] void RaiseAccess(const QString &path) {
    support::Raise(support::kErrPathFileAccess, QStringLiteral("NewFiles"), path);
}

} // namespace

NewFiles::NewFiles(const QString &folder)
    : folder_(folder),
      hidden_(std::make_unique<QTemporaryDir>(QDir(folder).filePath(QStringLiteral(".new-XXXXXX")))) {
    if (!hidden_->isValid()) RaiseAccess(folder);
}

NewFiles::~NewFiles() = default;

void NewFiles::Add(const QString &name, const QByteArray &bytes) {
    const QString target = QDir(folder_).filePath(name);
    if (support::DirExists(target) || (support::FileExists(target) && support::IsReadOnly(target)))
        RaiseAccess(target);
    support::WriteNewFile(hidden_->filePath(name), bytes);
    names_ << name;
}

void NewFiles::Commit() { support::ReplaceFiles(hidden_->path(), std::exchange(names_, {}), folder_); }

} // namespace output
