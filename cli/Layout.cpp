// Layouts and routes of a slice, written as a new map.
#include "cli/Commands.h"
#include "cli/Session.h"
#include "diagram/layout/Layouts.h"
#include "diagram/layout/RouteAnew.h"
#include "document/LevelLanes.h"
#include "timeline/Arrange.h"
#include "timeline/TimelineNodes.h"

namespace cli {

namespace {

const diagram::LayoutRow &TakeEngine(QStringList &arguments) {
    const QString name = TakeOption(arguments, QStringLiteral("--engine"));
    if (const diagram::LayoutRow *row = diagram::FindLayout(name)) return *row;
    QStringList known;
    for (const diagram::LayoutRow &row : diagram::LayoutTable()) known << QLatin1String(row.name);
    throw UsageError(QStringLiteral("--engine needs one of %1").arg(known.join(QStringLiteral(", "))));
}

diagram::LayoutOrientation TakeDirection(QStringList &arguments) {
    // In the order of LayoutOrientation.
    static const QStringList known{QStringLiteral("down"), QStringLiteral("up"), QStringLiteral("right"),
                                   QStringLiteral("left")};
    const QString name = TakeOption(arguments, QStringLiteral("--direction"));
    if (name.isEmpty()) return diagram::LayoutOrientation::Down;
    if (!known.contains(name))
        throw UsageError(QStringLiteral("--direction needs one of %1").arg(known.join(QStringLiteral(", "))));
    return diagram::LayoutOrientation(known.indexOf(name));
}

document::Together TakeTogether(QStringList &arguments) {
    const QString name = TakeOption(arguments, QStringLiteral("--together"));
    if (name.isEmpty()) return document::Together::Nothing;
    if (name == QLatin1String("levels")) return document::Together::Levels;
    if (name == QLatin1String("groups")) return document::Together::Groups;
    throw UsageError(QStringLiteral("--together needs one of levels, groups"));
}

// Puts the months back to their places, from which a layout may have moved them.
void ArrangeTimeline(document::MemoryWindow &window, diagram::Surface &slice) {
    if (timeline::LocateTimelineNodes(slice).empty()) return;
    GiveSize(slice);
    timeline::ArrangeAgain(window, slice);
}

} // namespace

int Layout(QStringList arguments, QTextStream &out) {
    const diagram::LayoutRow &engine = TakeEngine(arguments);
    diagram::LayoutOrder order;
    order.options.orientation = TakeDirection(arguments);
    const document::Together together = TakeTogether(arguments);
    const int number = TakeSlice(arguments);
    ExpectFiles(arguments, 2);
    Session session;
    document::MemoryWindow &window = session.Open(arguments[0]);
    diagram::Surface &slice = SliceOf(window, number);
    document::clsfrmMain &map = window.clsSettings();
    order.cluster = document::ClustersOf(together, map.Levels(), map.Groups());
    order.lane = document::LanesByLevel(map.Levels());
    if (engine.layOut(slice, order) == diagram::LayoutResult::AsSpanningTree)
        out << "this is no tree: it was laid out along some of its links\n";
    ArrangeTimeline(window, slice);
    session.SaveAs(arguments[1], out);
    return kGood;
}

int Route(QStringList arguments, QTextStream &out) {
    const int number = TakeSlice(arguments);
    ExpectFiles(arguments, 2);
    Session session;
    document::MemoryWindow &window = session.Open(arguments[0]);
    out << diagram::RouteAnew(SliceOf(window, number)) << " links go another way\n";
    session.SaveAs(arguments[1], out);
    return kGood;
}

} // namespace cli
