// What the user chose outlives the setup form.
#include "document/Tags.h"
#include "tests/timeline/setup/SetupTest.h"
#include "timeline/setup/SampleView.h"

#include <QCheckBox>
#include <QTest>

namespace timeline::testing {

namespace {
using namespace document::tags;
} // namespace

struct Choosing : SetupTest {
    diagram::Node &Look() { return *LocateTimeLineTemplateNode(flow, false); }
};

TEST_F(Choosing, OkKeepsAPatternThatTheListDoesNotHave) {
    UserNode();
    diagram::Node &look = Template(1000, 500);
    document::SetTag(look, kDateFormat, QStringLiteral("YYYY MM"));
    Form();
    Press("OKButton");
    EXPECT_EQ(document::GetTag(look, kDateFormat), QStringLiteral("YYYY MM"));
    Form();
    Choose("cboDateFormat", 0);
    Press("OKButton");
    EXPECT_EQ(document::GetTag(look, kDateFormat), QStringLiteral("MM YYYY"));
}

TEST_F(Choosing, WhatIsShownWhenAFormIsGivenUpIsWhereTheNextBegins) {
    QVariantMap choices;
    TimelineSetupArgument argument{window, &flow, &Template(0, 0)};
    argument.choices = &choices;
    Form(argument);
    Choose("cboShape", 20);
    Choose("cboDateFormat", 9);
    Choose("cboArrangement", 2);
    Control<QCheckBox>("chkMissingDates").click();
    desktop.ExpectColour(0x0000FF);
    Press("cmdChangeFill");
    QTest::keyClick(form->findChild<SampleView *>(), Qt::Key_Right);
    Press("cmdCancel");
    EXPECT_EQ(Look().Width(), 0);
    Form(argument).OKButton_Click();
    EXPECT_EQ(Look().Shape(), 54);
    EXPECT_EQ(Look().FillColor(), 0x0000FF);
    EXPECT_EQ(Look().Bounds().size(), QSizeF(1275, 1200));
    EXPECT_EQ(document::GetTag(Look(), kDateFormat), QStringLiteral("MM-YY"));
    EXPECT_EQ(Get(kTimelineAlign), QStringLiteral("2"));
    EXPECT_EQ(Get(kMissing), QStringLiteral("True"));
}

TEST_F(Choosing, YesAndThenCancelKeepsWhatTheUserChose) {
    desktop.ExpectMessageContaining(QStringLiteral("You have not configured"), support::Answer::Yes);
    desktop.ExpectForm<TimelineSetupArgument>([this](TimelineSetupArgument &argument) {
        Form(argument).show();
        Choose("cboShape", 20);
        QTest::keyClick(form.get(), Qt::Key_Escape);
        EXPECT_EQ(form->result(), QDialog::Rejected);
        return false;
    });
    desktop.ExpectForm<TimelineSetupArgument>([this](TimelineSetupArgument &argument) {
        EXPECT_TRUE(argument.pressOk);
        Form(argument).OKButton_Click();
        return true;
    });
    AddTimelineLink(window, flow, UserNode(), QStringLiteral("14 March 2004"));
    EXPECT_EQ(LocateTimelineNodes(flow).front()->Shape(), 54);
    EXPECT_EQ(LocateTimelineNodes(flow).front()->Width(), 1200);
}

} // namespace timeline::testing
