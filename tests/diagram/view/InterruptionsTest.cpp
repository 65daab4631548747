// Whatever comes in between a press and its release: nothing sticks and nothing is left behind.
#include "tests/diagram/view/ViewFixture.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "tests/diagram/view/TaggedDays.h"

#include <QApplication>
#include <QDialog>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimer>

namespace diagram::testing {

namespace {

struct DragCase {
    const char *name;
    QPoint from, to; // pixels of the viewport
    Qt::KeyboardModifiers modifiers;
};

} // namespace

class Interruptions : public ViewTest {
protected:
    Interruptions()
        : a(AddNode("a", 50, 100)),
          b(AddNode("b", 300, 100)),
          c(AddNode("c", 300, 300)),
          dated(AddNode("dated", 60, 400)) {
        TaggedDays::Date(dated, QDate(2027, 1, 4), QDate(2027, 1, 8));
        dated.SetSelected(true);
        view->SetDays(days);
        Link &link = AddLink(a, b);
        link.Points().Assign({{2250, 1950}, {3300, 3000}, {4500, 1950}});
        link.SetSelected(true);
        b.SetSelected(true);
        Settle();
        bend = At(ToQPointF(link.Route()[1]));
        end = At(ToQPointF(link.Route().back()));
        segment = At((ToQPointF(link.Route()[0]) + ToQPointF(link.Route()[1])) / 2);
        saved = SaveBytes(surface);
        revision = surface.Actions().Revision();
        selectedBefore = surface.SelectedNodes();
    }

    std::vector<DragCase> Drags() const {
        return {{"draw", QPoint(500, 300), QPoint(640, 420), {}},
                {"band", QPoint(30, 80), QPoint(170, 180), Qt::ShiftModifier},
                {"move", Body(b), Body(b) + QPoint(60, 150), {}},
                {"copy", Body(b), Body(b) + QPoint(60, 150), Qt::ControlModifier},
                {"resize", Handle(b, 4), Handle(b, 4) + QPoint(37, 21), {}},
                {"link", LinkStart(c), QPoint(600, 450), {}},
                {"link end", end, QPoint(600, 450), {}},
                {"bend", bend, bend + QPoint(20, 60), {}},
                {"segment", segment, segment + QPoint(-20, 60), {}},
                {"date", Body(dated), Body(dated) + QPoint(60, 10), {}},
                {"date's end", Handle(dated, 3), Handle(dated, 3) + QPoint(60, 0), {}},
                {"date's beginning", Handle(dated, 7), Handle(dated, 7) + QPoint(40, 0), {}}};
    }

    // Interrupts each kind of drag half way; afterwards everything is as before and the hand works on.
    void ForEachDrag(const std::function<void(const DragCase &)> &interrupt) {
        for (const DragCase &drag : Drags()) {
            SCOPED_TRACE(drag.name);
            DragAndHold(drag.from, drag.to, drag.modifiers);
            interrupt(drag);
            ASSERT_FALSE(view->CancelGesture());
            MoveTo(drag.to + QPoint(9, 9), drag.modifiers);
            Release(drag.to, drag.modifiers);
            EXPECT_EQ(SaveBytes(surface), saved);
            EXPECT_EQ(surface.Actions().Revision(), revision);
            EXPECT_EQ(surface.SelectedNodes(), selectedBefore);
            EXPECT_FALSE(surface.CanUndo());
            EXPECT_FALSE(surface.CanRedo());
            for (const char *event :
                 {"AfterAddNode", "AfterAddLink", "AfterMove", "AfterResize", "AfterStretch"})
                EXPECT_EQ(events.Count(event), 0) << event;
        }
        Drag(Body(c), Body(c) + QPoint(80, 77));
        EXPECT_EQ(UndoSteps(), 1) << "the next drag works";
    }

    TaggedDays days;
    Node &a, &b, &c, &dated;
    QPoint bend, end, segment;
    QByteArray saved;
    Revision revision;
    std::vector<Node *> selectedBefore;
};

// A shape that was chosen waits for its click; the click that is interrupted places nothing, the next one
// does.
TEST_F(Interruptions, OfAClickThatWouldPlaceAShape) {
    constexpr int kHexagon = 8;
    QWidget other;
    other.show();
    const QPoint place(520, 320);
    const std::pair<const char *, std::function<void()>> interruptions[] = {
        {"focus", [&] { view->clearFocus(); }},
        {"window", [&] { QApplication::setActiveWindow(&other); }},
        {"hidden", [&] { view->hide(), view->show(); }},
        {"undo", [&] { surface.Undo(), surface.Redo(), view->CancelGesture(); }},
        {"given up", [&] { view->CancelGesture(); }},
        {"Escape", [&] { Key(Qt::Key_Escape); }},
    };
    for (const auto &[name, interrupt] : interruptions) {
        SCOPED_TRACE(name);
        view->SetShapeToDraw(kHexagon);
        Press(place);
        interrupt();
        Settle();
        QApplication::setActiveWindow(view.get());
        view->setFocus();
        Settle();
        Release(place);
        EXPECT_EQ(SaveBytes(surface), saved);
        EXPECT_EQ(surface.Actions().Revision(), revision);
        EXPECT_EQ(surface.SelectedNodes(), selectedBefore);
        EXPECT_FALSE(surface.CanUndo());
    }
    view->SetShapeToDraw(kHexagon);
    const int count = surface.Nodes().Count();
    Click(place);
    EXPECT_EQ(surface.Nodes().Count(), count + 1);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Interruptions, AStepThatADragMadeAndUndoTookBackIsNoDifference) {
    const QString tag = dated.Tag();
    for (const DragCase &drag : Drags()) {
        SCOPED_TRACE(drag.name);
        DragAndHold(drag.from, drag.to, drag.modifiers);
        Release(drag.to, drag.modifiers);
        view->CancelGesture(); // a node that is offered
        const bool made = surface.CanUndo();
        EXPECT_EQ(surface.Actions().Revision() != revision, made);
        if (QByteArray(drag.name).startsWith("date")) {
            EXPECT_NE(dated.Tag(), tag);
        }
        while (surface.CanUndo()) surface.Undo();
        EXPECT_EQ(surface.Actions().Revision(), revision);
        surface.UnselectAll();
        b.SetSelected(true);
        dated.SetSelected(true);
        surface.Links()[0]->SetSelected(true);
    }
}

TEST_F(Interruptions, APressWhoseReleaseIsLostIsForgottenByTheNextOne) {
    Press(Body(b));
    const QPointF before = b.Bounds().topLeft(), other = c.Bounds().topLeft();
    Drag(Body(c), Body(c) + QPoint(80, 77));
    EXPECT_EQ(b.Bounds().topLeft(), before);
    EXPECT_NE(c.Bounds().topLeft(), other);
    EXPECT_EQ(UndoSteps(), 1);
}

TEST_F(Interruptions, Escape) {
    ForEachDrag([this](const DragCase &) { Key(Qt::Key_Escape); });
}

TEST_F(Interruptions, LosingTheFocus) {
    ForEachDrag([this](const DragCase &) {
        view->clearFocus();
        view->setFocus();
    });
}

TEST_F(Interruptions, AnotherWindowIsActivated) {
    QWidget other;
    other.show();
    Settle();
    QApplication::setActiveWindow(view.get());
    view->setFocus();
    Settle();
    ForEachDrag([&](const DragCase &) {
        QApplication::setActiveWindow(&other);
        Settle();
        QApplication::setActiveWindow(view.get());
        view->setFocus();
        Settle();
    });
}

TEST_F(Interruptions, ModalDialogOpens) {
    ForEachDrag([this](const DragCase &) {
        QDialog dialog(view.get());
        QTimer::singleShot(0, &dialog, &QDialog::accept);
        dialog.exec();
        QApplication::setActiveWindow(view.get());
        view->setFocus();
        Settle();
    });
}

TEST_F(Interruptions, ViewIsHidden) {
    ForEachDrag([this](const DragCase &) {
        view->hide();
        Settle();
        view->show();
        QApplication::setActiveWindow(view.get());
        view->setFocus();
        Settle();
    });
}

TEST_F(Interruptions, ReleaseThatNeverComes) {
    ForEachDrag([this](const DragCase &drag) {
        QMouseEvent move(QEvent::MouseMove, drag.to, view->viewport()->mapToGlobal(drag.to), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &move);
        Settle();
    });
}

TEST_F(Interruptions, UndoAndRedo) {
    ForEachDrag([this](const DragCase &) {
        surface.Undo();
        surface.Redo();
        view->CancelGesture(); // a link that is drawn has written nothing that undo could meet
    });
}

// The other buttons are passed over, and the drag goes on to its end.
TEST_F(Interruptions, SecondButton) {
    for (const Qt::MouseButton other : {Qt::RightButton, Qt::MiddleButton}) {
        SCOPED_TRACE(other);
        const int downs = events.Count("MouseDown");
        const float top = b.Top();
        DragAndHold(Body(b), Body(b) + QPoint(0, 150), Qt::AltModifier);
        Press(hand->At(), Qt::AltModifier, other);
        Release(hand->At(), Qt::AltModifier, other);
        EXPECT_EQ(events.Count("MouseDown"), downs + 1) << "a right click would open a dialog";
        MoveTo(hand->At() + QPoint(0, 10), Qt::AltModifier);
        Release(hand->At(), Qt::AltModifier);
        EXPECT_EQ(b.Top(), top + 160 * 15);
        surface.Undo();
    }
    EXPECT_EQ(view->horizontalScrollBar()->value(), 0);
}

TEST_F(Interruptions, WheelWhileDragging_ScrollsUnderTheNode) {
    const QPointF grip = view->ToSurface(Body(b)) - b.Bounds().topLeft();
    AddNode("far", 100, 2000);
    Settle();
    DragAndHold(Body(b), Body(b) + QPoint(30, 100), Qt::AltModifier);
    Wheel(hand->At(), -240, Qt::AltModifier);
    EXPECT_GT(view->verticalScrollBar()->value(), 0);
    EXPECT_EQ(b.Bounds().topLeft() + grip, view->ToSurface(hand->At()));
    Wheel(hand->At(), 120, Qt::ControlModifier);
    EXPECT_GT(view->ShownZoom(), 100);
    Key(Qt::Key_Escape);
    Release(hand->At());
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Interruptions, ZoomWhilePanning_IsPassedOver) {
    AddNode("far", 2000, 2000);
    Settle();
    Press(QPoint(500, 400), {}, Qt::MiddleButton);
    MoveTo(QPoint(400, 300));
    Wheel(QPoint(400, 300), 120, Qt::ControlModifier);
    EXPECT_EQ(view->ShownZoom(), 100);
    Release(QPoint(400, 300), {}, Qt::MiddleButton);
    EXPECT_EQ(view->verticalScrollBar()->value(), 100);
}

TEST_F(Interruptions, PressIsGivenUpToo) {
    MoveTo(Body(c));
    Press(Body(c));
    view->clearFocus();
    view->setFocus();
    MoveTo(Body(c) + QPoint(100, 100));
    Release(Body(c) + QPoint(100, 100));
    EXPECT_EQ(SaveBytes(surface), saved);
    EXPECT_EQ(events.Count("Click"), 0);
}

TEST_F(Interruptions, HiddenWhileEditing_KeepsTheText) {
    ASSERT_TRUE(view->BeginEdit());
    Type("typed");
    view->hide();
    Settle();
    EXPECT_FALSE(view->IsEditing());
    EXPECT_EQ(b.Text(), QStringLiteral("typed"));
}

} // namespace diagram::testing
