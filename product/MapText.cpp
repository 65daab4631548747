#include "product/MapText.h"

#include "diagram/format/SurfaceFile.h"
#include "document/clsfrmMain.h"
#include "document/DoSave.h"
#include "document/MapSchema.h"
#include "document/MemoryWindow.h"
#include "document/SurfaceArray.h"
#include "document/Tags.h"
#include "product/NodeText.h"
#include "support/clsGUID.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>

namespace product {

namespace {

constexpr float kTwips = 15;

QJsonObject ReadText(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) Complain(QStringLiteral("%1 can't be read").arg(path));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (!document.isObject()) Complain(QStringLiteral("%1: %2").arg(path, error.errorString()));
    return document.object();
}

// The current folder while it lives: paths of files that are saved with the map are given and kept relative
// to it, since the delivered map must not name a folder of the machine that it was made on.
class InFolder {
public:
    explicit InFolder(const QDir &folder) : former_(QDir::currentPath()) {
        QDir::setCurrent(folder.absolutePath());
    }
    ~InFolder() { QDir::setCurrent(former_); }
    InFolder(const InFolder &) = delete;
    InFolder &operator=(const InFolder &) = delete;

private:
    QString former_;
};

float Twips(const QJsonValue &pixels) { return float(pixels.toDouble()) * kTwips; }

// Builds one map: holds the keys of the nodes by their ids, since hyperlinks look across slices.
class MapBuilder {
public:
    MapBuilder(document::MapWindow &window, const QDir &resources) : window_(window), resources_(resources) {}

    void Build(const QJsonArray &slices) {
        window_.TabStrip().SetTabCount(int(slices.size()));
        for (int i = 0; i < slices.size(); ++i) BuildSlice(slices[i].toObject(), i);
        for (int i = 0; i < slices.size(); ++i)
            for (const QJsonValue &node : slices[i]["nodes"].toArray()) BuildHyperlink(node.toObject());
        window_.TabStrip().SetTheTab(0);
    }

private:
    void BuildSlice(const QJsonObject &slice, int index) {
        if (index > 0) window_.AddFlow1().Load(index);
        diagram::Surface &surface = window_.AddFlow1()[index];
        window_.TabStrip().SetTheTab(index);
        window_.TabStrip().SetCaption(slice["name"].toString());
        surface.SetGridLines(slice["gridLines"].toBool());
        surface.SetBackColor(ColourOf(slice["backColour"].toString()));
        for (const QJsonValue &node : slice["nodes"].toArray()) BuildNode(surface, node.toObject());
        for (const QJsonValue &link : slice["links"].toArray()) BuildLink(surface, link.toObject());
        for (const QJsonValue &node : slice["nodes"].toArray())
            if (node["back"].toBool()) surface.Nodes().Item(KeyOf(node["id"].toString())).SendToBack();
    }

    void BuildNode(diagram::Surface &surface, const QJsonObject &text) {
        diagram::Node &node =
            surface.Nodes().Add(Twips(text["x"]), Twips(text["y"]), Twips(text["w"]), Twips(text["h"]));
        node.SetKey(support::GetGUID());
        keys_[text["id"].toString()] = node.Key();
        SetPools(node, text);
        ApplyNode(node, text, resources_);
        for (const QJsonValue &attachment : text["attachments"].toArray()) {
            QString key;
            document::cAttachment &item = window_.clsSettings().Attachments().add(key);
            item.Node = node.Key();
            item.Embed = attachment["embed"].toBool();
            item.Filename = attachment["file"].toString(); // as the map will name it, below the resources
        }
    }

    void SetPools(diagram::Node &node, const QJsonObject &text) {
        document::clsfrmMain &settings = window_.clsSettings();
        QStringList names;
        for (const QJsonValue &group : text["groups"].toArray()) names << group.toString();
        const QString groups = settings.Groups().KeyForGroupName(names.join(QLatin1Char(',')));
        if (groups.count(QLatin1Char('{')) != names.size())
            Complain(QStringLiteral("one of the groups %1 is unknown").arg(names.join(QStringLiteral(", "))));
        document::SetTag(node, document::tags::kGroup, groups);
        const QString level = settings.Levels().KeyForLevelName(text["level"].toString());
        document::SetTag(node, document::tags::kLevel, level);
        if (!level.isEmpty()) node.SetFillColor(settings.Levels().Item(level).Color);
        document::SetTag(node, document::tags::kHyper,
                         text.contains("hyperlink") ? QStringLiteral("Yes") : QStringLiteral("No"));
    }

    void BuildLink(diagram::Surface &surface, const QJsonObject &text) {
        diagram::Node &source = surface.Nodes().Item(KeyOf(text["from"].toString()));
        ApplyLink(source.Links().Add(surface.Nodes().Item(KeyOf(text["to"].toString()))), text);
    }

    void BuildHyperlink(const QJsonObject &node) {
        if (!node.contains("hyperlink")) return;
        const QJsonObject text = node["hyperlink"].toObject();
        QString key = KeyOf(node["id"].toString());
        document::cHyperlink &item = window_.clsSettings().Hyperlinks().add(key);
        item.Node = key;
        item.Slice = std::int16_t(text["slice"].toInt());
        item.DestNode = KeyOf(text["node"].toString());
    }

    QString KeyOf(const QString &id) const {
        if (!keys_.contains(id)) Complain(QStringLiteral("there is no node \"%1\"").arg(id));
        return keys_[id];
    }

    document::MapWindow &window_;
    QDir resources_;
    QHash<QString, QString> keys_;
};

} // namespace

void BuildTemplate(const QString &text, const QString &target) {
    const QJsonObject pools = ReadText(text);
    std::vector<document::LevelRow> levels;
    for (const QJsonValue &level : pools["levels"].toArray())
        levels.push_back(
            {level["name"].toString(), level["selected"].toBool(), ColourOf(level["colour"].toString())});
    std::vector<document::GroupRow> groups;
    for (const QJsonValue &group : pools["groups"].toArray())
        groups.push_back({group["name"].toString(), group["selected"].toBool()});
    document::WriteTemplate(target, levels, groups);
}

void BuildDefaultNode(const QString &text, const QString &target) {
    const QJsonObject sample = ReadText(text);
    diagram::Surface surface;
    diagram::Node &node = surface.Nodes().Add(0, 0, Twips(sample["width"]), Twips(sample["height"]));
    node.SetHidden(true);
    node.SetSelectable(false);
    ApplyNode(node, sample, QFileInfo(text).dir());
    const QJsonObject tags = sample["tags"].toObject();
    for (auto it = tags.begin(); it != tags.end(); ++it)
        document::SetTag(node, it.key(), it.value().toString());
    diagram::SaveFile(surface, target);
}

void BuildMap(const QString &text, const QDir &resources, const QString &target) {
    document::MemoryWindow window(support::CurrentDesktop());
    MapBuilder(window, resources).Build(ReadText(text)["slices"].toArray());
    QFile::remove(target);
    window.clsSettings().SetDatabase(QFileInfo(target).absoluteFilePath());
    const InFolder folder(resources);
    if (!document::DoSave(window)) Complain(QStringLiteral("%1 was not saved").arg(target));
}

} // namespace product
