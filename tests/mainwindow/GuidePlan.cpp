// The guide's table of what to do with a plan along a timeline.
#include "tests/mainwindow/DatesTest.h"
#include "tests/mainwindow/GuideDeeds.h"

#include "diagram/edit/History.h"
#include "timeline/AtDates.h"
#include "timeline/CalendarOfStrip.h"
#include "timeline/RowPlan.h"

#include <QAction>

namespace mainwindow::testing {

namespace {

constexpr double kSlot = 100; // twips of a day of March

void Trigger(Reader &r, const char *entry) {
    r.window->findChild<QAction *>(QLatin1String(entry))->trigger();
    r.ProcessEvents();
}

// The first node on 14 March 2004, the second on the 20th, the third without a date; the strip at the top, a
// month 3100 twips wide.
void Plan(Reader &r) {
    {
        const diagram::ActionGroup group(r.Surface());
        diagram::Node &look = *timeline::LocateTimeLineTemplateNode(r.Surface(), true);
        look.SetWidth(3100);
        look.SetHeight(450);
        document::SetTag(r.Surface(), document::tags::kTimelineAlign, QStringLiteral("2"));
        timeline::AddTimelineLinks(
            *r.window, r.Surface(),
            {{r.a, QStringLiteral("14 March 2004")}, {r.b, QStringLiteral("20 March 2004")}});
    }
    r.ProcessEvents();
}

double Centre(const diagram::Node &node) { return node.Bounds().center().x(); }

void EnterText(Reader &r, const QString &text) {
    EnterDateUnseen(r.desktop, text);
    r.Press("Ctrl+T");
}

void DateANode(Reader &r) {
    r.Click(Reader::Body(*r.a));
    EnterDateUnseen(r.desktop, QStringLiteral("14 March 2004"));
    r.desktop.ExpectMessageContaining(QStringLiteral("You have not configured your timeline Nodes yet."),
                                      support::Answer::No);
    r.desktop.ExpectForm<timeline::TimelineSetupArgument>([](timeline::TimelineSetupArgument &argument) {
        EXPECT_TRUE(argument.pressOk) << "without being seen";
        timeline::frmTimelineSetup form(argument, nullptr);
        form.OKButton_Click();
        return true;
    });
    r.Press("Ctrl+T");
    EXPECT_EQ(timeline::DateOfNode(*r.a), QStringLiteral("14 March 2004"));
    EXPECT_EQ(timeline::LocateTimelineNodes(r.Surface()).size(), 1U);
}

void PutAtDates(Reader &r) {
    Plan(r);
    r.Press("Ctrl+Shift+T");
    EXPECT_NEAR(Centre(*r.a), 14.5 * kSlot, timeline::kRounding);
    EXPECT_FALSE(timeline::KeepsNodesAtDates(r.Surface()));
    Trigger(r, "mnuViewTimelineKeep");
    EXPECT_TRUE(timeline::KeepsNodesAtDates(r.Surface()));
}

void DragToAnotherDate(Reader &r) {
    Plan(r);
    Trigger(r, "mnuViewTimelineKeep");
    const QPointF body = Reader::Body(*r.a);
    r.Stroke({body, body + QPointF(4 * kSlot, 0)});
    EXPECT_EQ(timeline::DateOfNode(*r.a), QStringLiteral("18 March 2004"));
    EXPECT_NEAR(Centre(*r.a), 18.5 * kSlot, timeline::kRounding);
    const double top = r.a->Top();
    const QPointF next = Reader::Body(*r.a);
    r.Stroke({next, next + QPointF(0, 3000)});
    EXPECT_EQ(timeline::DateOfNode(*r.a), QStringLiteral("18 March 2004"));
    EXPECT_GT(r.a->Top(), top + 1500);
}

void MoveSeveral(Reader &r) {
    Plan(r);
    r.Click(Reader::Body(*r.a));
    r.Click(Reader::Body(*r.b), Qt::ControlModifier);
    r.Press("Ctrl+Alt+PgDown");
    EXPECT_EQ(timeline::DateOfNode(*r.a), QStringLiteral("15 March 2004"));
    EXPECT_EQ(timeline::DateOfNode(*r.b), QStringLiteral("21 March 2004"));
    r.Press("Ctrl+Alt+Shift+PgUp");
    EXPECT_EQ(timeline::DateOfNode(*r.b), QStringLiteral("14 March 2004"));
    EnterText(r, QStringLiteral("+2w"));
    EXPECT_EQ(timeline::DateOfNode(*r.a), QStringLiteral("22 March 2004"));
    EXPECT_EQ(timeline::DateOfNode(*r.b), QStringLiteral("28 March 2004"));
}

void MakeLanes(Reader &r) {
    Plan(r);
    Trigger(r, "mnuViewTimelineKeep");
    Trigger(r, "mnuViewLanesLevel");
    EXPECT_EQ(timeline::LanesOf(r.Surface()), timeline::Lanes::Level);
}

void HideAMonth(Reader &r) {
    Plan(r);
    timeline::AddTimelineLink(*r.window, r.Surface(), *r.b, QStringLiteral("20 April 2004"));
    diagram::Node &month = *timeline::LocateTimelineNodes(r.Surface()).front();
    r.window->ShowNodeProperties(month, 0, 0);
    r.window->SMXP_Click(QStringLiteral("mnuTemplateNodeHide"));
    EXPECT_TRUE(month.Hidden());
    r.window->SMXP_Click(QStringLiteral("mnuTemplateNodeUnHide"));
    EXPECT_FALSE(month.Hidden());
}

void Tidy(Reader &r) {
    Plan(r);
    timeline::AddTimelineLink(*r.window, r.Surface(), *r.b, QStringLiteral("20 April 2004"));
    timeline::AddTimelineLink(*r.window, r.Surface(), *r.b, QStringLiteral("20 March 2004"));
    document::SetTag(r.Surface(), document::tags::kMissing, QStringLiteral("True"));
    Trigger(r, "mnuViewTimelineTidy");
    EXPECT_EQ(timeline::LocateTimelineNodes(r.Surface()).size(), 1U);
}

void ChooseWhatIsBeside(Reader &r) {
    Plan(r);
    using timeline::CalendarPart;
    Trigger(r, "mnuViewBands");
    EXPECT_FALSE(timeline::Shows(r.Surface(), CalendarPart::Bands));
    Trigger(r, "mnuViewWeekends");
    EXPECT_TRUE(timeline::Shows(r.Surface(), CalendarPart::Weekends));
    Trigger(r, "mnuViewTodayEverywhere");
    EXPECT_TRUE(timeline::Shows(r.Surface(), CalendarPart::TodayEverywhere));
}

} // namespace

void PlanByDates(Reader &r) {
    DateANode(r);
    {
        const diagram::ActionGroup group(r.Surface());
        timeline::LocateTimeLineTemplateNode(r.Surface(), false)->SetWidth(3100);
        timeline::UpdateTimeLineNodes(*r.window, r.Surface(), true);
    }
    Trigger(r, "mnuViewTimelineKeep");
    EXPECT_NEAR(Centre(*r.a), 14.5 * kSlot, timeline::kRounding);
    const QPointF body = Reader::Body(*r.a);
    r.Stroke({body, body + QPointF(4 * kSlot, 0)});
    EXPECT_EQ(timeline::DateOfNode(*r.a), QStringLiteral("18 March 2004"));
}

namespace {

constexpr ToldStep kPlan[] = {
    {"date a node | select it, press Ctrl+T, write the date and press Enter: the first one makes the strip "
     "of months",
     DateANode},
    {"put nodes at their dates | Ctrl+Shift+T for once, *View, Dates, Keep nodes at their dates* for good",
     PutAtDates},
    {"change a date | with that switch on, drag the node along the months; across them it only goes to "
     "another row",
     DragToAnotherDate},
    {"move several dates | select the nodes and press Ctrl+Alt+PgDn or Ctrl+Alt+PgUp, with Shift for a week; "
     "or Ctrl+T and *+2w*",
     MoveSeveral},
    {"give each level or group rows of its own | *View, Dates, Lanes beside the timeline*", MakeLanes},
    {"hide a month | right click on it, *Hide*; *UnHide* there brings all of them back", HideAMonth},
    {"take months away that nothing needs | *View, Dates, Tidy the timeline*", Tidy},
    {"choose what is drawn beside the months | *View, Dates, Beside the timeline*", ChooseWhatIsBeside},
};

} // namespace

std::span<const ToldStep> PlanSteps() { return kPlan; }

} // namespace mainwindow::testing
