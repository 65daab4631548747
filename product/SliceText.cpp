#include "product/SliceText.h"

#include "diagram/model/Surface.h"
#include "document/clsfrmMain.h"
#include "document/MapWindow.h"
#include "document/Tags.h"
#include "product/NodeText.h"
#include "product/TimelineText.h"
#include "support/clsGUID.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

namespace product {

namespace {

void SetGroups(document::clsfrmMain &settings, diagram::Node &node, const QJsonObject &text) {
    QStringList names;
    for (const QJsonValue group : text["groups"].toArray()) names << group.toString();
    const QString groups = settings.Groups().KeyForGroupName(names.join(QLatin1Char(',')));
    if (groups.count(QLatin1Char('{')) != names.size())
        Complain(QStringLiteral("one of the groups %1 is unknown").arg(names.join(QStringLiteral(", "))));
    document::SetTag(node, document::tags::kGroup, groups);
}

void SetLevel(document::clsfrmMain &settings, diagram::Node &node, const QString &name) {
    const QString level = settings.Levels().KeyForLevelName(name);
    if (level.isEmpty() && !name.isEmpty()) Complain(QStringLiteral("the level %1 is unknown").arg(name));
    document::SetTag(node, document::tags::kLevel, level);
    if (!level.isEmpty()) node.SetFillColor(settings.Levels().Item(level).Color);
}

void BuildNode(document::MapWindow &window, diagram::Surface &surface, const QJsonObject &text,
               const QDir &resources, NodeKeys &keys) {
    diagram::Node &node =
        surface.Nodes().Add(Twips(text["x"]), Twips(text["y"]), Twips(text["w"]), Twips(text["h"]));
    node.SetKey(support::GetGUID());
    if (text.contains("id")) keys.Add(text["id"].toString(), node.Key());
    SetGroups(window.clsSettings(), node, text);
    SetLevel(window.clsSettings(), node, text["level"].toString());
    document::SetTag(node, document::tags::kHyper,
                     text.contains("hyperlink") ? QStringLiteral("Yes") : QStringLiteral("No"));
    ApplyNode(node, text, resources);
    if (text["back"].toBool()) node.SendToBack();
}

void BuildLink(diagram::Surface &surface, const QJsonObject &text, const NodeKeys &keys) {
    diagram::Node &source = surface.Nodes().Item(keys.Of(text["from"].toString()));
    ApplyLink(source.Links().Add(surface.Nodes().Item(keys.Of(text["to"].toString()))), text);
}

} // namespace

QJsonObject ReadText(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) Complain(QStringLiteral("%1 can't be read").arg(path));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (!document.isObject()) Complain(QStringLiteral("%1: %2").arg(path, error.errorString()));
    return document.object();
}

QJsonObject LooksOf(const QDir &edition) {
    return ReadText(edition.filePath(QStringLiteral("../looks.json")));
}

QString NodeKeys::Of(const QString &id) const {
    if (!keys_.contains(id)) Complain(QStringLiteral("there is no node \"%1\"").arg(id));
    return keys_[id];
}

void BuildSlice(document::MapWindow &window, diagram::Surface &surface, const QJsonObject &slice,
                const QDir &resources, NodeKeys &keys) {
    surface.SetGridLines(slice["gridLines"].toBool());
    surface.SetBackColor(ColourOf(slice["backColour"].toString(QStringLiteral("#FFFFFF"))));
    for (const QJsonValue node : slice["nodes"].toArray())
        BuildNode(window, surface, node.toObject(), resources, keys);
    for (const QJsonValue link : slice["links"].toArray()) BuildLink(surface, link.toObject(), keys);
    if (slice.contains("timeline")) BuildTimeline(window, surface, slice, resources, keys);
}

} // namespace product
