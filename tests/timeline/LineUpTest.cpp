#include "timeline/LineUp.h"

#include "diagram/edit/History.h"
#include "diagram/model/ScreenValues.h"
#include "document/clsfrmMain.h"
#include "document/Tags.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/AtDates.h"
#include "timeline/CalendarOfStrip.h"
#include "timeline/DateText.h"
#include "timeline/DaysOfStrip.h"
#include "timeline/RowPlan.h"
#include "timeline/Span.h"

#include <random>

namespace timeline::testing {

namespace {

class LiningUp : public TimelineTest {
protected:
    LiningUp() {
        Template(3100, 450);
        Set(document::tags::kTimelineAlign, QStringLiteral("2"));
    }

    diagram::Node &Dated(const QString &date) {
        diagram::Node &node = UserNode();
        AddTimelineLink(window, flow, node, date);
        return node;
    }
    // Some in each of five months.
    std::vector<diagram::Node *> Plan(int count) {
        std::mt19937 random(7);
        std::vector<NodeDate> dates;
        std::vector<diagram::Node *> nodes;
        for (int i = 0; i < count; ++i) {
            nodes.push_back(
                &flow.Nodes().Add(float(random() % 9000), float(900 + random() % 6000), 1200, 600));
            const QDate day = QDate(2004, 3, 2).addDays(qint64(random() % 150));
            dates.push_back({nodes.back(), FormatDate(day, kDayPattern)});
            if (i > 0) nodes[random() % std::size_t(i)]->Links().Add(*nodes.back());
        }
        AddTimelineLinks(window, flow, dates);
        return nodes;
    }
    LinedUp Choose() { return LineUp(window, flow, RowOrder::Choose); }

    // How far the node's centre stands from that of its day; nothing beside no shown day.
    std::optional<double> Off(const diagram::Node &node) {
        const std::optional<QLineF> place = days.PlaceOf(flow, days.DateOf(node).value());
        if (!place) return std::nullopt;
        const QPointF off = node.Bounds().center() - place->center();
        return days.RunsRightwards(flow) ? off.x() : off.y();
    }
    // From each other and from the strip.
    void ExpectApart(const std::vector<diagram::Node *> &nodes) {
        const auto meets = [this](const diagram::Node &node) {
            for (const diagram::Node &other : flow.Nodes()) {
                const bool shown = !other.Hidden() || other.Selectable();
                const QRectF inner = other.Bounds().adjusted(1, 1, -1, -1);
                if (&other != &node && shown && inner.intersects(node.Bounds())) return true;
            }
            return false;
        };
        for (const diagram::Node *node : nodes) EXPECT_FALSE(meets(*node));
    }
    static std::vector<QRectF> Boxes(const std::vector<diagram::Node *> &nodes) {
        std::vector<QRectF> boxes;
        for (const diagram::Node *node : nodes) boxes.push_back(node->Bounds());
        return boxes;
    }

    DaysOfStrip days{window};
};

} // namespace

TEST_F(LiningUp, TheCentreOfEachNodeStandsOnThatOfItsDayInEveryArrangement) {
    const std::vector<diagram::Node *> nodes = Plan(25);
    for (int arrangement = 0; arrangement < 5; ++arrangement) {
        Set(document::tags::kTimelineAlign, QString::number(arrangement));
        Arrange();
        EXPECT_EQ(Choose().dated, 25);
        for (const diagram::Node *node : nodes) {
            const double most = arrangement < 2 ? node->Height() : node->Width();
            const double least = arrangement < 2 ? node->Top() : node->Left();
            EXPECT_LE(std::abs(Off(*node).value()), least <= 1 ? most / 2 : kRounding) << arrangement;
            EXPECT_GE(node->Left(), 0) << arrangement;
            EXPECT_GE(node->Top(), 0) << arrangement;
        }
        ExpectApart(nodes);
        const std::vector<QRectF> before = Boxes(nodes);
        window.clsSettings().Dirty = false;
        EXPECT_EQ(Choose().moved, 0) << arrangement;
        EXPECT_EQ(LineUp(window, flow, RowOrder::Keep).moved, 0) << arrangement;
        EXPECT_EQ(Boxes(nodes), before);
        EXPECT_FALSE(window.clsSettings().Dirty);
    }
}

TEST_F(LiningUp, WithoutADateThereIsNothingToDo) {
    diagram::Node &node = UserNode();
    EXPECT_EQ(Choose().dated, 0);
    Month(QStringLiteral("March 2004"));
    Arrange();
    EXPECT_EQ(Choose().dated, 0);
    EXPECT_EQ(node.Bounds(), QRectF(300, 300, 1500, 900));
}

TEST_F(LiningUp, NodesOfHiddenMonthsStayAndThoseHiddenByAFilterGoAlong) {
    diagram::Node &march = Dated(QStringLiteral("14 March 2004"));
    diagram::Node &april = Dated(QStringLiteral("14 April 2004"));
    HideMonth(*LocateTimelineNodes(flow).front());
    Arrange();
    april.SetHidden(true);
    EXPECT_EQ(Choose().dated, 1);
    EXPECT_EQ(march.Bounds().topLeft(), QPointF(300, 300));
    EXPECT_EQ(april.Bounds().center().x(), 14.5 * 103);
}

TEST_F(LiningUp, ANodeDoesNotLeaveTheSurface) {
    diagram::Node &node = Dated(QStringLiteral("02 March 2004"));
    Choose();
    EXPECT_EQ(node.Left(), 0);
    EXPECT_GE(node.Top(), 450);
}

TEST_F(LiningUp, NoNodeStandsOnTheBandsBesideTheStrip) {
    const std::vector<diagram::Node *> nodes = Plan(25);
    for (int arrangement = 0; arrangement < 5; ++arrangement) {
        Set(document::tags::kTimelineAlign, QString::number(arrangement));
        Arrange();
        Choose();
        const QRectF bands = CalendarOfStrip(flow).Bands();
        ASSERT_FALSE(bands.isEmpty());
        EXPECT_EQ(bands, BandsBeside(flow, CalendarOfStrip(flow).strip));
        for (const diagram::Node *node : nodes) EXPECT_FALSE(node->Bounds().intersects(bands)) << arrangement;
    }
}

TEST_F(LiningUp, WithoutBandsRowsBeginAtTheStrip) {
    diagram::Node &node = Dated(QStringLiteral("02 March 2004"));
    Choose();
    EXPECT_EQ(node.Top(), 450 + 2 * diagram::kBandThickness + 300);
    node.SetTop(0);
    SetShows(flow, CalendarPart::Bands, false);
    Choose();
    EXPECT_EQ(node.Top(), 450 + 300);
}

TEST_F(LiningUp, WhatFindsNoRoomBeforeAStripAtTheBottomGoesBeyondIt) {
    Set(document::tags::kTimelineAlign, QStringLiteral("3"));
    flow.Screen().SetSize(12000, 3000);
    const std::vector<diagram::Node *> nodes = Plan(25);
    Choose();
    const QRectF month = LocateTimelineNodes(flow).front()->Bounds();
    int before = 0, beyond = 0;
    for (const diagram::Node *node : nodes) {
        EXPECT_GE(node->Top(), 0);
        ++(node->Top() < month.top() ? before : beyond);
    }
    EXPECT_GT(before, 0);
    EXPECT_GT(beyond, 0);
    ExpectApart(nodes);
    EXPECT_EQ(Choose().moved, 0);
}

TEST_F(LiningUp, BesideAStripInTheMiddleEachStaysOnItsSide) {
    Set(document::tags::kTimelineAlign, QStringLiteral("4"));
    diagram::Node &above = Dated(QStringLiteral("14 March 2004"));
    diagram::Node &below = Dated(QStringLiteral("15 March 2004"));
    below.SetTop(7000);
    Choose();
    const QRectF month = LocateTimelineNodes(flow).front()->Bounds();
    EXPECT_LT(above.Bounds().bottom(), month.top());
    EXPECT_GT(below.Top(), month.bottom());
}

TEST_F(LiningUp, LanesOfLevelsFollowEachOtherAsInTheirListAndTheOthersComeLast) {
    const QString high = window.clsSettings().Levels().Create(QStringLiteral("High"), false, 0).Key;
    const QString low = window.clsSettings().Levels().Create(QStringLiteral("Low"), false, 0).Key;
    const char *dates[] = {"03 March 2004", "15 March 2004", "28 March 2004", "16 April 2004"};
    std::vector<diagram::Node *> nodes;
    for (const char *day : dates) nodes.push_back(&Dated(QString::fromLatin1(day)));
    document::SetTag(*nodes[0], document::tags::kLevel, low);
    document::SetTag(*nodes[1], document::tags::kLevel, high);
    document::SetTag(*nodes[3], document::tags::kLevel, high);
    SetLanes(flow, Lanes::Level);
    Choose();
    EXPECT_EQ(nodes[1]->Top(), nodes[3]->Top());
    EXPECT_LT(nodes[1]->Bounds().bottom(), nodes[0]->Top());
    EXPECT_LT(nodes[0]->Bounds().bottom(), nodes[2]->Top());
}

TEST_F(LiningUp, LanesHaveTheirNamesAtThePlacesWhereTheyStandWhileNodesStayAtTheirDates) {
    document::cLevels &levels = window.clsSettings().Levels();
    const QString high = levels.Create(QStringLiteral("High"), false, 0).Key;
    const QString low = levels.Create(QStringLiteral("Low | and, slow"), false, 0).Key;
    diagram::Node &first = Dated(QStringLiteral("03 March 2004"));
    diagram::Node &second = Dated(QStringLiteral("20 April 2004"));
    diagram::Node &third = Dated(QStringLiteral("25 April 2004"));
    document::SetTag(first, document::tags::kLevel, low);
    document::SetTag(second, document::tags::kLevel, high);
    document::SetTag(third, document::tags::kLevel, high);
    SetLanes(flow, Lanes::Level);
    Choose();
    EXPECT_TRUE(CalendarOfStrip(flow).lanes.empty()) << "they may be moved freely";
    SetKeepsNodesAtDates(flow, true);
    Choose();
    using Rows = std::vector<diagram::Calendar::Lane>;
    const double top = std::min(second.Top(), third.Top());
    const Rows rows{{top, top + 2 * 900 + 300, QStringLiteral("High")},
                    {first.Top(), first.Bounds().bottom(), QStringLiteral("Low | and, slow")}};
    EXPECT_EQ(CalendarOfStrip(flow).lanes, rows);
    first.SetHidden(true);
    EXPECT_EQ(CalendarOfStrip(flow).lanes, Rows{rows[0]}) << "nothing of the other is seen";
    levels.Item(1).LevelName = QStringLiteral("Higher");
    NoteLanes(window, flow);
    EXPECT_EQ(CalendarOfStrip(flow).lanes[0].caption, QStringLiteral("Higher"));
    SetLanes(flow, Lanes::None);
    EXPECT_TRUE(CalendarOfStrip(flow).lanes.empty());
}

TEST_F(LiningUp, OfSeveralGroupsTheFirstMakesTheLane) {
    const QString one = window.clsSettings().Groups().Create(QStringLiteral("One"), false).Key;
    const QString two = window.clsSettings().Groups().Create(QStringLiteral("Two"), false).Key;
    diagram::Node &later = Dated(QStringLiteral("03 March 2004"));
    diagram::Node &first = Dated(QStringLiteral("28 March 2004"));
    document::SetTag(later, document::tags::kGroup, QString(two + u',' + one));
    document::SetTag(first, document::tags::kGroup, one);
    SetLanes(flow, Lanes::Group);
    Choose();
    EXPECT_LT(first.Bounds().bottom(), later.Top());
    SetLanes(flow, Lanes::None);
    EXPECT_EQ(LanesOf(flow), Lanes::None);
}

TEST_F(LiningUp, WhileTheSwitchIsOnEveryChangeOfTheStripTakesTheNodesAlong) {
    diagram::Node &node = Dated(QStringLiteral("14 March 2004"));
    EXPECT_EQ(node.Left(), 300) << "off";
    SetKeepsNodesAtDates(flow, true);
    EXPECT_TRUE(KeepsNodesAtDates(flow));
    Arrange();
    EXPECT_EQ(Off(node), 0);
    AddTimelineLink(window, flow, node, QStringLiteral("20 April 2004"));
    EXPECT_EQ(Off(node), 0) << "dated";
    Template(6200, 450);
    UpdateTimeLineNodes(window, flow, true);
    EXPECT_EQ(Off(node), 0) << "another scale";
    HideMonth(*LocateTimelineNodes(flow).front());
    Arrange();
    EXPECT_EQ(node.Bounds().center().x(), 20.5 * 206) << "without March";
    DoUnHideTimelineNodes(window, flow);
    EXPECT_EQ(node.Bounds().center().x(), 6200 + 20.5 * 206);
    SetKeepsNodesAtDates(flow, false);
    Arrange(0);
    EXPECT_EQ(node.Bounds().center().x(), 6200 + 20.5 * 206) << "off again";
}

TEST_F(LiningUp, RowsThatAHandChoseStayAndTheOneThatMovedGivesWay) {
    diagram::Node &first = Dated(QStringLiteral("14 March 2004"));
    diagram::Node &second = Dated(QStringLiteral("14 April 2004"));
    SetKeepsNodesAtDates(flow, true);
    first.SetTop(2000);
    second.SetTop(5000);
    FollowDates(window, flow);
    EXPECT_EQ(first.Top(), 2000);
    EXPECT_EQ(second.Top(), 5000);
    AddTimelineLink(window, flow, second, QStringLiteral("15 March 2004"));
    EXPECT_EQ(second.Top(), 5000) << "there is room";
    second.SetTop(2100);
    FollowDates(window, flow, {&second});
    EXPECT_EQ(first.Top(), 2000);
    EXPECT_GE(second.Top(), 2900 + 299);
}

TEST_F(LiningUp, TheDateLinkAndLinksOfAFixedRouteGoAlong) {
    diagram::Node &node = Dated(QStringLiteral("14 April 2004"));
    diagram::Node &other = UserNode();
    other.SetTop(6000);
    diagram::Link &fixed = node.Links().Add(other);
    fixed.SetMovePointsMode(true);
    const diagram::Point start = fixed.Points().Item(0), end = fixed.Points().Item(1);
    const QPointF before = node.Bounds().topLeft();
    Choose();
    const QPointF way = node.Bounds().topLeft() - before;
    ASSERT_FALSE(way.isNull());
    EXPECT_EQ(fixed.Points().Item(0).x, start.x + float(way.x()));
    EXPECT_EQ(fixed.Points().Item(0).y, start.y + float(way.y()));
    EXPECT_EQ(fixed.Points().Item(1).x, end.x);
    for (diagram::Link *link : node.Links()) {
        if (link->Selectable()) continue;
        EXPECT_EQ(link->Points().Item(0).x, node.Bounds().center().x()) << "straight to its day";
        EXPECT_EQ(link->Points().Item(0).y, node.Top());
    }
}

TEST_F(LiningUp, OrthogonalLinksGetTheStyleForTheirNewPlacesButNotThoseWithBendsOfAHand) {
    constexpr int kHVH = 5;
    diagram::Node &early = Dated(QStringLiteral("10 March 2004")),
                  &late = Dated(QStringLiteral("12 March 2004"));
    early.SetTop(3000), late.SetTop(3000);
    early.SetLeft(1000), late.SetLeft(6000);
    diagram::Link &link = early.Links().Add(late), &bent = early.Links().Add(late);
    link.SetStyle(kHVH), bent.SetStyle(kHVH);
    bent.Points().SetItem(1, {3100, 3300}), bent.Points().SetItem(2, {3100, 3200});
    ASSERT_TRUE(bent.OwnBends());
    Choose();
    ASSERT_LT(std::abs(early.Bounds().center().x() - late.Bounds().center().x()), 300)
        << "one below the other";
    EXPECT_NE(link.Style(), kHVH) << "it would run through its own ends";
    EXPECT_EQ(bent.Style(), kHVH);
}

TEST_F(LiningUp, ALinkToADayGoesBelowABarThatHasGrownIntoItsWay) {
    diagram::Node &bar = Dated(QStringLiteral("3 March 2004")),
                  &node = Dated(QStringLiteral("14 March 2004"));
    bar.SetTop(2000), node.SetTop(4000);
    SetEndOfNode(bar, QDate(2004, 3, 5));
    Choose();
    diagram::Link &link = **node.Links().begin();
    ASSERT_FALSE(link.Selectable());
    const diagram::Point day = link.Route().back();
    ASSERT_GT(node.Top(), bar.Top() + bar.Height());
    ASSERT_GT(link.Zorder(), bar.ZOrder());
    SetEndOfNode(bar, QDate(2004, 3, 20));
    LineUp(window, flow, RowOrder::Keep, {&bar});
    ASSERT_TRUE(bar.Bounds().contains(day.x, bar.Bounds().center().y()));
    EXPECT_LT(link.Zorder(), bar.ZOrder());
    EXPECT_EQ(link.Route().back(), day);
}

TEST_F(LiningUp, UndoneAndDoneAgainEverythingIsAsItWas) {
    diagram::AttachHistory(flow);
    const std::vector<diagram::Node *> nodes = Plan(12);
    const std::vector<QRectF> before = Boxes(nodes);
    document::BeginAction(flow);
    SetKeepsNodesAtDates(flow, true);
    Choose();
    flow.EndAction();
    const std::vector<QRectF> after = Boxes(nodes);
    flow.Undo();
    EXPECT_EQ(Boxes(nodes), before);
    EXPECT_FALSE(KeepsNodesAtDates(flow));
    flow.Redo();
    EXPECT_EQ(Boxes(nodes), after);
    EXPECT_TRUE(KeepsNodesAtDates(flow));
}

} // namespace timeline::testing
