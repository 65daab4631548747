// What a map holds, for people and as JSON.
#include "cli/Commands.h"
#include "cli/Session.h"
#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "timeline/Span.h"

#include <algorithm>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <unordered_map>

namespace cli {

namespace {

using document::MapWindow;

struct FontHash {
    std::size_t operator()(const diagram::Font &font) const { return font.Hash(); }
};
using FontUses = std::unordered_map<diagram::Font, int, FontHash>;

struct Counts {
    int links = 0, points = 0, pictures = 0, hidden = 0;
};

Counts CountItems(diagram::Surface &surface, FontUses &fonts) {
    Counts counts;
    for (const diagram::Node &node : surface.Nodes()) {
        ++fonts[node.Font()];
        counts.pictures += !node.Picture().IsNull();
        counts.hidden += node.Hidden();
    }
    for (const auto &link : surface.Links()) {
        ++fonts[link->Font()];
        ++counts.links;
        counts.points += static_cast<int>(link->Route().size());
    }
    return counts;
}

struct Dates {
    int count = 0; // of nodes with a date
    QDate first, last;
};

Dates DatesOf(const diagram::Surface &surface) {
    Dates dates;
    for (const diagram::Node &node : surface.Nodes()) {
        const auto span = node.Selectable() ? timeline::SpanOfNode(node) : std::nullopt;
        if (!span) continue;
        dates.first = dates.count == 0 ? span->first : std::min(dates.first, span->first);
        dates.last = dates.count == 0 ? span->End() : std::max(dates.last, span->End());
        ++dates.count;
    }
    return dates;
}

QJsonObject SliceObject(MapWindow &window, diagram::Surface &surface, int tab, FontUses &fonts) {
    const Counts counts = CountItems(surface, fonts);
    const Dates dates = DatesOf(surface);
    return {{"number", tab + 1},
            {"index", surface.Index()},
            {"name", window.TabStrip().TabCaption(tab)},
            {"nodes", surface.Nodes().Count()},
            {"hiddenNodes", counts.hidden},
            {"links", counts.links},
            {"points", counts.points},
            {"pictures", counts.pictures},
            {"dated", dates.count},
            {"firstDate", dates.first.toString(Qt::ISODate)},
            {"lastDate", dates.last.toString(Qt::ISODate)},
            {"backColor", surface.BackColor()},
            {"backPicture", !surface.Picture().IsNull()},
            {"gridLines", surface.GridLines()},
            {"xZoom", surface.xZoom()},
            {"yZoom", surface.yZoom()},
            {"timeline", document::GetTag(surface, document::tags::kTimelineAlign)},
            {"missing", document::GetTag(surface, document::tags::kMissing)}};
}

QJsonArray FontArray(const FontUses &fonts) {
    QList<QJsonObject> rows;
    for (const auto &[font, uses] : fonts)
        rows.append({{"name", font.Name()},
                     {"size", font.Size()},
                     {"bold", font.Bold()},
                     {"italic", font.Italic()},
                     {"underline", font.Underline()},
                     {"strike", font.Strike()},
                     {"uses", uses}});
    std::sort(rows.begin(), rows.end(), [](const QJsonObject &a, const QJsonObject &b) {
        if (a["uses"].toInt() != b["uses"].toInt()) return a["uses"].toInt() > b["uses"].toInt();
        return QJsonDocument(a).toJson() < QJsonDocument(b).toJson();
    });
    QJsonArray array;
    for (const QJsonObject &row : rows) array.append(row);
    return array;
}

void AddPools(document::clsfrmMain &settings, QJsonObject &map) {
    QJsonArray levels, groups, hyperlinks, attachments;
    for (const document::cLevel &level : settings.Levels())
        levels.append(
            QJsonObject{{"name", level.LevelName}, {"selected", level.Selected}, {"color", level.Color}});
    for (const document::cGroup &group : settings.Groups())
        groups.append(QJsonObject{{"name", group.GroupName}, {"selected", group.Selected}});
    for (const document::cHyperlink &link : settings.Hyperlinks())
        hyperlinks.append(QJsonObject{
            {"node", link.Node}, {"map", link.Map}, {"slice", link.Slice}, {"destination", link.DestNode}});
    for (const document::cAttachment &attachment : settings.Attachments())
        attachments.append(QJsonObject{
            {"node", attachment.Node}, {"file", attachment.Filename}, {"embedded", attachment.Embed}});
    QJsonArray views;
    for (const document::FilterView &view : settings.Views)
        views.append(
            QJsonObject{{"name", view.Name},
                        {"levels", QJsonArray::fromStringList(document::LevelNames(settings, view))},
                        {"groups", QJsonArray::fromStringList(document::GroupNames(settings, view))}});
    map["views"] = views;
    map["levels"] = levels;
    map["groups"] = groups;
    map["hyperlinks"] = hyperlinks;
    map["attachments"] = attachments;
}

QJsonObject Describe(MapWindow &window) {
    QJsonObject map{{"file", window.clsSettings().Database()}};
    FontUses fonts;
    QJsonArray slices;
    int tab = 0;
    for (const int index : window.AddFlow1().Indices())
        slices.append(SliceObject(window, window.AddFlow1()[index], tab++, fonts));
    map["slices"] = slices;
    map["fonts"] = FontArray(fonts);
    AddPools(window.clsSettings(), map);
    return map;
}

QString FontText(const QJsonObject &font) {
    QString text = QStringLiteral("%1 %2").arg(font["name"].toString()).arg(font["size"].toDouble());
    for (const char *style : {"bold", "italic", "underline", "strike"})
        if (font[QLatin1String(style)].toBool()) text += QLatin1Char(' ') + QLatin1String(style);
    return text;
}

QString NamesOf(const QJsonArray &rows) {
    QStringList names;
    for (const auto &row : rows) names.append(row.toObject()["name"].toString());
    return names.join(QStringLiteral(", "));
}

// Nothing for a slice without dates.
QString DatesText(const QJsonObject &slice) {
    const int count = slice["dated"].toInt();
    if (count == 0) return {};
    return QStringLiteral(", %1 dated from %2 to %3")
        .arg(count)
        .arg(slice["firstDate"].toString(), slice["lastDate"].toString());
}

void ShowText(const QJsonObject &map, QTextStream &out) {
    out << map["file"].toString() << "\n";
    const QJsonArray slices = map["slices"].toArray(), fonts = map["fonts"].toArray();
    for (const auto &value : slices) {
        const QJsonObject slice = value.toObject();
        out << "slice " << slice["number"].toInt() << " '" << slice["name"].toString()
            << "': " << slice["nodes"].toInt() << " nodes (" << slice["hiddenNodes"].toInt() << " hidden), "
            << slice["links"].toInt() << " links, " << slice["points"].toInt() << " points, "
            << slice["pictures"].toInt() << " pictures" << DatesText(slice) << "\n";
    }
    for (const auto &font : fonts)
        out << "font " << FontText(font.toObject()) << ": " << font.toObject()["uses"].toInt() << " uses\n";
    out << "levels: " << NamesOf(map["levels"].toArray()) << "\n";
    out << "groups: " << NamesOf(map["groups"].toArray()) << "\n";
    if (const QJsonArray views = map["views"].toArray(); !views.isEmpty())
        out << "views: " << NamesOf(views) << "\n";
    out << "hyperlinks: " << map["hyperlinks"].toArray().size() << "\n";
    out << "attachments: " << map["attachments"].toArray().size() << "\n";
}

} // namespace

int Info(QStringList arguments, QTextStream &out) {
    const bool asJson = TakeSwitch(arguments, QStringLiteral("--json"));
    ExpectFiles(arguments, 1);
    Session session;
    const QJsonObject map = Describe(session.Open(arguments.first()));
    if (asJson)
        out << QString::fromUtf8(QJsonDocument(map).toJson());
    else
        ShowText(map, out);
    return kGood;
}

} // namespace cli
