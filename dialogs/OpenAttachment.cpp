#include "dialogs/OpenAttachment.h"

#include "document/LastPath.h"
#include "document/MapWindow.h"
#include "document/WhereItIs.h"
#include "settings/Settings.h"
#include "support/AtomicFile.h"
#include "support/cOpenFile.h"
#include "support/FileNames.h"
#include "support/Files.h"
#include "support/RunnableFile.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace dialogs {

namespace {

const QString kAllFiles = QStringLiteral("All Files|*.*");

QString Tr(const char *text) {
    return settings::ReplaceTerms(QCoreApplication::translate("dialogs::OpenAttachment", text));
}

// What a name could hide, line ends and changes of the direction of writing, is shown as a blank.
QString Shown(QString name) {
    for (QChar &character : name)
        if (character.category() == QChar::Other_Format) character = u' ';
    return name.simplified();
}

bool MayRun(support::Desktop &desktop, const QString &path) {
    const QString question =
        Tr("'%1' can run as a program, and may do then whatever you may do on this "
           "machine.\r\n\r\nOpen it only if you trust those from whom you have it. Open it?");
    return desktop.messageBoxes.Show(question.arg(Shown(support::FileTitle(path))), support::Buttons::YesNo,
                                     support::Icon::Exclamation, settings::Terms().TITLE,
                                     support::EnterPresses::No) == support::Answer::Yes;
}

} // namespace

bool OpenAttachment(document::MapWindow &window, const QString &filename) {
    support::Desktop &desktop = window.Desktop();
    const QString path = document::WhereItIs(filename, window);
    if (QFileInfo::exists(path) && support::CanRun(path) && !MayRun(desktop, path)) return false;
    return support::cOpenFile(desktop).LaunchFile(path);
}

bool SaveAttachmentAs(document::MapWindow &window, const QString &filename, support::Owner owner) {
    using namespace support::fileflags;
    int filterRow = 1;
    const QString name = support::SafeFileName(support::FileTitle(filename));
    const QString target = window.Desktop().dialogs.ShowSaveFileDialog(
        kAllFiles, QString(), document::LastPath() + name, kHideReadOnly | kOverwritePrompt | kPathMustExist,
        owner, filterRow);
    if (target.isEmpty()) return false;
    const QString source = document::WhereItIs(filename, window);
    if (!QFileInfo::exists(source) || !support::IsSameFile(source, target))
        support::CopyFileTo(source, target);
    return true;
}

QString AskForAttachment(support::Desktop &desktop, support::Owner owner) {
    using namespace support::fileflags;
    int filterRow = 1;
    return desktop.dialogs.ShowOpenFileDialog(kAllFiles, QString(), document::LastPath(),
                                              kHideReadOnly | kFileMustExist, owner, filterRow);
}

} // namespace dialogs
