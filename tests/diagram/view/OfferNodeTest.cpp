// A link that is dropped on the empty page offers a node at its end.
#include "diagram/format/SurfaceFile.h"
#include "tests/diagram/view/ViewFixture.h"

#include <QApplication>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

namespace diagram::testing {

class OfferedNode : public ViewTest {
protected:
    OfferedNode()
        : a(AddNode("a", 50, 100)), b(AddNode("b", 300, 100)), hints(view.get(), &SurfaceView::HintShown) {
        a.SetShape(0);
        a.SetFillColor(support::Rgb(200, 230, 255));
        Settle();
    }
    void Drop() { Drag(LinkStart(a), kFree); }
    static QMenu *Menu() { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); }
    static void Answer(int key) {
        ASSERT_TRUE(Menu());
        QTest::keyClick(Menu(), Qt::Key(key));
        QApplication::processEvents();
    }
    Node &Last() const { return surface.Nodes().Item(surface.Nodes().Count()); }
    Hint LastHint() const { return hints.isEmpty() ? Hint::Nothing : hints.last()[0].value<Hint>(); }
    void ExpectNothing() {
        EXPECT_FALSE(Menu());
        EXPECT_EQ(surface.Nodes().Count(), 2);
        EXPECT_TRUE(surface.Links().empty());
        EXPECT_FALSE(surface.CanUndo());
        EXPECT_FALSE(view->CancelGesture());
    }
    const QPoint kFree{600, 450};
    Node &a, &b;
    QSignalSpy hints;
};

TEST_F(OfferedNode, Enter_MakesANodeOfTheSameLookAndTheLink) {
    Drop();
    EXPECT_EQ(surface.Nodes().Count(), 2) << "nothing before the answer";
    EXPECT_EQ(LastHint(), Hint::KeysTakeNode);
    Answer(Qt::Key_Return);
    ASSERT_EQ(surface.Nodes().Count(), 3);
    EXPECT_EQ(Last().Look(), a.Look());
    EXPECT_EQ(Last().Bounds().size(), a.Bounds().size());
    EXPECT_LT((Last().Bounds().center() - view->ToSurface(kFree)).manhattanLength(), 15);
    ASSERT_EQ(surface.Links().size(), 1U);
    EXPECT_EQ(&surface.Links()[0]->Source(), &a);
    EXPECT_EQ(&surface.Links()[0]->Destination(), &Last());
    EXPECT_EQ(surface.SelectedNodes(), std::vector<Node *>{&Last()});
    for (const char *event : {"AfterAddNode", "AfterAddLink", "AfterSelect"})
        EXPECT_EQ(events.Count(event), 1) << event;
    EXPECT_EQ(UndoSteps(), 1);
    ASSERT_TRUE(view->IsEditing());
    Type("New");
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(Last().Text(), QStringLiteral("New"));
}

TEST_F(OfferedNode, Escape_GivesNothingAndSaysWhy) {
    const QByteArray saved = SaveBytes(surface);
    const QImage before = Shown();
    Drop();
    Answer(Qt::Key_Escape);
    ExpectNothing();
    EXPECT_EQ(LastHint(), Hint::LinkNeedsNode);
    EXPECT_EQ(SaveBytes(surface), saved);
    EXPECT_EQ(DifferingPixels(before, Shown()), 0);
}

TEST_F(OfferedNode, SecondEntry_GivesNothing) {
    Drop();
    ASSERT_TRUE(Menu());
    QTest::keyClick(Menu(), Qt::Key_Down);
    Answer(Qt::Key_Return);
    ExpectNothing();
}

TEST_F(OfferedNode, Menu_SpeaksOfWhatNodesAreCalled) {
    view->SetWords({QStringLiteral("Idea"), QStringLiteral("Thread")});
    Drop();
    ASSERT_TRUE(Menu());
    ASSERT_EQ(Menu()->actions().size(), 2);
    EXPECT_EQ(Menu()->actions()[0]->text(), QStringLiteral("&New idea here"));
    EXPECT_EQ(Menu()->activeAction(), Menu()->actions()[0]);
    Answer(Qt::Key_Escape);
}

TEST_F(OfferedNode, PressElsewhere_IsANoAndBeginsSomethingNew) {
    Drop();
    ASSERT_TRUE(Menu());
    Menu()->close();
    const QPoint on = Body(b), below = on + QPoint(0, 150);
    Press(on);
    MoveTo(below);
    Release(below);
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_TRUE(surface.Links().empty());
    EXPECT_EQ(b.Top(), 250 * 15);
}

TEST_F(OfferedNode, Ghost_IsShownWhilePulledAndWhileAsked) {
    const QImage before = Shown();
    const QRect corner(kFree - QPoint(49, 29), QSize(98, 58));
    DragAndHold(LinkStart(a), kFree);
    EXPECT_GT(DifferingPixels(Part(before, corner), Part(Seen(), corner)), 1000) << "filled lightly";
    Release(kFree);
    EXPECT_GT(DifferingPixels(Part(before, corner), Part(Seen(), corner)), 1000);
    Answer(Qt::Key_Escape);
}

TEST_F(OfferedNode, DropBesideANode_OffersNone) {
    Drag(LinkStart(a), QPoint(280, 180));
    ExpectNothing();
    EXPECT_EQ(LastHint(), Hint::LinkNeedsNode);
}

TEST_F(OfferedNode, NodeAlone_IsOfferedOneToo) {
    surface.Remove(b);
    Settle();
    Drop();
    Answer(Qt::Key_Return);
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_EQ(surface.Links().size(), 1U);
}

TEST_F(OfferedNode, Interruptions_TakeTheMenuAway) {
    const std::pair<const char *, std::function<void()>> interruptions[] = {
        {"hidden", [&] { view->hide(), view->show(), view->setFocus(); }},
        {"undo", [&] { surface.Undo(), view->CancelGesture(); }},
        {"given up", [&] { view->CancelGesture(); }},
    };
    for (const auto &[name, interrupt] : interruptions) {
        SCOPED_TRACE(name);
        Drop();
        ASSERT_TRUE(Menu());
        interrupt();
        Settle();
        ExpectNothing();
    }
}

TEST_F(OfferedNode, SourceThatGoesMeanwhile_TakesTheOfferAlong) {
    Drop();
    ASSERT_TRUE(Menu());
    surface.Remove(a);
    Settle();
    EXPECT_FALSE(Menu());
    EXPECT_EQ(surface.Nodes().Count(), 1);
    EXPECT_EQ(events.Count("Error"), 0);
}

} // namespace diagram::testing
