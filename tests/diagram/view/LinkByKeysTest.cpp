// Links made and moved with the keys alone.
#include "diagram/format/SurfaceFile.h"
#include "tests/diagram/view/ViewFixture.h"

#include <QApplication>
#include <QScrollBar>
#include <QSignalSpy>

namespace diagram::testing {

class LinkByKeys : public ViewTest {
protected:
    LinkByKeys()
        : a(AddNode("a", 50, 100)),
          b(AddNode("b", 350, 100)),
          c(AddNode("c", 350, 300)),
          hints(view.get(), &SurfaceView::HintShown) {
        a.SetSelected(true);
        Settle();
    }
    void Begin(Qt::KeyboardModifiers more = {}) { Key(Qt::Key_L, Qt::ControlModifier | more); }
    const Link *Made() const { return surface.Links().empty() ? nullptr : surface.Links().back().get(); }
    Hint LastHint() const { return hints.isEmpty() ? Hint::Nothing : hints.last()[0].value<Hint>(); }
    // No gesture goes on, and none has left anything behind.
    void ExpectNothing(const QByteArray &saved) {
        EXPECT_FALSE(view->CancelGesture());
        EXPECT_EQ(SaveBytes(surface), saved);
        EXPECT_FALSE(surface.CanUndo());
        for (const char *event : {"AfterAddLink", "AfterStretch", "AfterSelect"})
            EXPECT_EQ(events.Count(event), 0) << event;
    }
    Node &a, &b, &c;
    QSignalSpy hints;
};

TEST_F(LinkByKeys, Enter_LinksTheNodeToTheNeighbour) {
    Begin();
    EXPECT_EQ(Made(), nullptr);
    Key(Qt::Key_Return);
    ASSERT_NE(Made(), nullptr);
    EXPECT_EQ(&Made()->Source(), &a);
    EXPECT_EQ(&Made()->Destination(), &b);
    EXPECT_TRUE(Made()->Selected());
    EXPECT_TRUE(surface.SelectedNodes().empty());
    EXPECT_EQ(events.Count("AfterAddLink"), 1);
    EXPECT_EQ(events.Count("AfterSelect"), 1);
    EXPECT_EQ(UndoSteps(), 1);
    surface.Undo();
    EXPECT_EQ(Made(), nullptr);
}

TEST_F(LinkByKeys, ArrowsAndTab_GoToOtherCandidates) {
    struct Row {
        int key;
        Qt::KeyboardModifiers modifiers;
        const Node *expected;
    };
    AddLink(c, a);
    Settle();
    const Row rows[] = {{Qt::Key_Down, {}, &c},
                        {Qt::Key_Down, Qt::ControlModifier, &c},
                        {Qt::Key_Tab, {}, &c},
                        {Qt::Key_Backtab, Qt::ShiftModifier, &a}};
    for (const Row &row : rows) {
        Begin();
        Key(row.key, row.modifiers);
        Key(Qt::Key_Enter, Qt::KeypadModifier);
        EXPECT_EQ(&Made()->Destination(), row.expected) << row.key;
        surface.Undo();
        a.SetSelected(true);
    }
    Begin();
    Key(Qt::Key_Down);
    Key(Qt::Key_Left, Qt::ControlModifier | Qt::AltModifier);
    Key(Qt::Key_Return);
    EXPECT_EQ(&Made()->Destination(), &a) << "along the link, back to where it starts: a loop";
    EXPECT_EQ(&Made()->Source(), &a);
}

TEST_F(LinkByKeys, Tab_GoesRoundAndKeepsTheFocus) {
    Begin();
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab);
    EXPECT_TRUE(view->hasFocus());
    Key(Qt::Key_Return);
    EXPECT_EQ(&Made()->Destination(), &b);
}

TEST_F(LinkByKeys, WithShift_TheLinkLeadsTheOtherWay) {
    Begin(Qt::ShiftModifier);
    Key(Qt::Key_Return);
    ASSERT_NE(Made(), nullptr);
    EXPECT_EQ(&Made()->Source(), &b);
    EXPECT_EQ(&Made()->Destination(), &a);
}

TEST_F(LinkByKeys, FirstCandidate_LiesInTheDirectionLastGone) {
    Key(Qt::Key_Down, Qt::ControlModifier);
    surface.UnselectAll();
    b.SetSelected(true);
    Begin();
    Key(Qt::Key_Return);
    EXPECT_EQ(&Made()->Destination(), &c);
}

TEST_F(LinkByKeys, FirstCandidate_WhereNothingLiesAheadIsTheNearest) {
    surface.UnselectAll();
    b.SetSelected(true);
    AddNode("d", 350, 200);
    Settle();
    Begin();
    Key(Qt::Key_Return);
    EXPECT_EQ(Made()->Destination().Key(), QStringLiteral("d"));
}

TEST_F(LinkByKeys, TwoSelectedNodes_AreLinkedFirstToSecond) {
    surface.UnselectAll();
    c.SetSelected(true);
    a.SetSelected(true);
    Begin();
    EXPECT_EQ(Made(), nullptr) << "the user sees first which way it leads";
    Key(Qt::Key_Return);
    EXPECT_EQ(&Made()->Source(), &c);
    EXPECT_EQ(&Made()->Destination(), &a);
}

TEST_F(LinkByKeys, Escape_LeavesNoTrace) {
    AddNode("far", 3000, 100);
    Settle();
    MoveTo(QPoint(700, 550));
    const QByteArray saved = SaveBytes(surface);
    const QImage before = Seen();
    Begin();
    EXPECT_GT(DifferingPixels(before, Seen()), 300) << "line and candidate are shown";
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    Key(Qt::Key_Right);
    Key(Qt::Key_Right);
    EXPECT_GT(view->horizontalScrollBar()->value(), 0) << "the candidate is out of sight";
    Key(Qt::Key_Escape);
    EXPECT_EQ(view->horizontalScrollBar()->value(), 0);
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&a});
    EXPECT_EQ(LastHint(), Hint::Nothing);
    ExpectNothing(saved);
    Key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(surface.SelectedNode(), &b) << "the keys are the selection's again";
}

TEST_F(LinkByKeys, Hint_StandsUntilTheEnd) {
    Begin();
    EXPECT_EQ(LastHint(), Hint::KeysChooseNode);
    Key(Qt::Key_Down);
    EXPECT_EQ(LastHint(), Hint::KeysChooseNode);
    Key(Qt::Key_Return);
    EXPECT_EQ(LastHint(), Hint::Nothing);
}

TEST_F(LinkByKeys, OnlyNode_GivesALoop) {
    surface.Remove(b);
    surface.Remove(c);
    Settle();
    Begin();
    Key(Qt::Key_Tab);
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    ASSERT_NE(Made(), nullptr);
    EXPECT_EQ(&Made()->Source(), &a);
    EXPECT_EQ(&Made()->Destination(), &a);
}

TEST_F(LinkByKeys, WithoutASelection_SaysWhatIsMissing) {
    surface.UnselectAll();
    Begin();
    EXPECT_FALSE(view->CancelGesture());
    EXPECT_FALSE(view->BeginLink());
    EXPECT_EQ(LastHint(), Hint::SelectFirst);
}

TEST_F(LinkByKeys, HiddenAndUnselectableNodes_AreNoCandidates) {
    b.SetHidden(true);
    c.SetSelectable(false);
    Node &d = AddNode("d", 50, 400);
    Settle();
    Begin();
    Key(Qt::Key_Return);
    EXPECT_EQ(&Made()->Destination(), &d);
}

TEST_F(LinkByKeys, CandidateThatIsHiddenMeanwhile_IsNotLinked) {
    Begin();
    b.SetHidden(true);
    Key(Qt::Key_Return);
    EXPECT_EQ(Made(), nullptr);
    EXPECT_EQ(LastHint(), Hint::LinkNeedsNode);
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(LinkByKeys, NodeRemovedMeanwhile_EndsIt) {
    for (Node *gone : {&b, &a}) {
        Begin();
        surface.Remove(*gone);
        Settle();
        Key(Qt::Key_Return);
        EXPECT_EQ(Made(), nullptr);
        EXPECT_FALSE(view->CancelGesture());
    }
    EXPECT_EQ(events.Count("Error"), 0);
}

TEST_F(LinkByKeys, Interruptions_LeaveNoTrace) {
    const QByteArray saved = SaveBytes(surface);
    const std::pair<const char *, std::function<void()>> interruptions[] = {
        {"focus", [&] { view->clearFocus(), view->setFocus(); }},
        {"hidden", [&] { view->hide(), view->show(), view->setFocus(); }},
        {"undo", [&] { surface.Undo(), view->CancelGesture(); }},
        {"right button",
         [&] {
             Press(QPoint(600, 500), {}, Qt::RightButton), Release(QPoint(600, 500), {}, Qt::RightButton);
         }},
    };
    for (const auto &[name, interrupt] : interruptions) {
        SCOPED_TRACE(name);
        Begin();
        interrupt();
        Settle();
        ExpectNothing(saved);
    }
}

TEST_F(LinkByKeys, OtherKeys_NeitherTypeNorDelete) {
    Begin();
    events.details.clear();
    Type("x");
    for (const int key : {Qt::Key_F2, Qt::Key_Delete, Qt::Key_Insert, Qt::Key_Space}) Key(key);
    EXPECT_FALSE(view->IsEditing());
    EXPECT_EQ(surface.Nodes().Count(), 3);
    EXPECT_EQ(events.details.filter(QStringLiteral("KeyDown")), QStringList());
    Key(Qt::Key_Return);
    EXPECT_EQ(&Made()->Destination(), &b);
}

TEST_F(LinkByKeys, PointerThatOnlyPassesBy_IsNoCandidate) {
    Begin();
    MoveTo(Middle(c));
    Wheel(Middle(c), -1);
    Key(Qt::Key_Return);
    EXPECT_EQ(&Made()->Destination(), &b);
}

TEST_F(LinkByKeys, Click_ChoosesTheNode) {
    Begin();
    Click(Middle(c));
    ASSERT_NE(Made(), nullptr);
    EXPECT_EQ(&Made()->Destination(), &c);
    EXPECT_EQ(UndoSteps(), 1);
    EXPECT_FALSE(view->CancelGesture());
}

TEST_F(LinkByKeys, ClickBesideTheNodes_EndsItAndSaysWhy) {
    const QByteArray saved = SaveBytes(surface);
    Begin();
    Press(QPoint(600, 500));
    Release(QPoint(600, 500));
    EXPECT_TRUE(hints.contains(QVariantList{QVariant::fromValue(Hint::LinkNeedsNode)}));
    ExpectNothing(saved);
}

TEST_F(LinkByKeys, SelectedLink_IsJoinedToAnotherNode) {
    Link &link = AddLink(a, b);
    surface.UnselectAll();
    link.SetSelected(true);
    Settle();
    Begin();
    EXPECT_EQ(LastHint(), Hint::KeysChooseEnd);
    Key(Qt::Key_Down);
    Key(Qt::Key_Return);
    EXPECT_EQ(&link.Source(), &a);
    EXPECT_EQ(&link.Destination(), &c);
    EXPECT_EQ(events.Count("AfterStretch"), 1);
    EXPECT_TRUE(link.Selected());
    Begin(Qt::ShiftModifier);
    Key(Qt::Key_Right);
    Key(Qt::Key_Return);
    EXPECT_EQ(&link.Source(), &b);
    EXPECT_EQ(&link.Destination(), &c);
    EXPECT_EQ(UndoSteps(), 2);
    EXPECT_EQ(surface.Links().size(), 1U);
}

TEST_F(LinkByKeys, EnterAtOnce_LeavesTheLinkAsItIs) {
    Link &link = AddLink(a, b);
    surface.UnselectAll();
    link.SetSelected(true);
    Settle();
    const QByteArray saved = SaveBytes(surface);
    Begin();
    Key(Qt::Key_Return);
    ExpectNothing(saved);
}

TEST_F(LinkByKeys, WhileADragGoesOn_DoesNothing) {
    DragAndHold(Body(a), Body(a) + QPoint(0, 200));
    Begin();
    EXPECT_FALSE(view->BeginLink());
    Key(Qt::Key_Escape);
    Release(hand->At());
    EXPECT_EQ(Made(), nullptr);
    EXPECT_FALSE(surface.CanUndo());
}

} // namespace diagram::testing
