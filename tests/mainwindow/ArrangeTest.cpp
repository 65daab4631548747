// Aligning, distributing and duplicating what is selected, and stretching the strip of months.
#include "diagram/view/SurfaceView.h"
#include "document/DefaultNodes.h"
#include "document/Tags.h"
#include "tests/mainwindow/WindowTest.h"
#include "timeline/TimelineNodes.h"

#include <QApplication>
#include <QTest>

namespace mainwindow::testing {

namespace {

// Three nodes of 1500 by 900, selected.
struct Arranging : WindowTest {
    frmMain &window = NewWindow();
    diagram::Node &a = AddNode(window, 0, 0), &b = AddNode(window, 2000, 1500),
                  &c = AddNode(window, 6000, 6000);

    Arranging() {
        for (diagram::Node *node : {&a, &b, &c}) node->SetSelected(true);
    }
    void Run(const char *key) { window.SmartMenuXP1_Click(QLatin1String(key)); }
};

} // namespace

TEST_F(Arranging, LinesUpAsOneStepAndMarksTheMap) {
    Run("keyAlignLeft");
    EXPECT_EQ(b.Left(), 0);
    EXPECT_EQ(c.Left(), 0);
    EXPECT_TRUE(window.clsSettings().Dirty);
    Run("mnuEditUndo");
    EXPECT_EQ(b.Left(), 2000);
    EXPECT_EQ(c.Left(), 6000);
}

TEST_F(Arranging, EachCommandDoesItsOwn) {
    const struct {
        const char *key;
        float left, top; // of b
    } rows[] = {{"keyAlignRight", 6000, 1500},    {"keyAlignCentre", 3000, 1500},
                {"keyAlignTop", 2000, 0},         {"keyAlignMiddle", 2000, 3000},
                {"keyAlignBottom", 2000, 6000},   {"keyDistributeAcross", 3000, 1500},
                {"keyDistributeDown", 2000, 3000}};
    for (const auto &row : rows) {
        Run(row.key);
        EXPECT_EQ(b.Left(), row.left) << row.key;
        EXPECT_EQ(b.Top(), row.top) << row.key;
        Run("mnuEditUndo");
    }
}

TEST_F(Arranging, EqualSizesFollowTheNodeThatIsSelectedFirst) {
    window.CurrentSurface().SelectedNode()->SetWidth(3000);
    const float width = window.CurrentSurface().SelectedNode()->Width();
    Run("keySameWidth");
    for (const diagram::Node *node : {&a, &b, &c}) EXPECT_EQ(node->Width(), width);
}

TEST_F(Arranging, ZoomToSelectionShowsItWholeAndLarge) {
    window.CurrentSurface().UnselectAll();
    c.SetSelected(true);
    Run("keyZoomSelection");
    const diagram::SurfaceView &view = window.CurrentView();
    const QRectF box(view.FromSurface(c.Bounds().topLeft()), view.FromSurface(c.Bounds().bottomRight()));
    EXPECT_TRUE(QRectF(view.viewport()->rect()).contains(box));
    EXPECT_GT(view.ShownZoom(), 300);
    EXPECT_EQ(window.CurrentSurface().xZoom(), 100);
}

TEST_F(Arranging, DuplicatePutsACopyBesideWithKeysOfItsOwnInOneStep) {
    a.SetKey(QStringLiteral("{a}"));
    window.CurrentSurface().UnselectAll();
    a.SetSelected(true);
    ProcessEvents();
    Press(window, QStringLiteral("Ctrl+D"));
    ASSERT_EQ(window.CurrentSurface().Nodes().Count(), 4);
    const diagram::Node &copy = window.CurrentSurface().Nodes().Item(4);
    EXPECT_EQ(copy.Top(), 0);
    EXPECT_GT(copy.Left(), 1500);
    EXPECT_TRUE(copy.Selected());
    EXPECT_FALSE(a.Selected());
    EXPECT_NE(copy.Key(), a.Key());
    EXPECT_TRUE(window.clsSettings().Dirty);
    Press(window, QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 3);
}

TEST_F(Arranging, StretchingTheStripWithoutATimelineChangesNothingButMarksTheMap) {
    const QString tag = window.CurrentSurface().Tag();
    for (const char *key : {"EXPAND", "COMPRESS"}) {
        window.clsSettings().Dirty = false;
        window.tlbFormat_ButtonClick(QLatin1String(key));
        EXPECT_TRUE(window.clsSettings().Dirty);
        EXPECT_EQ(window.CurrentSurface().Nodes().Count(), 3);
        EXPECT_EQ(window.CurrentSurface().Tag(), tag);
    }
}

TEST_F(Arranging, StretchingTheStripWorksAlongItsAxis) {
    diagram::Node &months = document::AddHiddenNode(window.CurrentSurface(), timeline::kTemplateNodeText);
    months.SetWidth(1000);
    months.SetHeight(500);
    const diagram::Node &month = AddMonth(window, 9000, QStringLiteral("May 2024"));
    window.tlbFormat_ButtonClick(QStringLiteral("EXPAND"));
    EXPECT_EQ(document::GetTag(window.CurrentSurface(), document::tags::kTimelineAlign), QStringLiteral("4"));
    EXPECT_FLOAT_EQ(months.Width(), 1100);
    EXPECT_FLOAT_EQ(month.Width(), 1100);
    EXPECT_NE(month.Left(), 9000);
    document::SetTag(window.CurrentSurface(), document::tags::kTimelineAlign, QStringLiteral("1"));
    window.tlbFormat_ButtonClick(QStringLiteral("COMPRESS"));
    EXPECT_FLOAT_EQ(months.Width(), 1100);
    EXPECT_FLOAT_EQ(months.Height(), 450);
    EXPECT_FLOAT_EQ(month.Height(), 450);
}

} // namespace mainwindow::testing
