#include "dialogs/AttachmentEdit.h"

#include "diagram/model/Node.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/WhereItIs.h"
#include "settings/Settings.h"
#include "support/AtomicFile.h"
#include "support/clsGUID.h"
#include "support/Files.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>

namespace dialogs {

namespace {

using document::cAttachment;

QString Tr(const char *text) {
    return settings::ReplaceTerms(QCoreApplication::translate("dialogs::AttachmentEdit", text));
}

// The attachment of the node that the row stands for; null for a new row.
const cAttachment *Former(document::MapWindow &window, const diagram::Node &oNode,
                          const AttachmentEdit &row) {
    for (const cAttachment &attachment : window.clsSettings().Attachments())
        if (attachment.Key == row.Key && attachment.Node == oNode.Key()) return &attachment;
    return nullptr;
}

bool IsUnchanged(const cAttachment *former, const AttachmentEdit &row) {
    return former && former->Embed == row.Embed && former->Filename == row.Filename;
}

QString InMegabytes(qint64 bytes) { return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat); }

// Names both sizes, in bytes where they would read the same in megabytes.
QString TooLarge(const QString &name, qint64 size) {
    const bool differ = InMegabytes(size) != InMegabytes(kLargestEmbedded);
    const auto figure = [&](qint64 bytes) {
        return differ ? InMegabytes(bytes) : Tr("%1 bytes").arg(QLocale().toString(bytes));
    };
    return Tr("'%1' has %2. A @MAP can hold files of up to %3; without the tick at Embed it stays where it "
              "is "
              "and is linked.")
        .arg(name, figure(size), figure(kLargestEmbedded));
}

QString WhyNotReadable(const QFileInfo &file, const QString &name) {
    if (!file.exists())
        return Tr("'%1' is not there, so that it can't be embedded. Point to it in its new place, or take "
                  "the "
                  "tick from Embed.")
            .arg(name);
    if (file.isDir()) return Tr("'%1' is a folder. Only files can be embedded.").arg(name);
    if (!file.isFile() || !file.isReadable()) return Tr("'%1' can't be read.").arg(name);
    return QString();
}

QString WhyRefused(document::MapWindow &window, const diagram::Node &oNode, const AttachmentEdit &row) {
    if (row.Filename.isEmpty()) return QString();
    const QString name = support::FileTitle(row.Filename).simplified();
    if (!row.Embed && window.clsSettings().AttachmentFolder().Holds(row.Filename))
        return Tr("'%1' is kept in this @MAP alone. Save it elsewhere and point to it there before you take "
                  "the tick from Embed.")
            .arg(name);
    if (!row.Embed) return QString();
    const QFileInfo file(document::WhereItIs(row.Filename, window));
    const bool wasEmbedded = IsUnchanged(Former(window, oNode, row), row);
    const QString unreadable = WhyNotReadable(file, name);
    if (!unreadable.isEmpty()) return wasEmbedded ? QString() : unreadable;
    return file.size() > kLargestEmbedded ? TooLarge(name, file.size()) : QString();
}

// The copy of a file that is embedded.
QString CopyOf(document::MapWindow &window, const QString &filename) {
    const QString copy = window.clsSettings().AttachmentFolder().NewPath(filename);
    support::CopyFileTo(document::WhereItIs(filename, window), copy);
    return copy;
}

cAttachment Made(document::MapWindow &window, const diagram::Node &oNode, const AttachmentEdit &row) {
    const cAttachment *former = Former(window, oNode, row);
    cAttachment attachment;
    if (IsUnchanged(former, row)) attachment = *former;
    const bool copies = row.Embed && !row.Filename.isEmpty() && !IsUnchanged(former, row);
    attachment.Filename = copies ? CopyOf(window, row.Filename) : row.Filename;
    attachment.Key = row.Key.isEmpty() ? support::GetGUID() : row.Key;
    attachment.Node = oNode.Key();
    attachment.Embed = row.Embed;
    return attachment;
}

void RemoveAll(document::cAttachments &attachments, const QString &node) {
    QStringList keys;
    for (const cAttachment &attachment : attachments)
        if (attachment.Node == node) keys << attachment.Key;
    for (const QString &key : keys) attachments.Remove(key);
}

} // namespace

std::vector<AttachmentEdit> AttachmentsOf(document::MapWindow &window, const diagram::Node &oNode) {
    std::vector<AttachmentEdit> rows;
    for (const cAttachment &attachment : window.clsSettings().Attachments())
        if (attachment.Node == oNode.Key())
            rows.push_back({attachment.Key, attachment.Filename, attachment.Embed});
    return rows;
}

QString WhyAttachmentsAreRefused(document::MapWindow &window, const diagram::Node &oNode,
                                 const std::vector<AttachmentEdit> &rows) {
    for (const AttachmentEdit &row : rows)
        if (const QString why = WhyRefused(window, oNode, row); !why.isEmpty()) return why;
    return QString();
}

void ApplyAttachments(document::MapWindow &window, diagram::Node &oNode,
                      const std::vector<AttachmentEdit> &rows) {
    if (oNode.Key().isEmpty()) oNode.SetKey(support::GetGUID());
    std::vector<cAttachment> made;
    for (const AttachmentEdit &row : rows) made.push_back(Made(window, oNode, row));
    document::cAttachments &attachments = window.clsSettings().Attachments();
    RemoveAll(attachments, oNode.Key());
    for (const cAttachment &attachment : made) {
        QString key = attachment.Key;
        attachments.add(key) = attachment;
    }
    window.clsSettings().Dirty = true;
}

AttachedFile LookAt(document::MapWindow &window, const QString &filename) {
    if (filename.isEmpty()) return {};
    if (document::IsOnNetwork(filename)) return {FileState::OnNetwork, filename, 0};
    const QString path = document::WhereItIs(filename, window);
    const QFileInfo file(path);
    if (!file.exists()) return {FileState::NotFound, path, 0};
    if (file.isDir()) return {FileState::Folder, path, 0};
    return {path == filename ? FileState::Found : FileState::FoundBeside, path, file.size()};
}

} // namespace dialogs
