#include "output/mapimport/Belongings.h"

#include "diagram/model/Surface.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/SurfaceArray.h"
#include "document/Tags.h"
#include "document/WhereItIs.h"
#include "support/AtomicFile.h"
#include "support/Error.h"
#include "support/Files.h"

#include <limits>
#include <QCoreApplication>
#include <QSet>

namespace output {

namespace {

using document::cAttachment;
using document::cHyperlink;
using document::MapWindow;

QString Tr(const char *text) { return QCoreApplication::translate("DoImportMap", text); }

// The other map's tab becomes one of the new ones. False for one that isn't there.
bool LeadToNewTab(MapWindow &window, int tabs, int firstTab, cHyperlink &hyperlink) {
    const int tab = firstTab + hyperlink.Slice - 1;
    if (hyperlink.Slice < 1 || hyperlink.Slice > tabs || tab >= std::numeric_limits<std::int16_t>::max())
        return false;
    hyperlink.Slice = std::int16_t(tab + 1);
    hyperlink.SliceKey = window.TabStrip().TabKey(tab);
    return true;
}

void Add(MapWindow &window, const cHyperlink &hyperlink) {
    QString key = hyperlink.Node;
    cHyperlink &added = window.clsSettings().Hyperlinks().add(key);
    added = hyperlink;
    added.Key = key;
}

// For an embedded one the file with its bytes comes into this window's own folder.
QString FileFor(MapWindow &window, MapWindow &other, const cAttachment &attachment) {
    if (!attachment.Embed) return document::WhereItIs(attachment.Filename, other.clsSettings().Database());
    if (attachment.Filename.isEmpty()) return {};
    const QString path =
        window.clsSettings().AttachmentFolder().NewPath(support::FileTitle(attachment.Filename));
    support::CopyFileTo(attachment.Filename, path);
    return path;
}

void Add(MapWindow &window, MapWindow &other, const cAttachment &attachment, const QString &node) {
    const QString file = FileFor(window, other, attachment);
    QString key;
    cAttachment &added = window.clsSettings().Attachments().add(key);
    added.Node = node;
    added.Embed = attachment.Embed;
    added.Filename = file;
    added.Stored = attachment.Stored;
}

// The values that nodes of the map have under the key of a tag, each once.
QSet<QString> Used(MapWindow &other, const QString &key) {
    QSet<QString> used;
    for (const int index : other.AddFlow1().Indices())
        for (const diagram::Node &node : other.AddFlow1()[index].Nodes())
            used.insert(document::GetTag(node, key));
    return used;
}

} // namespace

QStringList BringHyperlinks(MapWindow &window, MapWindow &other, const NewKeys &keys, int firstTab) {
    QStringList lost;
    const int tabs = other.TabStrip().TabCount();
    for (cHyperlink hyperlink : other.clsSettings().Hyperlinks()) {
        const QString node = keys.value(hyperlink.Node);
        const bool inside = hyperlink.Map.isEmpty();
        if (node.isEmpty() || (inside && !LeadToNewTab(window, tabs, firstTab, hyperlink))) {
            lost.append(Tr("a hyperlink to slice %1").arg(hyperlink.Slice));
            continue;
        }
        hyperlink.Node = node;
        if (inside)
            hyperlink.DestNode = keys.value(hyperlink.DestNode);
        else
            hyperlink.Map = document::WhereItIs(hyperlink.Map, other.clsSettings().Database());
        Add(window, hyperlink);
    }
    return lost;
}

QStringList BringAttachments(MapWindow &window, MapWindow &other, const NewKeys &keys) {
    QStringList lost;
    for (const cAttachment &attachment : other.clsSettings().Attachments()) {
        const QString node = keys.value(attachment.Node);
        try {
            if (!node.isEmpty()) Add(window, other, attachment, node);
        } catch (const support::Error &error) {
            lost.append(Tr("the attachment %1 (%2)")
                            .arg(support::FileTitle(attachment.Filename), error.Description()));
            continue;
        }
        if (node.isEmpty()) lost.append(Tr("the attachment %1").arg(support::FileTitle(attachment.Filename)));
    }
    return lost;
}

QStringList MissingNames(MapWindow &window, MapWindow &other) {
    QStringList missing;
    document::clsfrmMain &here = window.clsSettings(), &there = other.clsSettings();
    const QSet<QString> levels = Used(other, document::tags::kLevel);
    for (const document::cLevel &level : there.Levels())
        if (levels.contains(level.Key) && here.Levels().KeyForLevelName(level.LevelName).isEmpty())
            missing.append(Tr("the level %1").arg(level.LevelName));
    const QStringList groups = Used(other, document::tags::kGroup).values().join(u',').split(u',');
    for (const document::cGroup &group : there.Groups())
        if (groups.contains(group.Key) && here.Groups().KeyForGroupName(group.GroupName).isEmpty())
            missing.append(Tr("the group %1").arg(group.GroupName));
    return missing;
}

} // namespace output
