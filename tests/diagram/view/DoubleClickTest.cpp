#include "tests/diagram/view/ViewFixture.h"

#include "diagram/interaction/NewNode.h"

namespace diagram::testing {

namespace {

class LeadingEvents : public RecordingEvents {
public:
    bool LeadsElsewhere(const Node &node) override { return node.Key() == QLatin1String("b"); }
};

} // namespace

class DoubleClick : public ViewTest {
protected:
    DoubleClick() : a(AddNode("a", 50, 100)), b(AddNode("b", 300, 100)) {
        a.SetText(QStringLiteral("Market"));
        Settle();
    }
    void Twice(const QPoint &at, Qt::KeyboardModifiers modifiers = {}) { hand->DoubleClick(at, modifiers); }
    Node &a, &b;
};

TEST_F(DoubleClick, OnANode_EditsItsText) {
    Twice(Body(a));
    ASSERT_TRUE(view->IsEditing());
    EXPECT_EQ(events.Count("DblClick"), 1);
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&a});
    EXPECT_EQ(surface.Nodes().Count(), 2);
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(events.Count("AfterEdit"), 0) << "nothing has changed";
    EXPECT_FALSE(surface.CanUndo());
    Twice(Body(a));
    Type("Price");
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(a.Text(), QStringLiteral("Price"));
    EXPECT_EQ(events.Count("AfterEdit"), 1);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(DoubleClick, OnANodeThatLeadsElsewhere_EditsNothing) {
    LeadingEvents leading;
    surface.SetEvents(&leading);
    Twice(Body(b));
    EXPECT_FALSE(view->IsEditing());
    EXPECT_EQ(leading.Count("DblClick"), 1);
    Twice(Body(a));
    EXPECT_TRUE(view->IsEditing());
    view->EndEdit(false);
    surface.SetEvents(&events);
}

TEST_F(DoubleClick, OnOneOfSeveralSelectedNodes_EditsThatOne) {
    a.SetSelected(true);
    b.SetSelected(true);
    Settle();
    Twice(Body(b));
    EXPECT_TRUE(view->IsEditing());
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&b});
}

TEST_F(DoubleClick, OnTheEmptyPage_MakesANodeThereAndEditsItsText) {
    Twice(QPoint(500, 400));
    ASSERT_EQ(surface.Nodes().Count(), 3);
    const Node &made = surface.Nodes().Item(3);
    EXPECT_EQ(made.Bounds().center(), view->ToSurface(QPointF(500, 400)));
    EXPECT_EQ(made.Bounds().size(), kUsualSize);
    EXPECT_TRUE(made.Selected());
    EXPECT_EQ(events.Count("AfterAddNode"), 1);
    EXPECT_EQ(UndoSteps(), 1);
    ASSERT_TRUE(view->IsEditing());
    Key(Qt::Key_Escape);
    EXPECT_EQ(surface.Nodes().Count(), 3) << "it stays, without a text";
    surface.Undo();
    EXPECT_EQ(surface.Nodes().Count(), 2);
}

TEST_F(DoubleClick, OnTheEmptyPage_StandsUnderThePointerAtEachZoom) {
    for (const double zoom : {50.0, 200.0}) {
        view->ZoomAt(zoom, QPointF(0, 0));
        Settle();
        const QPoint at(700, 550);
        const QPointF under = view->ToSurface(at); // the page may scroll for the text
        Twice(at);
        const Node &made = surface.Nodes().Item(surface.Nodes().Count());
        EXPECT_LT((made.Bounds().center() - under).manhattanLength(), 2);
        view->EndEdit(false);
        surface.Remove(surface.Nodes().Item(surface.Nodes().Count()));
    }
}

TEST_F(DoubleClick, WithAModifier_MakesNothing) {
    for (const Qt::KeyboardModifiers modifiers : {Qt::ControlModifier, Qt::ShiftModifier})
        Twice(QPoint(500, 400), modifiers);
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_FALSE(view->IsEditing());
}

TEST_F(DoubleClick, OnWhatCantBeSelected_MakesNothingOnTopOfIt) {
    b.SetSelectable(false);
    Settle();
    Twice(Body(b));
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_FALSE(view->IsEditing());
}

TEST_F(DoubleClick, OnALink_MakesNothing) {
    const Link &link = AddLink(a, b);
    Settle();
    Twice(At((ToQPointF(link.Route()[0]) + ToQPointF(link.Route()[1])) / 2 + QPointF(0, 60)));
    EXPECT_EQ(surface.Nodes().Count(), 2);
}

TEST_F(DoubleClick, HandlerThatTakesTheNodeAway_DoesNoHarm) {
    events.also = [&](const char *name) {
        if (QLatin1String(name) == QLatin1String("AfterAddNode"))
            surface.Remove(surface.Nodes().Item(surface.Nodes().Count()));
    };
    Twice(QPoint(500, 400));
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_FALSE(view->IsEditing());
    EXPECT_EQ(events.Count("Error"), 0);
}

} // namespace diagram::testing
