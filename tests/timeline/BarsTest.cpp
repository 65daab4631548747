// Bars: nodes with an end that stay at their dates.
#include "diagram/edit/History.h"
#include "diagram/model/TextBeside.h"
#include "document/Tags.h"
#include "tests/timeline/TimelineTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/AtDates.h"
#include "timeline/CalendarOfStrip.h"
#include "timeline/DateText.h"
#include "timeline/LineUp.h"
#include "timeline/LineUpPlan.h"
#include "timeline/Span.h"

namespace timeline::testing {

namespace {

constexpr double kSlot = 100; // twips of a day of March

class Bars : public TimelineTest {
protected:
    Bars() {
        Template(3100, 450);
        Set(document::tags::kTimelineAlign, QStringLiteral("2"));
        SetKeepsNodesAtDates(flow, true);
    }
    void Give(diagram::Node &node, const QDate &first, const std::optional<QDate> &last = {}) {
        AddTimelineLinks(window, flow, {{&node, FormatDate(first, kDayPattern), last}});
    }
    diagram::Node &Bar(const QDate &first, const std::optional<QDate> &last = {}) {
        diagram::Node &node = flow.Nodes().Add(300, 900, 1500, 600);
        Give(node, first, last);
        return node;
    }
};

QDate March(int day) { return {2004, 3, day}; }
QDate April(int day) { return {2004, 4, day}; }

} // namespace

TEST_F(Bars, ReachFromTheBeginningOfTheFirstDayToTheEndOfTheLast) {
    const diagram::Node &node = Bar(March(14), March(20));
    EXPECT_EQ(node.Left(), 14 * kSlot);
    EXPECT_EQ(node.Width(), 7 * kSlot);
    EXPECT_EQ(node.Height(), 600);
    const diagram::Node &day = Bar(March(14), March(14));
    EXPECT_EQ(day.Left(), 14 * kSlot);
    EXPECT_EQ(day.Width(), kSlot);
    const diagram::Node &both = Bar(March(14), April(2));
    EXPECT_NEAR(both.Bounds().right(), 3100 + 3 * 103, 1) << "April has slots of 103";
}

TEST_F(Bars, WithoutTheSwitchTheNodeStaysAsItIs) {
    SetKeepsNodesAtDates(flow, false);
    EXPECT_EQ(Bar(March(14), March(20)).Bounds(), QRectF(300, 900, 1500, 600));
}

TEST_F(Bars, WithoutItsEndANodeIsAsLongAsBefore) {
    diagram::Node &node = Bar(March(14), March(20));
    Give(node, March(18));
    EXPECT_EQ(node.Width(), 1500);
    EXPECT_EQ(node.Bounds().center().x(), 18.5 * kSlot);
    EXPECT_TRUE(document::GetTag(node, document::tags::kOwnExtent).isEmpty());
}

TEST_F(Bars, WhenTheStripTurnsTheyTurnToo) {
    diagram::Node &node = Bar(March(14), March(20));
    Set(document::tags::kTimelineAlign, QStringLiteral("0"));
    Template(1000, 3100);
    UpdateTimeLineNodes(window, flow, true);
    EXPECT_EQ(node.Width(), 1500) << "its own";
    EXPECT_EQ(node.Top(), 14 * kSlot);
    EXPECT_EQ(node.Height(), 7 * kSlot);
    Give(node, March(14));
    EXPECT_EQ(node.Bounds().size(), QSizeF(1500, 600));
}

TEST_F(Bars, AreBarsForTheDiagramWhereTheStripRunsToTheRight) {
    diagram::Node &node = Bar(March(14), March(20));
    EXPECT_TRUE(IsBar(node));
    EXPECT_FALSE(IsBar(Bar(March(14))));
    Set(document::tags::kTimelineAlign, QStringLiteral("0"));
    UpdateTimeLineNodes(window, flow, true);
    EXPECT_FALSE(IsBar(node)) << "it runs down";
    Set(document::tags::kTimelineAlign, QStringLiteral("2"));
    UpdateTimeLineNodes(window, flow, true);
    EXPECT_TRUE(IsBar(node));
    Give(node, March(14));
    EXPECT_FALSE(IsBar(node));
}

// A hundred twips a letter, in one line of 240.
class LetterMeasure : public diagram::TextMeasure {
    QSizeF Measure(const QString &text, const diagram::Font &, double) override {
        return {100.0 * double(text.size()), 240};
    }
};

TEST_F(Bars, ATextThatIsTooLongForItsBarHasRoomBehindIt) {
    LetterMeasure measure;
    flow.SetMeasure(&measure);
    diagram::Node &fair = Bar(March(4), March(5)), &next = Bar(March(8), March(20));
    EXPECT_EQ(fair.Top(), next.Top()) << "side by side";
    fair.SetText(QStringLiteral("Trade fair"));
    LineUp(window, flow, RowOrder::Keep, {&next});
    const QRectF text = diagram::TextBesideBar(fair, fair.Bounds(), &measure);
    EXPECT_EQ(text.width(), 1000);
    EXPECT_FALSE(next.Bounds().intersects(text));
    EXPECT_NE(fair.Top(), next.Top());
    flow.SetMeasure(nullptr);
}

TEST_F(Bars, FollowTheScaleOfTheStrip) {
    const diagram::Node &node = Bar(March(14), March(20));
    Template(6200, 450);
    UpdateTimeLineNodes(window, flow, true);
    EXPECT_EQ(node.Left(), 28 * kSlot);
    EXPECT_EQ(node.Width(), 14 * kSlot);
}

TEST_F(Bars, OfWhichAMonthIsHiddenShowTheRest) {
    diagram::Node &node = Bar(March(14), April(10));
    Bar(QDate(2004, 5, 3));
    HideMonth(*LocateTimelineNode(flow, QStringLiteral("March 2004"), false));
    Arrange();
    EXPECT_EQ(node.Left(), 0) << "April's beginning";
    EXPECT_NEAR(node.Width(), 11 * 103, 1);
    DoUnHideTimelineNodes(window, flow);
    EXPECT_EQ(node.Left(), 14 * kSlot);
    HideMonth(*LocateTimelineNode(flow, QStringLiteral("April 2004"), false));
    Arrange();
    EXPECT_NEAR(node.Bounds().right(), 32 * kSlot, 1) << "March's end";
    const QRectF before = node.Bounds();
    HideMonth(*LocateTimelineNode(flow, QStringLiteral("March 2004"), false));
    Arrange();
    EXPECT_EQ(node.Bounds().size(), before.size()) << "none of it is seen";
}

TEST_F(Bars, ThatMeetStandInRowsOfTheirOwnAndASecondRunMovesNothing) {
    const diagram::Node &a = Bar(March(1), March(20)), &b = Bar(March(10), April(5)),
                        &c = Bar(April(8), April(20));
    EXPECT_FALSE(a.Bounds().intersects(b.Bounds()));
    EXPECT_FALSE(c.Bounds().intersects(b.Bounds()));
    for (const RowOrder order : {RowOrder::Keep, RowOrder::Choose}) {
        LineUp(window, flow, order);
        EXPECT_EQ(LineUp(window, flow, order).moved, 0);
    }
}

TEST_F(Bars, UndoGivesPlaceLengthAndEndBack) {
    diagram::AttachHistory(flow);
    diagram::Node &node = Bar(March(14), March(20));
    const QRectF before = node.Bounds();
    document::BeginAction(flow);
    Give(node, March(10), April(1));
    flow.EndAction();
    const QRectF after = node.Bounds();
    ASSERT_NE(after, before);
    flow.Undo();
    EXPECT_EQ(node.Bounds(), before);
    EXPECT_EQ(SpanOfNode(node), (Span{March(14), March(20)}));
    flow.Redo();
    EXPECT_EQ(node.Bounds(), after);
    EXPECT_EQ(SpanOfNode(node), (Span{March(10), April(1)}));
}

TEST_F(Bars, NodesWithoutADateAreLeftFree) {
    diagram::Node &note = flow.Nodes().Add(1000, 700, 1200, 900);
    const diagram::Node &node = Bar(March(14), March(20));
    EXPECT_FALSE(node.Bounds().intersects(note.Bounds()));
    EXPECT_EQ(note.Bounds(), QRectF(1000, 700, 1200, 900)) << "it stays";
    for (const RowOrder order : {RowOrder::Choose, RowOrder::Keep}) {
        LineUp(window, flow, order);
        EXPECT_FALSE(node.Bounds().intersects(note.Bounds()));
        EXPECT_EQ(LineUp(window, flow, order).moved, 0);
    }
    EXPECT_EQ(Bar(April(14), April(20)).Top(), 1290) << "nothing is there but the bands";
}

TEST_F(Bars, AGroundUnderThemAndWhatIsHiddenIsNotInTheWay) {
    diagram::Node &ground = flow.Nodes().Add(0, 600, 9000, 3000);
    diagram::Node &hidden = flow.Nodes().Add(1400, 1200, 1200, 600);
    hidden.SetHidden(true);
    const diagram::Node &node = Bar(March(14), March(20));
    EXPECT_EQ(node.Top(), 1290);
    EXPECT_TRUE(ground.Bounds().contains(node.Bounds()));
}

} // namespace timeline::testing
