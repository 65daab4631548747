#include "product/MapText.h"

#include "diagram/format/SurfaceFile.h"
#include "document/clsfrmMain.h"
#include "document/DoSave.h"
#include "document/MapSchema.h"
#include "document/MemoryWindow.h"
#include "document/SurfaceArray.h"
#include "document/Tags.h"
#include "product/LayoutText.h"
#include "product/NodeText.h"
#include "product/SliceText.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>

namespace product {

namespace {

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

// Builds one map. Knows the keys of the nodes of all slices by their ids: hyperlinks lead to other slices.
class MapBuilder {
public:
    MapBuilder(document::MapWindow &window, const QDir &resources) : window_(window), resources_(resources) {}

    void Build(const QJsonArray &texts) {
        std::vector<QJsonObject> slices;
        for (const QJsonValue text : texts)
            slices.push_back(WrittenOut(text.toObject(), LooksOf(resources_)));
        window_.TabStrip().SetTabCount(int(slices.size()));
        for (int i = 0; i < int(slices.size()); ++i) BuildOne(slices[std::size_t(i)], i);
        for (const QJsonObject &slice : slices)
            for (const QJsonValue node : slice["nodes"].toArray()) {
                Attach(node.toObject());
                BuildHyperlink(node.toObject());
            }
        window_.TabStrip().SetTheTab(0);
    }

private:
    void BuildOne(const QJsonObject &slice, int index) {
        if (index > 0) window_.AddFlow1().Load(index);
        window_.TabStrip().SetTheTab(index);
        window_.TabStrip().SetCaption(slice["name"].toString());
        BuildSlice(window_, window_.AddFlow1()[index], slice, resources_, keys_);
    }

    void Attach(const QJsonObject &node) {
        for (const QJsonValue attachment : node["attachments"].toArray()) {
            QString key;
            document::cAttachment &item = window_.clsSettings().Attachments().add(key);
            item.Node = keys_.Of(node["id"].toString());
            item.Embed = attachment["embed"].toBool();
            item.Filename = attachment["file"].toString(); // as the map will name it, below the resources
        }
    }

    void BuildHyperlink(const QJsonObject &node) {
        if (!node.contains("hyperlink")) return;
        const QJsonObject text = node["hyperlink"].toObject();
        QString key = keys_.Of(node["id"].toString());
        document::cHyperlink &item = window_.clsSettings().Hyperlinks().add(key);
        item.Node = key;
        item.Slice = std::int16_t(text["slice"].toInt());
        item.DestNode = keys_.Of(text["node"].toString());
    }

    document::MapWindow &window_;
    QDir resources_;
    NodeKeys keys_;
};

} // namespace

void BuildTemplate(const QString &text, const QString &target) {
    const QJsonObject pools = ReadText(text);
    std::vector<document::LevelRow> levels;
    for (const QJsonValue level : pools["levels"].toArray())
        levels.push_back(
            {level["name"].toString(), level["selected"].toBool(), ColourOf(level["colour"].toString())});
    std::vector<document::GroupRow> groups;
    for (const QJsonValue group : pools["groups"].toArray())
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
