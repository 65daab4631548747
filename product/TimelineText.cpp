#include "product/TimelineText.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "product/NodeText.h"
#include "product/SliceText.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/DateText.h"
#include "timeline/TimelineNodes.h"

#include <QDate>
#include <QJsonArray>

namespace product {

namespace {

constexpr float kTwips = 15;

// The places of the list that offers the arrangements.
const QStringList kArrangements = {QStringLiteral("Left"), QStringLiteral("Right"), QStringLiteral("Top"),
                                   QStringLiteral("Bottom"), QStringLiteral("Center")};

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
    for (const char *key : {"arrangement", "format"}) own.remove(QLatin1String(key));
    ApplyNode(look, own, resources);
    look.SetWidth(float(timeline["width"].toDouble(usual["width"].toDouble())) * kTwips);
    look.SetHeight(float(timeline["height"].toDouble(usual["height"].toDouble())) * kTwips);
    document::SetTag(look, document::tags::kDateFormat,
                     timeline["format"].toString(usual["tags"]["Date_Format"].toString()));
}

std::vector<timeline::NodeDate> DatesOf(diagram::Surface &surface, const QJsonObject &slice,
                                        const NodeKeys &keys) {
    std::vector<timeline::NodeDate> dates;
    for (const QJsonValue &node : slice["nodes"].toArray()) {
        if (!node.toObject().contains("date")) continue;
        const QDate date = QDate::fromString(node["date"].toString(), Qt::ISODate);
        if (!date.isValid()) Complain(QStringLiteral("\"%1\" is no date").arg(node["date"].toString()));
        dates.push_back({&surface.Nodes().Item(keys.Of(node["id"].toString())),
                         timeline::FormatDate(date, timeline::kDayPattern)});
    }
    return dates;
}

// Lets the link run straight along where its day stands over, below or beside its node.
void Straighten(diagram::Link &link) {
    const diagram::Node &day = link.Destination(), &node = link.Source();
    const float x = day.Left() + day.Width() / 2, y = day.Top() + day.Height() / 2;
    const diagram::Point end = link.Points().Item(link.Points().Count() - 1);
    if (x > node.Left() && x < node.Left() + node.Width())
        link.Points().Assign({{x, end.y < node.Top() ? node.Top() : node.Top() + node.Height()}, {x, end.y}});
    else if (y > node.Top() && y < node.Top() + node.Height())
        link.Points().Assign(
            {{end.x < node.Left() ? node.Left() : node.Left() + node.Width(), y}, {end.x, y}});
}

} // namespace

void BuildTimeline(document::MapWindow &window, diagram::Surface &surface, const QJsonObject &slice,
                   const QDir &resources, const NodeKeys &keys) {
    const QJsonObject timeline = slice["timeline"].toObject();
    document::SetTag(surface, document::tags::kTimelineAlign, ArrangementOf(timeline));
    document::SetTag(surface, document::tags::kMissing, QStringLiteral("True"));
    BuildMonthLook(surface, ReadText(resources.filePath(QStringLiteral("Template.tnd.json"))), timeline,
                   resources);
    const std::vector<timeline::NodeDate> dates = DatesOf(surface, slice, keys);
    timeline::AddTimelineLinks(window, surface, dates);
    const QJsonObject look = LooksOf(resources)["links"].toObject()["date"].toObject();
    for (const timeline::NodeDate &dated : dates)
        for (diagram::Link *link : dated.node->Links())
            if (timeline::NodeIsTimeline(link->Destination())) {
                ApplyLink(*link, look);
                Straighten(*link);
            }
}

} // namespace product
