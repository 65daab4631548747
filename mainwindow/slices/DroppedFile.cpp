#include "mainwindow/slices/DroppedFile.h"

#include "diagram/model/Node.h"
#include "document/clsfrmMain.h"
#include "mainwindow/icons/Icons.h"
#include "settings/Settings.h"
#include "support/clsGUID.h"

namespace mainwindow {

namespace {

QString Caption(const QString &text, QString name) {
    return settings::ReplaceTerms(text).arg(name.replace(u'&', QLatin1String("&&")));
}

bool IsAttached(const document::cAttachments &attachments, const diagram::Node &node, const QString &file) {
    for (const document::cAttachment &attachment : attachments)
        if (attachment.Node == node.Key() && attachment.Filename == file) return true;
    return false;
}

} // namespace

bool AttachFile(document::clsfrmMain &settings, diagram::Node &node, const QString &file) {
    if (node.Key().isEmpty()) node.SetKey(support::GetGUID());
    document::cAttachments &attachments = settings.Attachments();
    if (IsAttached(attachments, node, file)) return false;
    QString key;
    document::cAttachment &attachment = attachments.add(key);
    attachment.Node = node.Key();
    attachment.Filename = file;
    settings.Dirty = true;
    return true;
}

DropMenu::DropMenu(const QString &name, bool isPicture, QWidget *parent) : QMenu(parent) {
    setObjectName(QStringLiteral("DropMenu"));
    setAttribute(Qt::WA_DeleteOnClose);
    const QAction *attach =
        addAction(Icon(QStringLiteral("attach")), Caption(tr("&Attach %1 to this @NODE"), name));
    QAction *picture = addAction(Icon(QStringLiteral("picture")), Caption(tr("Use %1 as &picture"), name));
    picture->setEnabled(isPicture);
    addSeparator();
    addAction(tr("&Cancel"));
    connect(attach, &QAction::triggered, this, &DropMenu::Attach);
    connect(picture, &QAction::triggered, this, &DropMenu::UseAsPicture);
}

} // namespace mainwindow
