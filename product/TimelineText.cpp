#include "product/TimelineText.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "product/NodeText.h"
#include "product/SliceText.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/AtDates.h"
#include "timeline/DateText.h"
#include "timeline/TimelineNodes.h"

#include <QDate>
#include <QJsonArray>

namespace product {

namespace {

// In the order of the list that offers the arrangements to the user; the tag holds the position in it.
const QStringList kArrangements = {QStringLiteral("Left"), QStringLiteral("Right"), QStringLiteral("Top"),
                                   QStringLiteral("Bottom"), QStringLiteral("Center")};
// In the order of timeline::Lanes, behind None.
const QStringList kLanes = {QStringLiteral("Level"), QStringLiteral("Group")};

QString ArrangementOf(const QJsonObject &timeline) {
    const qsizetype place = kArrangements.indexOf(timeline["arrangement"].toString());
    if (place < 0) Complain(QStringLiteral("the timeline has no arrangement"));
    return QString::number(place);
}

// The hidden node that gives the months their look.
void BuildMonthLook(diagram::Surface &surface, const QJsonObject &usual, const QJsonObject &timeline,
                    const QDir &resources) {
    diagram::Node &look = *timeline::LocateTimeLineTemplateNode(surface, true);
    ApplyNode(look, usual, resources);
    QJsonObject own = timeline;
    for (const char *key : {"arrangement", "format", "keep", "lanes"}) own.remove(QLatin1String(key));
    ApplyNode(look, own, resources);
    look.SetWidth(Twips(timeline["width"].toDouble(usual["width"].toDouble())));
    look.SetHeight(Twips(timeline["height"].toDouble(usual["height"].toDouble())));
    document::SetTag(look, document::tags::kDateFormat,
                     timeline["format"].toString(usual["tags"]["Date_Format"].toString()));
}

timeline::Lanes LanesOf(const QString &name) {
    if (name.isEmpty()) return timeline::Lanes::None;
    const qsizetype place = kLanes.indexOf(name);
    if (place < 0) Complain(QStringLiteral("\"%1\" makes no lanes").arg(name));
    return timeline::Lanes(place + 1);
}

std::vector<timeline::NodeDate> DatesOf(diagram::Surface &surface, const QJsonObject &slice,
                                        const NodeKeys &keys) {
    std::vector<timeline::NodeDate> dates;
    for (const QJsonValue node : slice["nodes"].toArray()) {
        if (!node.toObject().contains("date")) continue;
        const QDate date = QDate::fromString(node["date"].toString(), Qt::ISODate);
        if (!date.isValid()) Complain(QStringLiteral("\"%1\" is no date").arg(node["date"].toString()));
        dates.push_back({&surface.Nodes().Item(keys.Of(node["id"].toString())),
                         timeline::FormatDate(date, timeline::kDayPattern)});
    }
    return dates;
}

} // namespace

void BuildTimeline(document::MapWindow &window, diagram::Surface &surface, const QJsonObject &slice,
                   const QDir &resources, const NodeKeys &keys) {
    const QJsonObject timeline = slice["timeline"].toObject();
    document::SetTag(surface, document::tags::kTimelineAlign, ArrangementOf(timeline));
    document::SetTag(surface, document::tags::kMissing, QStringLiteral("True"));
    BuildMonthLook(surface, ReadText(resources.filePath(QStringLiteral("Template.tnd.json"))), timeline,
                   resources);
    timeline::SetLanes(surface, LanesOf(timeline["lanes"].toString()));
    timeline::SetKeepsNodesAtDates(surface, timeline["keep"].toBool());
    timeline::AddTimelineLinks(window, surface, DatesOf(surface, slice, keys));
}

} // namespace product
