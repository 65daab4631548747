#include "timeline/LaneRows.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "timeline/AtDates.h"
#include "timeline/TimelineNodes.h"

#include <cmath>
#include <QStringList>
#include <QUrl>

namespace timeline {

namespace {

using document::tags::kRowsOfLanes;
using Lane = diagram::Calendar::Lane;

// Two numbers and the name, in which neither blanks nor separators are left.
QString Written(const Lane &lane) {
    return QStringLiteral("%1 %2 ").arg(qRound64(lane.from)).arg(qRound64(lane.to)) +
           QString::fromLatin1(QUrl::toPercentEncoding(lane.caption));
}

std::optional<Lane> Read(const QString &text) {
    const QStringList parts = text.split(u' ');
    if (parts.size() != 3) return std::nullopt;
    bool from = false, to = false;
    const Lane lane{parts[0].toDouble(&from), parts[1].toDouble(&to),
                    QUrl::fromPercentEncoding(parts[2].toLatin1())};
    const bool whole =
        from && to && std::isfinite(lane.from) && std::isfinite(lane.to) && lane.from <= lane.to;
    return whole ? std::optional(lane) : std::nullopt;
}

} // namespace

std::vector<Lane> LaneRowsOf(const diagram::Surface &flow) {
    const diagram::Node *look = TemplateOf(flow);
    if (!look || !KeepsNodesAtDates(flow) || LanesOf(flow) == Lanes::None) return {};
    std::vector<Lane> lanes;
    for (const QString &each : document::GetTag(*look, kRowsOfLanes).split(u',', Qt::SkipEmptyParts))
        if (const std::optional<Lane> lane = Read(each)) lanes.push_back(*lane);
    return lanes;
}

void NoteLaneRows(diagram::Surface &flow, const std::vector<Lane> &lanes) {
    diagram::Node *look = LocateTimeLineTemplateNode(flow, false);
    if (!look) return;
    QStringList rows;
    for (const Lane &lane : lanes) rows << Written(lane);
    const QString text = rows.join(u',');
    if (document::GetTag(*look, kRowsOfLanes) != text) document::SetTag(*look, kRowsOfLanes, text);
}

} // namespace timeline
