#include "timeline/AddTimelineLink.h"

#include "tests/timeline/TimelineTest.h"

namespace timeline::testing {

namespace {

const QString kQuestion =
    QStringLiteral("You have not configured your timeline Nodes yet. \r\rWould you like to do "
                   "this now?");

class Dating : public TimelineTest {
protected:
    // What OK of the form does for the template node.
    static bool PressOk(TimelineSetupArgument &setup) {
        setup.TemplateNode->SetWidth(1200);
        setup.TemplateNode->SetHeight(1200);
        return true;
    }
    void Date(diagram::Node &node, const char *date) {
        AddTimelineLink(window, flow, node, QString::fromLatin1(date));
    }
};

} // namespace

TEST_F(Dating, NoTakesTheSettingsOfTheFormWithoutShowingIt) {
    diagram::Node &user = UserNode();
    desktop.ExpectMessage(kQuestion, support::Answer::No);
    desktop.ExpectForm<TimelineSetupArgument>([](TimelineSetupArgument &argument) {
        EXPECT_TRUE(argument.pressOk);
        return PressOk(argument);
    });
    Date(user, "14 March 2004");
    EXPECT_EQ(LocateTimeLineTemplateNode(flow, false)->Width(), 1200);
    EXPECT_EQ(DateOfNode(user), QStringLiteral("14 March 2004"));
    EXPECT_EQ(LocateTimelineNode(flow, QStringLiteral("March 2004"), false)->Width(), 1200);
}

TEST_F(Dating, YesShowsTheForm) {
    desktop.ExpectMessage(kQuestion, support::Answer::Yes);
    desktop.ExpectForm<TimelineSetupArgument>([](TimelineSetupArgument &argument) {
        EXPECT_FALSE(argument.pressOk);
        return PressOk(argument);
    });
    Date(UserNode(), "14 March 2004");
}

TEST_F(Dating, AFormThatWasCancelledIsConfirmedUnseen) {
    desktop.ExpectMessage(kQuestion, support::Answer::Yes);
    desktop.ExpectForm<TimelineSetupArgument>();
    desktop.ExpectForm<TimelineSetupArgument>(PressOk);
    Date(UserNode(), "14 March 2004");
    EXPECT_EQ(LocateTimeLineTemplateNode(flow, false)->Width(), 1200);
}

TEST_F(Dating, ATimelineWithoutSizeIsNotConfiguredAndAskedForAgain) {
    Template(0, 0);
    desktop.ExpectMessage(kQuestion, support::Answer::No);
    desktop.ExpectForm<TimelineSetupArgument>(PressOk);
    Date(UserNode(), "14 March 2004");
    EXPECT_EQ(LocateTimelineNode(flow, QStringLiteral("March 2004"), false)->Width(), 1200);
    Date(UserNode(), "15 March 2004");
}

TEST_F(Dating, MonthsWithASizeKeepItWhileTheTimelineIsNotConfigured) {
    diagram::Node &month = Month(QStringLiteral("March 2004"));
    month.SetWidth(1500);
    month.SetHeight(600);
    CopyTemplateLook(flow);
    ShowHideTimelineNodes(flow, true);
    EXPECT_EQ(month.Bounds().size(), QSizeF(1500, 600));
}

TEST_F(Dating, ANewDateTakesThePlaceOfTheFormerOne) {
    Template(3100, 500);
    diagram::Node &user = UserNode(), &other = UserNode();
    user.Links().Add(other);
    Date(user, "14 March 2004");
    Date(user, "02 May 2004");
    EXPECT_EQ(DateOfNode(user), QStringLiteral("02 May 2004"));
    EXPECT_EQ(user.Links().Count(), 2);
    EXPECT_NE(LocateTimelineNode(flow, QStringLiteral("14 March 2004"), false), nullptr);
}

TEST_F(Dating, TakingTheDateAwayLeavesOtherLinks) {
    Template(3100, 500);
    diagram::Node &user = UserNode(), &other = UserNode();
    user.Links().Add(other);
    Date(user, "14 March 2004");
    RemoveTimelineLinks(user);
    EXPECT_TRUE(DateOfNode(user).isEmpty());
    ASSERT_EQ(user.Links().Count(), 1);
    EXPECT_EQ(&user.Links().Item(1).Destination(), &other);
}

} // namespace timeline::testing
