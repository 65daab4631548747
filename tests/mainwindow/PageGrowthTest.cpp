// The page grows to the left and top with a strip of months on it; steps of arrow keys, and places of copies.
#include "diagram/view/SurfaceView.h"
#include "document/Tags.h"
#include "tests/BritishLocale.h"
#include "tests/mainwindow/DatesTest.h"
#include "tests/mainwindow/WindowTest.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/Arrange.h"
#include "timeline/setup/frmTimelineSetup.h"
#include "timeline/TimelineNodes.h"

#include <QTest>

namespace mainwindow::testing {

namespace {

struct GrowingPages : WindowTest {
    const tests::BritishLocale british;
    frmMain &window = NewWindow();
    diagram::Node &node = AddNode(window, 3000, 2400, QStringLiteral("Launch"));
    diagram::Node &other = AddNode(window, 6000, 4500, QStringLiteral("Other"));

    GrowingPages() { ProcessEvents(); }

    diagram::Surface &Surface() { return window.CurrentSurface(); }

    void DateTheNode() {
        ConfirmSetupUnseen(desktop);
        timeline::AddTimelineLink(window, Surface(), node, QStringLiteral("14 March 2004"));
        document::SetTag(Surface(), document::tags::kTimelineAlign, QStringLiteral("2"));
        timeline::ArrangeTimeLineNodes(window, Surface(), timeline::kStoredArrangement);
        ProcessEvents();
    }
    const diagram::Node &Month() { return *timeline::LocateTimelineNodes(Surface()).front(); }
    QPointF EndOfDateLink() { return ToQPointF(Surface().Links().front()->Route().back()); }

    // Holds the node near its top and drags it by so many twips.
    void DragNode(const diagram::Node &dragged, const QPointF &by) {
        const QPointF from = dragged.Bounds().topLeft() + QPointF(600, 120);
        Drag(window, from, from + by, Qt::AltModifier);
        ProcessEvents();
    }
    QPoint At(const QPointF &twips) { return window.CurrentView().FromSurface(twips).toPoint(); }
};

} // namespace

TEST_F(GrowingPages, MonthsAreLaidOutAgainInTheStepThatMovesEverything) {
    DateTheNode();
    ASSERT_EQ(Month().Bounds().topLeft(), QPointF(0, 0));
    const QPointF dated = EndOfDateLink();
    const QPoint shown = At(node.Bounds().topLeft());
    window.clsSettings().Dirty = false;
    DragNode(other, QPointF(-6300, 0));
    EXPECT_EQ(other.Left(), -300 + 300);
    EXPECT_EQ(node.Left(), 3000 + 300);
    EXPECT_EQ(At(node.Bounds().topLeft()), shown);
    EXPECT_EQ(Month().Left(), 0) << "where the strip begins";
    EXPECT_EQ(EndOfDateLink(), dated) << "on its day";
    EXPECT_TRUE(window.clsSettings().Dirty);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(other.Left(), 6000);
    EXPECT_EQ(node.Left(), 3000);
    EXPECT_EQ(Month().Left(), 0);
    EXPECT_EQ(EndOfDateLink(), dated);
    EXPECT_EQ(At(node.Bounds().topLeft()), shown);
}

TEST_F(GrowingPages, WithoutMonthsNothingComesOfIt) {
    const int nodes = Surface().Nodes().Count();
    DragNode(other, QPointF(-6300, -4800));
    EXPECT_EQ(Surface().Nodes().Count(), nodes);
    EXPECT_EQ(node.Bounds().topLeft(), QPointF(3300, 2400 + 300));
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_FALSE(Surface().CanUndo());
}

TEST_F(GrowingPages, ArrowKeysInTheWindowAreOneStep) {
    Surface().UnselectAll();
    node.SetSelected(true);
    window.CurrentView().setFocus();
    ProcessEvents();
    for (int i = 0; i < 3; ++i) QTest::keyClick(&window.CurrentView(), Qt::Key_Right);
    EXPECT_EQ(node.Left(), 3045);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(node.Left(), 3000);
    EXPECT_FALSE(Surface().CanUndo());
}

TEST_F(GrowingPages, ACommandBetweenArrowKeysStartsAnotherStep) {
    Surface().UnselectAll();
    node.SetSelected(true);
    window.CurrentView().setFocus();
    ProcessEvents();
    QTest::keyClick(&window.CurrentView(), Qt::Key_Right);
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditCopy"));
    QTest::keyClick(&window.CurrentView(), Qt::Key_Right);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(node.Left(), 3015);
}

TEST_F(GrowingPages, PasteOnAnotherSliceKeepsThePlaceAndIsOneStepEach) {
    Surface().UnselectAll();
    node.SetSelected(true);
    Press(window, QStringLiteral("Ctrl+C"));
    desktop.ExpectInput(QStringLiteral("Name for Slice."), QStringLiteral("Two"));
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditSlicesInsert"));
    window.TabStrip().SetTheTab(1);
    ProcessEvents();
    Press(window, QStringLiteral("Ctrl+V"));
    ASSERT_NE(Surface().SelectedNode(), nullptr);
    EXPECT_EQ(Surface().SelectedNode()->Bounds().topLeft(), QPointF(3000, 2400));
    Press(window, QStringLiteral("Ctrl+V"));
    EXPECT_EQ(Surface().SelectedNode()->Top(), 2400);
    EXPECT_GT(Surface().SelectedNode()->Left(), 4500);
    Press(window, QStringLiteral("Ctrl+Z"));
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(Surface().Nodes().Count(), 0);
}

TEST_F(GrowingPages, DuplicateOfNothingLeavesTheMapClean) {
    Surface().UnselectAll();
    window.clsSettings().Dirty = false;
    window.SmartMenuXP1_Click(QStringLiteral("keyDuplicate"));
    EXPECT_FALSE(window.clsSettings().Dirty);
    EXPECT_FALSE(Surface().CanUndo());
}

} // namespace mainwindow::testing
