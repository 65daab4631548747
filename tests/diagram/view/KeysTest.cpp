#include "diagram/model/ScreenValues.h"
#include "diagram/view/KeyCodes.h"
#include "tests/diagram/view/ViewFixture.h"

#include <QApplication>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

namespace diagram::testing {

class Keys : public ViewTest {
protected:
    Keys() : a(AddNode("a", 50, 50)), b(AddNode("b", 250, 60)), c(AddNode("c", 50, 250)) { Settle(); }
    // The text of the tip when the pointer rests there.
    QString TipAt(const QPoint &at) {
        QHelpEvent help(QEvent::ToolTip, at, view->viewport()->mapToGlobal(at));
        QApplication::sendEvent(view->viewport(), &help);
        return QToolTip::text();
    }
    Node &a, &b, &c;
};

TEST_F(Keys, Tab_WalksTheNodesInReadingOrder) {
    view->setFocus();
    for (Node *expected : {&a, &b, &c}) {
        Key(Qt::Key_Tab);
        EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{expected});
    }
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNode(), &b);
    EXPECT_EQ(events.Count("AfterSelect"), 4);
}

TEST_F(Keys, Tab_BringsTheNodeIntoSight) {
    Node &far = AddNode("far", 3000, 3000);
    c.SetSelected(true);
    Settle();
    Key(Qt::Key_Tab);
    EXPECT_TRUE(far.Selected());
    EXPECT_TRUE(view->viewport()->rect().contains(Middle(far)));
}

TEST_F(Keys, CtrlArrow_GoesToTheNeighbour) {
    a.SetSelected(true);
    Key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&b});
    Key(Qt::Key_Left, Qt::ControlModifier);
    Key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&c});
    Key(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&c});
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Keys, CtrlAltArrow_GoesAlongLinks) {
    Node &d = AddNode("d", 450, 60);
    AddLink(a, d);
    a.SetSelected(true);
    Settle();
    Key(Qt::Key_Right, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&d});
}

TEST_F(Keys, Enter_GoesThroughTheLinksOfTheNode) {
    Link &out = AddLink(a, b);
    Link &in = AddLink(c, a);
    Link &hidden = AddLink(a, c);
    AddLink(b, c);
    Link &loop = AddLink(a, a);
    hidden.SetHidden(true);
    a.SetSelected(true);
    Settle();
    for (Link *expected : {&out, &in, &loop, &out}) {
        Key(Qt::Key_Return);
        EXPECT_EQ(surface.SelectedLinks(), std::vector<Link *>{expected});
        EXPECT_TRUE(surface.SelectedNodes().empty());
    }
    Key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedLink(), &loop);
    Key(Qt::Key_Enter, Qt::KeypadModifier | Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedLink(), &in);
    EXPECT_EQ(events.Count("AfterSelect"), 6);
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Keys, Enter_OnALinkGoesOnAroundItsSource) {
    AddLink(a, b).SetSelected(true);
    Link &next = AddLink(c, a);
    Settle();
    Key(Qt::Key_Return);
    EXPECT_EQ(surface.SelectedLink(), &next);
    Key(Qt::Key_Tab);
    EXPECT_EQ(surface.SelectedNode(), &b) << "the one after a, round which the keys went";
    surface.UnselectAll();
    EXPECT_NO_THROW(Key(Qt::Key_Return));
    EXPECT_TRUE(surface.SelectedLinks().empty());
}

TEST_F(Keys, CtrlArrow_OnALinkGoesToItsEnd) {
    Link &link = AddLink(a, b);
    for (const auto &[key, end] : {std::pair(Qt::Key_Right, &b), std::pair(Qt::Key_Left, &a)}) {
        surface.UnselectAll();
        link.SetSelected(true);
        Settle();
        Key(key, Qt::ControlModifier);
        EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{end});
        EXPECT_TRUE(surface.SelectedLinks().empty());
    }
}

TEST_F(Keys, CtrlShiftArrow_ReachesOutAndGoesBack) {
    Node &d = AddNode("d", 450, 60);
    a.SetSelected(true);
    Settle();
    Key(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    Key(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNodes(), (std::vector<Node *>{&a, &b, &d}));
    Key(Qt::Key_Right, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNodes().size(), 3U) << "nothing lies there";
    Key(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(surface.SelectedNodes(), (std::vector<Node *>{&a, &b}));
    EXPECT_EQ(surface.SelectedNode(), &b);
    EXPECT_EQ(events.Count("AfterSelect"), 3);
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Keys, Delete_OnlyTellsTheListener) {
    a.SetSelected(true);
    Key(Qt::Key_Delete);
    EXPECT_EQ(surface.Nodes().Count(), 3);
    EXPECT_EQ(events.details.value(0), QStringLiteral("KeyDown 46 0"));
}

TEST_F(Keys, Delete_WithoutListenerRemovesTheSelectionInOneStep) {
    surface.SetEvents(nullptr);
    AddLink(a, b);
    a.SetSelected(true);
    Key(Qt::Key_Delete);
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_TRUE(surface.Links().empty());
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(surface.Nodes().Count(), 3);
    EXPECT_EQ(surface.Links().size(), 1U);
}

TEST_F(Keys, KeyUsedUpByTheListener_DoesNothingMore) {
    events.usedUp = 113; // F2
    a.SetSelected(true);
    Key(Qt::Key_F2);
    EXPECT_FALSE(view->IsEditing());
}

TEST_F(Keys, Shift_IsToldAsItsOwnKey) {
    view->setFocus();
    QTest::keyPress(view.get(), Qt::Key_Shift);
    QTest::keyRelease(view.get(), Qt::Key_Shift);
    EXPECT_EQ(events.details.filter(QStringLiteral("Key")),
              QStringList({QStringLiteral("KeyDown 16 1"), QStringLiteral("KeyUp 16 0")}));
}

TEST_F(Keys, LosingTheFocus_EndsShiftMode) {
    surface.Screen().SetShiftMode(true);
    view->setFocus();
    view->clearFocus();
    EXPECT_FALSE(surface.Screen().ShiftMode());
}

TEST_F(Keys, GotFocus_IsRaised) {
    view->clearFocus();
    events.names.clear();
    view->setFocus();
    EXPECT_EQ(events.Count("GotFocus"), 1);
}

TEST_F(Keys, View_HasNameAndDescriptionForAssistants) {
    EXPECT_FALSE(view->accessibleName().isEmpty());
    EXPECT_FALSE(view->accessibleDescription().isEmpty());
    EXPECT_TRUE(view->focusPolicy() & Qt::TabFocus);
}

TEST_F(Keys, ToolTip_ShowsATextThatIsCutOff) {
    a.SetText(QStringLiteral("short"));
    b.SetText(QStringLiteral("a long text ").repeated(40));
    Settle();
    EXPECT_EQ(TipAt(Body(a)), QString());
    EXPECT_TRUE(TipAt(Body(b)).contains(QStringLiteral("a long text a long")));
    QToolTip::hideText();
}

TEST_F(Keys, ToolTip_ShowsATextThatIsTooSmallToRead) {
    a.SetText(QStringLiteral("of the node"));
    Link &link = AddLink(a, b);
    link.SetText(QStringLiteral("of the link"));
    Settle();
    const QPointF middle = (ToQPointF(link.Route()[0]) + ToQPointF(link.Route()[1])) / 2;
    EXPECT_EQ(TipAt(At(middle)), QString());
    EXPECT_EQ(TipAt(QPoint(700, 550)), QString());
    view->ZoomAt(30, QPointF());
    EXPECT_TRUE(TipAt(At(middle)).contains(QStringLiteral("of the link")));
    EXPECT_TRUE(TipAt(Middle(a)).contains(QStringLiteral("of the node")));
    a.SetText(QString(1000000, QLatin1Char('x')));
    Settle();
    EXPECT_LT(TipAt(Middle(a)).size(), 5000) << "a tip that fills the screen";
    QToolTip::hideText();
}

TEST_F(Keys, ToolTip_ShowsALabelThatTheWindowCutsOffAndNoneDuringADrag) {
    Node &far = AddNode("far", 1500, 60);
    Link &link = AddLink(b, far);
    link.SetText(QStringLiteral("a label beyond the window's edge ").repeated(4).trimmed());
    a.SetText(QStringLiteral("a long text ").repeated(40));
    Settle();
    const QPoint onLink(At(ToQPointF(link.Route().front())) + QPoint(60, 0));
    EXPECT_TRUE(TipAt(onLink).contains(QStringLiteral("beyond the window"))) << onLink.x();
    EXPECT_FALSE(TipAt(Body(a)).isEmpty());
    QToolTip::hideText();
    ASSERT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
    DragAndHold(Body(b), Body(b) + QPoint(0, 200));
    EXPECT_EQ(TipAt(Body(a)), QString());
    Key(Qt::Key_Escape);
    Release(hand->At());
    QToolTip::hideText();
}

TEST_F(Keys, CtrlAltArrow_GoesAgainstTheDirectionOfLinksToo) {
    AddNode("d", 400, 60);
    Node &e = AddNode("e", 600, 60);
    AddLink(e, a);
    a.SetSelected(true);
    Settle();
    Key(Qt::Key_Right, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&e});
    Key(Qt::Key_Down, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&e}) << "no link leads there";
}

TEST_F(Keys, FocusRing_IsStrongForTheKeyboard) {
    Click(Body(a));
    MoveTo(QPoint(700, 550));
    const QImage byMouse = Seen();
    Key(Qt::Key_Right, Qt::ShiftModifier);
    Key(Qt::Key_Left, Qt::ShiftModifier);
    const QImage byKeyboard = Seen();
    EXPECT_GT(DifferingPixels(byMouse, byKeyboard), 100);
    Click(Body(a));
    MoveTo(QPoint(700, 550));
    EXPECT_EQ(DifferingPixels(byMouse, Seen()), 0);
}

TEST_F(Keys, PointerShape_FollowsWhatLiesBelow) {
    a.SetSelected(true);
    Settle();
    MoveTo(Body(a));
    EXPECT_EQ(view->viewport()->cursor().shape(), Qt::SizeAllCursor);
    MoveTo(Handle(a, 3));
    EXPECT_EQ(view->viewport()->cursor().shape(), Qt::SizeHorCursor);
    MoveTo(LinkStart(b));
    EXPECT_EQ(view->viewport()->cursor().shape(), Qt::CrossCursor);
    MoveTo(QPoint(600, 500));
    EXPECT_EQ(view->viewport()->cursor().shape(), Qt::CrossCursor) << "a drag draws";
}

TEST(KeyCodes, VirtualKey_GivesTheCodesOfTheTable) {
    EXPECT_EQ(VirtualKey(Qt::Key_Backspace), 8);
    EXPECT_EQ(VirtualKey(Qt::Key_Enter), 13);
    EXPECT_EQ(VirtualKey(Qt::Key_Shift), 16);
    EXPECT_EQ(VirtualKey(Qt::Key_Escape), 27);
    EXPECT_EQ(VirtualKey(Qt::Key_Delete), 46);
    EXPECT_EQ(VirtualKey(Qt::Key_A), 65);
    EXPECT_EQ(VirtualKey(Qt::Key_7), 55);
    EXPECT_EQ(VirtualKey(Qt::Key_F2), 113);
    EXPECT_EQ(VirtualKey(Qt::Key_Launch0), 0);
}

TEST(KeyCodes, Masks_AreSums) {
    EXPECT_EQ(ShiftMask(Qt::ShiftModifier | Qt::AltModifier), 5);
    EXPECT_EQ(ButtonMask(Qt::LeftButton | Qt::MiddleButton), 5);
}

} // namespace diagram::testing
