#include "document/AttachmentFolder.h"

#include "support/Error.h"
#include "support/FileNames.h"
#include "support/Files.h"

#include <QDir>
#include <QFileInfo>

namespace document {

namespace {
const QString kPurpose = QStringLiteral("attachments");
}

QString AttachmentFolder::NewPath(const QString &storedName) {
    if (!folder_ || !support::DirExists(folder_->Path())) {
        folder_ = std::make_unique<support::PrivateFolder>(kPurpose);
        doubles_ = 0;
    }
    const QString folder = support::AddBackslash(folder_->Path());
    const QString title = support::SafeFileName(support::FileTitle(storedName));
    if (!QFileInfo::exists(folder + title)) return folder + title;
    QString own;
    do {
        own = folder + QString::number(++doubles_ + 1);
    } while (QFileInfo::exists(own)); // a file may have a number for its title
    if (!QDir().mkdir(own))
        support::Raise(support::kErrPathFileAccess, QStringLiteral("AttachmentFolder"), own);
    return support::AddBackslash(own) + title;
}

bool AttachmentFolder::Holds(const QString &path) const {
    return folder_ && path.startsWith(support::AddBackslash(folder_->Path()));
}

void SweepAttachmentFolders() { support::SweepPrivateFolders(kPurpose); }

} // namespace document
