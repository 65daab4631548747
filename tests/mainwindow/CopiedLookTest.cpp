#include "mainwindow/look/CopiedLook.h"

#include "tests/mainwindow/WindowTest.h"

#include <QTest>

namespace mainwindow::testing {

namespace {

class CopiedLooks : public WindowTest {
protected:
    static void Paint(diagram::Node &node) {
        node.SetFillColor(0x123456);
        node.SetBorderColor(0x654321);
        node.SetForeColor(0x0000FF);
        node.SetDrawWidth(3);
        node.SetDrawStyle(2);
        node.SetShadow(1);
        node.SetAlignment(0);
        node.SetShape(8);
        node.SetFont(diagram::Font(QStringLiteral("Arial"), 14, true));
    }
    static void Paint(diagram::Link &link) {
        link.SetLineColor(0xABCDEF);
        link.SetDrawWidth(5);
        link.SetStyle(5);
        link.SetArrowSource(7);
        link.SetArrowDest(9);
        link.SetArrowSizeDest(2);
        link.SetJumpStyle(1);
        link.SetText(QStringLiteral("label"));
    }
    static void SelectOnly(frmMain &window, std::vector<diagram::Node *> nodes,
                           std::vector<diagram::Link *> links = {}) {
        window.CurrentSurface().UnselectAll();
        for (diagram::Node *node : nodes) node->SetSelected(true);
        for (diagram::Link *link : links) link->SetSelected(true);
    }

    frmMain &window = NewWindow();
    diagram::Node &a = AddNode(window, 300, 300, QStringLiteral("first"));
    diagram::Node &b = AddNode(window, 3000, 300, QStringLiteral("second"));
    diagram::Node &c = AddNode(window, 6000, 300, QStringLiteral("third"));
};

} // namespace

TEST_F(CopiedLooks, GoesToAllSelectedNodesInOneStepAndLeavesShapeAndText) {
    Paint(a);
    const int shape = b.Shape();
    SelectOnly(window, {&a});
    Press(window, QStringLiteral("Ctrl+Alt+C"));
    SelectOnly(window, {&b, &c});
    window.clsSettings().Dirty = false;
    Press(window, QStringLiteral("Ctrl+Alt+V"));
    for (const diagram::Node *node : {&b, &c}) {
        diagram::NodeLook expected = a.Look();
        expected.shape = diagram::NodeLook(node->Look()).shape;
        EXPECT_EQ(node->Look(), expected);
    }
    EXPECT_EQ(b.Shape(), shape);
    EXPECT_EQ(b.Text(), QStringLiteral("second"));
    EXPECT_TRUE(window.clsSettings().Dirty);
    window.CurrentSurface().Undo();
    EXPECT_NE(b.FillColor(), a.FillColor());
    EXPECT_NE(c.FillColor(), a.FillColor());
}

TEST_F(CopiedLooks, GoesFromLinkToLink) {
    diagram::Link &from = a.Links().Add(b), &to = b.Links().Add(c);
    Paint(from);
    SelectOnly(window, {}, {&from});
    Press(window, QStringLiteral("Ctrl+Alt+C"));
    SelectOnly(window, {}, {&to});
    Press(window, QStringLiteral("Ctrl+Alt+V"));
    EXPECT_EQ(to.LineColor(), from.LineColor());
    EXPECT_EQ(to.DrawWidth(), 5);
    EXPECT_EQ(to.Style(), 5);
    EXPECT_EQ(to.ArrowSource(), 7);
    EXPECT_EQ(to.ArrowDest(), 9);
    EXPECT_EQ(to.ArrowSizeDest(), 2);
    EXPECT_EQ(to.JumpStyle(), 1);
    EXPECT_EQ(to.Text(), QString());
    window.CurrentSurface().Undo();
    EXPECT_NE(to.LineColor(), from.LineColor());
}

TEST_F(CopiedLooks, NodesAndLinksGiveEachOtherWhatTheyShare) {
    diagram::Link &link = b.Links().Add(c);
    Paint(a);
    const int arrow = link.ArrowDest();
    SelectOnly(window, {&a});
    Press(window, QStringLiteral("Ctrl+Alt+C"));
    SelectOnly(window, {}, {&link});
    Press(window, QStringLiteral("Ctrl+Alt+V"));
    EXPECT_EQ(link.LineColor(), a.BorderColor());
    EXPECT_EQ(link.ForeColor(), a.ForeColor());
    EXPECT_EQ(link.DrawWidth(), 3);
    EXPECT_EQ(link.DrawStyle(), 2);
    EXPECT_TRUE(link.Font().Bold());
    EXPECT_EQ(link.ArrowDest(), arrow);
    Paint(link);
    const support::Colour fill = b.FillColor();
    SelectOnly(window, {}, {&link});
    Press(window, QStringLiteral("Ctrl+Alt+C"));
    SelectOnly(window, {&b});
    Press(window, QStringLiteral("Ctrl+Alt+V"));
    EXPECT_EQ(b.BorderColor(), link.LineColor());
    EXPECT_EQ(b.FillColor(), fill);
}

TEST_F(CopiedLooks, GoesToAnotherWindowAndNoFillGoesAlong) {
    a.SetTransparent(true);
    SelectOnly(window, {&a});
    Press(window, QStringLiteral("Ctrl+Alt+C"));
    frmMain &other = NewWindow();
    diagram::Node &there = AddNode(other, 300, 300);
    there.SetSelected(true);
    Press(other, QStringLiteral("Ctrl+Alt+V"));
    EXPECT_TRUE(there.Transparent());
}

TEST_F(CopiedLooks, ChangesNothingWhereThereIsNothingToDo) {
    const QString paste = QStringLiteral("Ctrl+Alt+V");
    SelectOnly(window, {&a});
    Press(window, paste);
    SelectOnly(window, {&a});
    Press(window, QStringLiteral("Ctrl+Alt+C"));
    window.clsSettings().Dirty = false;
    Press(window, paste);
    window.CurrentSurface().UnselectAll();
    Press(window, paste);
    EXPECT_FALSE(window.CurrentSurface().CanUndo());
    EXPECT_FALSE(window.clsSettings().Dirty);
}

TEST_F(CopiedLooks, ACopyOfNothingKeepsWhatWasCopied) {
    Paint(a);
    SelectOnly(window, {&a});
    Press(window, QStringLiteral("Ctrl+Alt+C"));
    window.CurrentSurface().UnselectAll();
    window.SmartMenuXP1_Click(QStringLiteral("mnuEditLookCopy"));
    SelectOnly(window, {&b});
    Press(window, QStringLiteral("Ctrl+Alt+V"));
    EXPECT_EQ(b.FillColor(), a.FillColor());
}

} // namespace mainwindow::testing
