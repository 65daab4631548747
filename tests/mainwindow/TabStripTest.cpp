#include "mainwindow/controls/clsTabStrip.h"

#include "support/clsGUID.h"
#include "support/Error.h"
#include "support/testing/ScriptedDesktop.h"
#include "tests/Errors.h"

#include <gtest/gtest.h>
#include <QSignalSpy>
#include <QTabBar>

namespace mainwindow {

namespace {

class TabStrip : public ::testing::Test {
protected:
    TabStrip() {
        bar.addTab(QStringLiteral("Map 1"));
        strip.SetTabStrip(&bar);
    }
    support::testing::ScriptedDesktop desktop;
    QTabBar bar;
    clsTabStrip strip;
};

} // namespace

TEST_F(TabStrip, CountAddsEmptyTabsBehindTheLastAndTakesTheLastAway) {
    strip.SetTabCount(3);
    EXPECT_EQ(strip.TabCount(), 3);
    EXPECT_EQ(strip.TabCaption(0), QStringLiteral("Map 1"));
    EXPECT_EQ(strip.TabCaption(2), QString());
    strip.SetTabCount(1);
    EXPECT_EQ(strip.TabCount(), 1);
    EXPECT_EQ(strip.TabCaption(0), QStringLiteral("Map 1"));
}

TEST_F(TabStrip, TabKeyIsMadeAtTheFirstQuestionAndStays) {
    EXPECT_TRUE(bar.tabData(0).isNull());
    const QString key = strip.TabKey(0);
    EXPECT_TRUE(support::CheckGUID(key));
    EXPECT_EQ(strip.TabKey(0), key);
}

TEST_F(TabStrip, CaptionIsThatOfTheSelectedTab) {
    strip.SetTabCount(2);
    strip.SetTheTab(1);
    strip.SetCaption(QStringLiteral("Costs"));
    EXPECT_EQ(strip.Caption(), QStringLiteral("Costs"));
    EXPECT_EQ(strip.TabCaption(0), QStringLiteral("Map 1"));
}

TEST_F(TabStrip, CaptionKeepsAnAmpersandAsALetter) {
    strip.SetCaption(QStringLiteral("R&D && more"));
    EXPECT_EQ(strip.Caption(), QStringLiteral("R&D && more"));
}

TEST_F(TabStrip, ATabThatIsNotThereIsAnError) {
    EXPECT_EQ(tests::NumberOf([&] { strip.SetTheTab(1); }), 380);
    EXPECT_EQ(tests::NumberOf([&] { strip.TabKey(-1); }), 380);
    EXPECT_EQ(tests::NumberOf([&] { strip.TabCaption(7); }), 380);
}

TEST_F(TabStrip, SelectingATabRaisesTheClick) {
    strip.SetTabCount(2);
    QSignalSpy clicks(&strip, &clsTabStrip::Click);
    strip.SetTheTab(1);
    EXPECT_EQ(clicks.count(), 1);
}

TEST_F(TabStrip, MovePutsTheTabsAtTheLowerEdge) {
    strip.Move(5, 10, 300, 200);
    EXPECT_EQ(bar.geometry().left(), 5);
    EXPECT_EQ(bar.width(), 300);
    EXPECT_EQ(bar.geometry().bottom() + 1, 210);
    EXPECT_EQ(bar.height(), strip.TabHeight());
}

} // namespace mainwindow
