// While the switch is on, place and date agree, whatever happens to the strip.
#include "diagram/edit/History.h"
#include "document/clsfrmMain.h"
#include "document/DoLoad.h"
#include "document/DoSave.h"
#include "document/MapSchema.h"
#include "document/Tags.h"
#include "support/Files.h"
#include "tests/document/ProgramFolder.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/AtDates.h"
#include "timeline/DateText.h"
#include "timeline/DaysOfStrip.h"
#include "timeline/Folding.h"
#include "timeline/LineUp.h"
#include "timeline/MoveDates.h"
#include "timeline/RowPlan.h"
#include "timeline/Span.h"
#include "timeline/Tidy.h"

#include <random>

namespace timeline::testing {

namespace {

// Boxes and dates, to be compared.
struct Standing {
    QRectF box;
    QString date;
    std::optional<QDate> end;
    friend bool operator==(const Standing &, const Standing &) = default;
};

std::vector<Standing> StandingOf(const diagram::Surface &flow) {
    std::vector<Standing> standing;
    for (const diagram::Node &node : flow.Nodes())
        standing.push_back({node.Bounds(), DateOfNode(node), EndOfNode(node)});
    return standing;
}

// The last days of nodes that have one, in the order of the surface.
std::vector<QDate> Ends(const diagram::Surface &flow) {
    std::vector<QDate> ends;
    for (const diagram::Node &node : flow.Nodes())
        if (const auto span = SpanOfNode(node); span && span->last) ends.push_back(*span->last);
    return ends;
}

// On the centre of its day, but for the edge of the surface.
bool StandsAtItsDate(const diagram::Node &node, const QPointF &place, bool rightwards) {
    const QPointF off = node.Bounds().center() - place;
    const double along = rightwards ? off.x() : off.y();
    const double begin = rightwards ? node.Left() : node.Top();
    return std::abs(along) <= kRounding || (begin <= kRounding && along > 0);
}

// Along the strip, from the slot of its first day to that of its last one; of days that aren't seen nothing
// is said here.
bool ReachesOverItsDays(const DaysOfStrip &days, const diagram::Node &node) {
    const diagram::Surface &flow = node.Owner();
    const bool rightwards = days.RunsRightwards(flow);
    const double begin = rightwards ? node.Left() : node.Top();
    const double end = begin + (rightwards ? node.Width() : node.Height());
    const auto place = [&](const QDate &date) {
        const std::optional<QLineF> line = days.PlaceOf(flow, date);
        return !line ? std::optional<double>() : rightwards ? line->center().x() : line->center().y();
    };
    const auto half = [&](const QDate &date) {
        const auto here = place(date), next = place(date.addDays(date.day() == 1 ? 1 : -1));
        return std::abs(here.value() - next.value()) / 2;
    };
    const QDate first = days.DateOf(node).value(), last = days.EndOf(node).value();
    const auto from = place(first), to = place(last);
    const bool isInOnePlace = !from || !to || *from == *to;
    if (const auto only = from ? from : to; only && isInOnePlace && half(from ? first : last) == 0)
        return end > begin && std::abs((begin + end) / 2 - *only) <= kRounding; // it is as long as the fold
    return (!from || std::abs(*from - half(first) - begin) <= kRounding) &&
           (!to || std::abs(*to + half(last) - end) <= kRounding);
}

int ExpectAtDates(document::MapWindow &window, const diagram::Surface &flow, const std::string &after) {
    const DaysOfStrip days(window);
    int dated = 0;
    for (const diagram::Node &node : flow.Nodes()) {
        const auto date = node.Selectable() ? days.DateOf(node) : std::nullopt;
        const auto place = date ? days.PlaceOf(flow, *date) : std::nullopt;
        const auto end = date ? days.EndOf(node) : std::nullopt;
        EXPECT_TRUE(!end || ReachesOverItsDays(days, node)) << after;
        if (!place) continue;
        ++dated;
        EXPECT_TRUE(end || StandsAtItsDate(node, place->center(), days.RunsRightwards(flow))) << after;
        EXPECT_GE(node.Left(), 0) << after;
        EXPECT_GE(node.Top(), 0) << after;
    }
    return dated;
}

class KeptAtDates : public TimelineTest, public ::testing::WithParamInterface<unsigned> {
protected:
    KeptAtDates() {
        diagram::AttachHistory(flow);
        Step([&] {
            Template(1500, 450);
            for (int i = 0; i < 20; ++i)
                nodes.push_back(&flow.Nodes().Add(float(Below(9000)), float(Below(6000)), 1200, 600));
            for (int i = 1; i < 20; ++i) nodes[Below(i)]->Links().Add(*nodes[std::size_t(i)]);
            SetKeepsNodesAtDates(flow, true);
        });
    }

    template <typename Change>
    void Step(Change change) {
        document::BeginAction(flow);
        change();
        flow.EndAction();
    }
    std::size_t Below(int number) { return random() % unsigned(number); }

    void DateSome() {
        std::vector<NodeDate> dates;
        for (std::size_t i = 0; i < 1 + Below(3); ++i) {
            const QDate first = QDate(2027, 1, 1).addDays(qint64(Below(270)));
            dates.push_back({nodes[Below(20)], FormatDate(first, kDayPattern)});
            if (Below(2) > 0) dates.back().last = first.addDays(qint64(Below(60)));
        }
        AddTimelineLinks(window, flow, dates);
    }
    void Stretch(float factor) {
        const diagram::Node &look = *LocateTimeLineTemplateNode(flow, true);
        Template(look.Width() * factor, look.Height() * factor);
        UpdateTimeLineNodes(window, flow, true);
    }
    void HideSome() {
        const std::vector<diagram::Node *> months = LocateTimelineNodes(flow);
        if (months.size() > 2) HideMonth(*months[Below(int(months.size()))]);
        ArrangeTimeLineNodes(window, flow, kStoredArrangement);
    }
    void PutElsewhere() {
        diagram::Node &node = *nodes[Below(20)];
        node.SetTop(float(Below(6000)));
        node.SetLeft(float(Below(9000)));
        FollowDates(window, flow, {&node});
    }
    void FoldSome() {
        const PieceOfStrip piece =
            PieceAround(diagram::StripPiece(Below(3)), QDate(2027, 1, 1).addDays(qint64(Below(270))));
        SetFolded(window, flow, piece, !IsFolded(flow, piece));
    }
    void HideAndShowTheStrip() {
        ShowTimeline(window, flow, false);
        DateSome();
        ShowTimeline(window, flow, true);
    }
    std::string ChangeSomething() {
        const std::size_t what = Below(15);
        switch (what) {
        case 0:
            Stretch(1.1F);
            break;
        case 1:
            Stretch(0.9F);
            break;
        case 2:
            HideSome();
            break;
        case 3:
            DoUnHideTimelineNodes(window, flow);
            break;
        case 4:
            Set(document::tags::kTimelineAlign, QString::number(Below(5))), Arrange();
            break;
        case 5:
            FillInMissingMonths(window, flow);
            break;
        case 6:
            TidyTimeline(window, flow);
            break;
        case 7:
            PutElsewhere();
            break;
        case 8:
            SetPushesFollowing(flow, Below(2) > 0);
            break;
        case 9:
            MoveDates(window, flow, {nodes[Below(20)], nodes[Below(20)]}, {int(Below(9)) - 4});
            break;
        case 10:
            FoldSome();
            break;
        case 11:
            UnfoldAll(window, flow);
            break;
        case 12:
            HideAndShowTheStrip();
            break;
        default:
            DateSome();
            break;
        }
        return "change " + std::to_string(what);
    }

    std::mt19937 random{GetParam()};
    std::vector<diagram::Node *> nodes;
};

} // namespace

TEST_P(KeptAtDates, WhateverHappensToTheStripAndAllTheWayBackAndForth) {
    Step([&] { DateSome(); });
    for (int i = 0; i < 30; ++i) {
        std::string what;
        Step([&] { what = ChangeSomething(); });
        ExpectAtDates(window, flow, what);
    }
    const auto last = StandingOf(flow);
    while (flow.CanUndo()) flow.Undo();
    EXPECT_EQ(flow.Nodes().Count(), 0);
    while (flow.CanRedo()) flow.Redo();
    EXPECT_EQ(StandingOf(flow), last);
    EXPECT_GT(ExpectAtDates(window, flow, "redone"), 0);
}

TEST_P(KeptAtDates, AfterSavingAndOpening) {
    Set(document::tags::kTimelineAlign, QString::number(GetParam() % 5));
    for (int i = 0; i < 5; ++i) DateSome();
    const auto dated =
        std::ranges::find_if(nodes, [](const diagram::Node *node) { return SpanOfNode(*node).has_value(); });
    ASSERT_NE(dated, nodes.end());
    const QDate day = SpanOfNode(**dated)->first;
    SetFolded(window, flow, PieceAround(diagram::StripPiece::Quarter, day), true);
    SetLanes(flow, Lanes::Level);
    SetPushesFollowing(flow, true);
    const document::testing::ProgramFolder folder;
    window.clsSettings().SetDatabase(folder.File(QStringLiteral("plan.map")));
    ASSERT_TRUE(document::DoSave(window));
    document::MemoryWindow opened(desktop.Get(), document::EmptyPools{});
    opened.clsSettings().SetDatabase(window.clsSettings().Database());
    document::DoLoad(opened);
    diagram::Surface &there = opened.AddFlow1()[0];
    EXPECT_TRUE(KeepsNodesAtDates(there));
    EXPECT_EQ(LanesOf(there), Lanes::Level);
    EXPECT_TRUE(PushesFollowing(there));
    EXPECT_EQ(Ends(there), Ends(flow));
    EXPECT_EQ(ExpectAtDates(opened, there, "opened"), ExpectAtDates(window, flow, "saved"));
    EXPECT_EQ(LineUp(opened, there, RowOrder::Keep).moved, 0);
    const auto folded = [](const diagram::Surface &surface) {
        return std::ranges::count_if(LocateTimelineNodes(surface),
                                     [](const diagram::Node *month) { return FoldOf(*month).has_value(); });
    };
    EXPECT_GT(folded(flow), 0);
    EXPECT_EQ(folded(there), folded(flow));
    UpdateTimeLineNodes(opened, there, true);
    EXPECT_EQ(LineUp(opened, there, RowOrder::Keep).moved, 0) << "laid out anew it is the same";
}

INSTANTIATE_TEST_SUITE_P(Seeds, KeptAtDates, ::testing::Range(1U, 13U));

} // namespace timeline::testing
