// Nodes are found by their dates.
#include "tests/mainwindow/DatesTest.h"

#include "mainwindow/edits/ItemDescription.h"
#include "mainwindow/find/FindBar.h"
#include "timeline/AtDates.h"
#include "timeline/LineUp.h"

#include <QCheckBox>
#include <QLabel>

namespace mainwindow::testing {

namespace {

struct FoundByDate : Strips {
    FindBar &bar = *window.findChild<FindBar *>();
    diagram::Node &second = AddNode(window, 6000, 3000, QStringLiteral("Second"));

    FoundByDate() {
        desktop.clock.now = QDateTime(QDate(2004, 1, 10), QTime(9, 0));
        timeline::AddTimelineLink(window, window.CurrentSurface(), second, QStringLiteral("05 April 2004"));
        AddNode(window, 6000, 4500, QStringLiteral("Plain"));
    }
    QString Found(const char *text) {
        Press(window, QStringLiteral("Ctrl+F"));
        bar.findChild<QLineEdit *>(QStringLiteral("txtFind"))->setText(QString::fromLatin1(text));
        ProcessEvents();
        QStringList texts;
        if (bar.findChild<QLabel *>(QStringLiteral("lblCount"))->text() != QStringLiteral("1 of 1"))
            return bar.findChild<QLabel *>(QStringLiteral("lblCount"))->text();
        return window.CurrentSurface().SelectedNode()->Text();
    }
};

} // namespace

TEST_F(FoundByDate, AsItIsWritten) {
    for (const char *text :
         {"14 March 2004", "14 Mar", "march", "14/3/2004", "14.3.", "2004-03-14", "Sunday", "14 mar 04"})
        EXPECT_EQ(Found(text), QStringLiteral("Launch")) << text;
    for (const char *text : {"05 April", "5 April 2004", "5 apr", "5/4"})
        EXPECT_EQ(Found(text), QStringLiteral("Second")) << text;
    EXPECT_TRUE(Found("2004").endsWith(QStringLiteral(" of 2")));
}

TEST_F(FoundByDate, OtherDatesAreNot) {
    const QString none = Found("no such text");
    for (const char *text : {"15 March 2004", "14 March 2005", "15 Mar", "14 Apr"})
        EXPECT_EQ(Found(text), none) << text;
}

TEST_F(FoundByDate, WithWholeWordsToo) {
    Press(window, QStringLiteral("Ctrl+F"));
    bar.findChild<QCheckBox *>(QStringLiteral("chkWords"))->setChecked(true);
    EXPECT_EQ(Found("14 Mar"), QStringLiteral("Launch")) << "what it means";
    EXPECT_EQ(Found("4 March"), Found("no such text"));
    EXPECT_EQ(Found("March 2004"), QStringLiteral("Launch"));
}

TEST_F(FoundByDate, ReplacingLeavesDatesAlone) {
    Press(window, QStringLiteral("Ctrl+H"));
    bar.findChild<QLineEdit *>(QStringLiteral("txtFind"))->setText(QStringLiteral("March"));
    bar.findChild<QLineEdit *>(QStringLiteral("txtReplace"))->setText(QStringLiteral("May"));
    Q_EMIT bar.ReplaceAll();
    EXPECT_EQ(timeline::DateOfNode(node), QStringLiteral("14 March 2004"));
    EXPECT_EQ(node.Text(), QStringLiteral("Launch"));
}

TEST_F(FoundByDate, ANodeThatGrowsWithItsTextStaysAtItsDate) {
    timeline::SetKeepsNodesAtDates(window.CurrentSurface(), true);
    node.SetAutoSize(3);
    timeline::FollowDates(window, window.CurrentSurface());
    const double centre = node.Bounds().center().x();
    const float width = node.Width();
    Press(window, QStringLiteral("Ctrl+H"));
    bar.findChild<QLineEdit *>(QStringLiteral("txtFind"))->setText(QStringLiteral("Launch"));
    bar.findChild<QLineEdit *>(QStringLiteral("txtReplace"))
        ->setText(QStringLiteral("Launch in all of the shops"));
    Q_EMIT bar.ReplaceAll();
    EXPECT_GT(node.Width(), width + 300);
    EXPECT_NEAR(node.Bounds().center().x(), centre, 1);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(node.Text(), QStringLiteral("Launch"));
    EXPECT_EQ(node.Width(), width);
}

TEST_F(FoundByDate, AScreenReaderHearsTheDate) {
    EXPECT_EQ(ItemDescription(node, window.clsSettings()), QStringLiteral("Sunday, 14 March 2004"));
    EXPECT_TRUE(ItemDescription(*node.Links().Item(1).AsLink(), window.clsSettings()).isEmpty());
}

} // namespace mainwindow::testing
