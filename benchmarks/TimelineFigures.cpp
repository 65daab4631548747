// Laying out a timeline of 240 months with 5,000 dated nodes, lining these up, and dragging one of them along
// it.
#include "benchmarks/Canvas.h"
#include "diagram/edit/History.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/model/Surface.h"
#include "document/MemoryWindow.h"
#include "document/Tags.h"
#include "support/Desktop.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/AtDates.h"
#include "timeline/DateText.h"
#include "timeline/DaysOfStrip.h"
#include "timeline/LineUp.h"
#include "timeline/TimelineNodes.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int kMonths = 240, kDated = 5000;

// All nodes on days of their own as far as there are days, below the strip.
void AddDatedNodes(document::MapWindow &window, diagram::Surface &flow) {
    diagram::Node &look = *timeline::LocateTimeLineTemplateNode(flow, true);
    look.SetWidth(3100);
    look.SetHeight(500);
    const QDate first(2004, 1, 1);
    const qint64 days = first.daysTo(first.addMonths(kMonths));
    std::vector<timeline::NodeDate> dates;
    for (int i = 0; i < kDated; ++i) {
        const QDate date = first.addDays(i * days / kDated);
        dates.push_back({&flow.Nodes().Add(float(i * 150), float(2000 + i % 20 * 900), 1200, 600),
                         timeline::FormatDate(date, timeline::kDayPattern)});
    }
    timeline::AddTimelineLinks(window, flow, dates);
}

void Arrange(benchmark::State &state) {
    document::MemoryWindow window(support::CurrentDesktop(), document::EmptyPools{});
    diagram::Surface &flow = window.AddFlow1()[0];
    diagram::AttachHistory(flow);
    flow.Screen().SetSize(30000, 20000);
    AddDatedNodes(window, flow);
    int arrangement = 0;
    for (auto _ : state) {
        arrangement = 2 + (arrangement + 1) % 3;
        flow.BeginAction(1001);
        timeline::ArrangeTimeLineNodes(window, flow, arrangement);
        flow.EndAction();
        window.statuses.clear();
    }
    state.counters["months"] = double(timeline::LocateTimelineNodes(flow).size());
}
BENCHMARK(Arrange)->Unit(benchmark::kMillisecond);

// Puts the nodes anywhere below the strip, and routes their links.
void Scatter(diagram::Surface &flow) {
    unsigned place = 1;
    for (diagram::Node &node : flow.Nodes()) {
        if (!node.Selectable()) continue;
        place = place * 1664525 + 1013904223;
        node.SetBounds(float(place >> 12), float(1000 + (place >> 20) * 15), node.Width(), node.Height());
    }
    for (const auto &link : flow.Links()) link->Route();
}

void LinkSome(diagram::Surface &flow) {
    std::vector<diagram::Node *> nodes;
    for (diagram::Node &node : flow.Nodes())
        if (node.Selectable()) nodes.push_back(&node);
    for (std::size_t i = 7; i < nodes.size(); i += 2) nodes[i]->Links().Add(*nodes[i - 7]);
}

void LineUpByDate(benchmark::State &state) {
    document::MemoryWindow window(support::CurrentDesktop(), document::EmptyPools{});
    diagram::Surface &flow = window.AddFlow1()[0];
    diagram::AttachHistory(flow);
    flow.Screen().SetSize(30000, 20000);
    document::SetTag(flow, document::tags::kTimelineAlign, QStringLiteral("2"));
    AddDatedNodes(window, flow);
    LinkSome(flow);
    timeline::LinedUp result;
    for (auto _ : state) {
        state.PauseTiming();
        Scatter(flow);
        state.ResumeTiming();
        flow.BeginAction(1001);
        result = timeline::LineUp(window, flow, timeline::RowOrder::Choose);
        flow.EndAction();
    }
    state.counters["moved"] = result.moved;
}
BENCHMARK(LineUpByDate)->Unit(benchmark::kMillisecond);

// Of the nodes that are linked with others, the one with as many before it as behind it.
diagram::Node &NodeInTheMiddle(diagram::Surface &flow) {
    std::vector<diagram::Node *> linked;
    for (diagram::Node &node : flow.Nodes())
        if (node.Selectable() && node.Links().Count() > 1) linked.push_back(&node);
    return *linked[linked.size() / 2];
}

// From the event to the frame, where nodes stay at their dates: a drag of a node in the middle, back and
// forth by four days and two rows.
void DateDrag(benchmark::State &state) {
    document::MemoryWindow window(support::CurrentDesktop(), document::EmptyPools{});
    diagram::Surface &flow = window.AddFlow1()[0];
    diagram::AttachHistory(flow);
    flow.Screen().SetSize(800000, 40000);
    document::SetTag(flow, document::tags::kTimelineAlign, QStringLiteral("2"));
    AddDatedNodes(window, flow);
    LinkSome(flow);
    timeline::SetKeepsNodesAtDates(flow, true);
    timeline::LineUp(window, flow, timeline::RowOrder::Choose);
    timeline::DaysOfStrip days(window);
    diagram::SurfaceView view(flow);
    view.SetDays(days);
    view.resize(1280, 800);
    view.show();
    diagram::Node &node = NodeInTheMiddle(flow);
    bench::Centre(view, node.Bounds().center());
    bench::Settle(view);
    bench::Hand hand(*view.viewport());
    const QPointF aside(node.Width() * 0.3, node.Height() * 0.3); // off the link to its day
    const QPoint from = view.FromSurface(node.Bounds().center() + aside).toPoint();
    hand.Press(from);
    const QPointF before = node.Bounds().topLeft();
    for (const int way : {10, 20}) hand.Move(from + QPoint(2 * way, way));
    if (node.Bounds().topLeft() == before) state.SkipWithError("the drag doesn't move the node");
    int step = 0;
    for (auto _ : state) {
        step = (step + 1) % 100;
        const int way = step < 50 ? step : 100 - step;
        hand.Move(from + QPoint(40 + way * 2, 20 + way));
    }
    hand.Key(Qt::Key_Escape);
    hand.Release(from);
}
BENCHMARK(DateDrag)->Unit(benchmark::kMillisecond);

} // namespace
