#include "timeline/TimelineNodes.h"

#include "diagram/model/Sights.h"
#include "document/Tags.h"
#include "support/Error.h"
#include "tests/Errors.h"
#include "tests/timeline/TimelineTest.h"

namespace timeline::testing {

namespace {
using Locating = TimelineTest;

QString DateOf(const diagram::Node &node) { return document::GetTag(node, document::tags::kTheDate); }
} // namespace

TEST_F(Locating, TheTemplateNodeIsMadeOnceAndOnlyOnDemand) {
    EXPECT_EQ(LocateTimeLineTemplateNode(flow, false), nullptr);
    EXPECT_EQ(flow.Nodes().Count(), 0);
    diagram::Node *node = LocateTimeLineTemplateNode(flow, true);
    EXPECT_EQ(LocateTimeLineTemplateNode(flow, true), node);
    EXPECT_EQ(flow.Nodes().Count(), 1);
    EXPECT_EQ(node->Text(), QStringLiteral("TIMELINE TEMPLATE NODE"));
    EXPECT_TRUE(node->Hidden());
    EXPECT_FALSE(node->Selectable());
    EXPECT_EQ(node->Width(), 0);
}

TEST_F(Locating, AMonthIsAMarkedNodeThatCannotBeSelected) {
    diagram::Node &month = Month(QStringLiteral("March 2004"));
    EXPECT_TRUE(month.Marked());
    EXPECT_FALSE(month.Selectable());
    EXPECT_FALSE(month.Hidden());
    EXPECT_EQ(month.Text(), QStringLiteral("March 2004"));
    EXPECT_EQ(DateOf(month), QStringLiteral("March 2004"));
    EXPECT_EQ(&Month(QStringLiteral("March 2004")), &month);
}

TEST_F(Locating, AHiddenMonthIsFoundToo) {
    diagram::Node &month = Month(QStringLiteral("March 2004"));
    month.SetHidden(true);
    EXPECT_EQ(LocateTimelineNode(flow, QStringLiteral("March 2004"), false), &month);
    EXPECT_EQ(LocateTimelineNodes(flow), std::vector<diagram::Node *>{&month});
}

TEST_F(Locating, ADayBringsItsMonthAndTheLinkAlong) {
    diagram::Node &user = UserNode();
    diagram::Node *day = LocateTimelineNode(flow, QStringLiteral("14 March 2004"), true, &user);
    EXPECT_TRUE(NodeIsTimeline(*day));
    EXPECT_EQ(DateOf(*day), QStringLiteral("14 March 2004"));
    EXPECT_EQ(day->Text(), QStringLiteral("14 March 2004"));
    EXPECT_NE(LocateTimelineNode(flow, QStringLiteral("March 2004"), false), nullptr);
    ASSERT_EQ(user.Links().Count(), 1);
    diagram::Link &link = user.Links().Item(1);
    EXPECT_EQ(&link.Destination(), day);
    EXPECT_TRUE(link.Marked());
    EXPECT_FALSE(link.Selectable());
}

TEST_F(Locating, ADayThatIsThereGetsAnotherLink) {
    diagram::Node &first = UserNode(), &second = UserNode();
    diagram::Node *day = LocateTimelineNode(flow, QStringLiteral("14 March 2004"), true, &first);
    EXPECT_EQ(LocateTimelineNode(flow, QStringLiteral("14 March 2004"), false, &second), day);
    EXPECT_EQ(second.Links().Count(), 1);
}

TEST_F(Locating, OfTwoNodesOfOneDateTheFirstIsFound) {
    diagram::Node &first = Month(QStringLiteral("March 2004"));
    diagram::Node &second = Month(QStringLiteral("April 2004"));
    document::SetTag(second, document::tags::kTheDate, QStringLiteral("March 2004"));
    EXPECT_EQ(LocateTimelineNode(flow, QStringLiteral("March 2004"), false), &first);
}

TEST_F(Locating, MonthsHaveOneBlankOrOneHyphenInTheirText) {
    for (const char *text : {"Jan-04", "02 2004"}) Month(QString::fromLatin1(text));
    Month(QStringLiteral("DIAGRAM"));
    Month(QStringLiteral("15-03-2004"));
    Day(QStringLiteral("14 March 2004"));
    EXPECT_EQ(LocateTimelineNodes(flow).size(), 3u); // the third is the month of the day
    EXPECT_EQ(CountOccurencies(QStringLiteral("a-b-c"), QStringLiteral("-")), 2);
}

TEST_F(Locating, DaysPerMonthKnowsLeapYears) {
    EXPECT_EQ(DaysPerMonth(QStringLiteral("February 2004")), 29);
    EXPECT_EQ(DaysPerMonth(QStringLiteral("February 2003")), 28);
    EXPECT_EQ(DaysPerMonth(QStringLiteral("Dec-03")), 31);
    EXPECT_EQ(tests::NumberOf([&] { DaysPerMonth(QStringLiteral("never")); }), support::kErrTypeMismatch);
}

TEST_F(Locating, MonthsInSightTakeTheTemplatesLookAndSize) {
    diagram::Node &look = Template(3100, 500);
    look.SetFillColor(0x123456);
    look.SetShape(4);
    diagram::Node &shown = Month(QStringLiteral("March 2004")), &hidden = Month(QStringLiteral("May 2004"));
    hidden.SetHidden(true);
    hidden.SetWidth(0);
    CopyTemplateLook(flow);
    EXPECT_EQ(shown.FillColor(), 0x123456);
    EXPECT_EQ(shown.Shape(), 4);
    EXPECT_EQ(shown.Width(), 3100);
    EXPECT_EQ(shown.Height(), 500);
    EXPECT_EQ(hidden.Width(), 0);
    EXPECT_NE(hidden.Shape(), 4);
}

TEST_F(Locating, HidingTheTimelineHidesMonthsAndTheLinksToTheirDays) {
    Template(3100, 500);
    diagram::Node &user = UserNode(), &away = UserNode();
    LocateTimelineNode(flow, QStringLiteral("05 March 2004"), true, &user);
    LocateTimelineNode(flow, QStringLiteral("31 March 2004"), true, &away);
    away.SetHidden(true);
    diagram::Node &month = Month(QStringLiteral("March 2004"));
    month.SetText(QStringLiteral("03-04"));
    ShowHideTimelineNodes(flow, false);
    EXPECT_TRUE(month.Hidden());
    EXPECT_EQ(month.Width(), 3100);
    EXPECT_TRUE(user.Links().Item(1).Hidden());
    EXPECT_FALSE(away.Links().Item(1).Hidden()) << "links of a hidden node stay as they are";
    ShowHideTimelineNodes(flow, true);
    EXPECT_FALSE(month.Hidden());
    EXPECT_FALSE(user.Links().Item(1).Hidden());
}

TEST_F(Locating, APreviewOfTheTimelineIsWhatHidingItWouldMakeOfIt) {
    diagram::Node &user = UserNode(), &away = UserNode();
    LocateTimelineNode(flow, QStringLiteral("05 March 2004"), true, &user);
    LocateTimelineNode(flow, QStringLiteral("31 March 2004"), true, &away);
    away.SetHidden(true);
    diagram::Node &month = *LocateTimelineNodes(flow).front();
    for (const bool shown : {false, true}) {
        diagram::Sights sights;
        PreviewTimelineNodes(flow, shown, sights);
        const bool foreseen[] = {sights.Hides(month), sights.Hides(user.Links().Item(1)),
                                 sights.Hides(away.Links().Item(1))};
        ShowHideTimelineNodes(flow, shown);
        EXPECT_EQ(foreseen[0], month.Hidden());
        EXPECT_EQ(foreseen[1], user.Links().Item(1).Hidden());
        EXPECT_EQ(foreseen[2], away.Links().Item(1).Hidden());
    }
}

TEST_F(Locating, UnhidingShowsWhateverIsHiddenAndReadsLikeAMonth) {
    Template(3100, 500);
    diagram::Node &plain = document::AddHiddenNode(flow, document::kTemplateNodeText);
    diagram::Node &month = Month(QStringLiteral("March 2004")), &user = UserNode(QStringLiteral("New Item"));
    diagram::Node &day = Day(QStringLiteral("05 March 2004"));
    month.SetHidden(true);
    user.SetHidden(true);
    ShowHiddenMonths(flow);
    EXPECT_FALSE(month.Hidden());
    EXPECT_FALSE(user.Hidden());
    EXPECT_TRUE(day.Hidden());
    EXPECT_TRUE(plain.Hidden());
    EXPECT_TRUE(LocateTimeLineTemplateNode(flow, false)->Hidden());
}

} // namespace timeline::testing
