// The shape of the pointer tells what a press would do, and what a gesture does.
#include "tests/diagram/view/ViewFixture.h"

#include <QTextEdit>

namespace diagram::testing {

class Pointers : public ViewTest {
protected:
    Pointers()
        : a(AddNode("a", 50, 100)), b(AddNode("b", 350, 100)), link(AddLink(a, b)), straight(AddLink(a, b)) {
        link.Points().Assign({{2250, 1950}, {3750, 5250}, {5250, 1950}});
        link.SetText(QStringLiteral("label of it"));
        Settle();
    }
    Qt::CursorShape Shape() const { return view->viewport()->cursor().shape(); }
    Qt::CursorShape Over(const QPoint &at) {
        MoveTo(at);
        return Shape();
    }
    QPoint Half(int segment) const {
        return At((ToQPointF(link.Route()[segment]) + ToQPointF(link.Route()[segment + 1])) / 2);
    }
    // At a third, away from label and grips.
    QPoint Third(int segment) const {
        return At((ToQPointF(link.Route()[segment]) * 2 + ToQPointF(link.Route()[segment + 1])) / 3);
    }
    Node &a, &b;
    Link &link, &straight;
};

TEST_F(Pointers, OverWhatIsNotSelected) {
    EXPECT_EQ(Over(QPoint(600, 450)), Qt::CrossCursor) << "a drag draws";
    MoveTo(QPoint(600, 455), Qt::ShiftModifier);
    EXPECT_EQ(Shape(), Qt::ArrowCursor) << "a drag selects";
    EXPECT_EQ(Over(Body(a)), Qt::SizeAllCursor);
    EXPECT_EQ(Over(Handle(a, 0)), Qt::SizeAllCursor) << "no handle there";
    EXPECT_EQ(Over(LinkStart(a, 0)), Qt::CrossCursor);
    EXPECT_EQ(Over(Third(0)), Qt::PointingHandCursor);
}

TEST_F(Pointers, OverALine_CountsWithinSixPixelsAtEachZoom) {
    surface.Remove(link);
    Link &level = straight;
    for (const double zoom : {50.0, 100.0, 200.0}) {
        view->ZoomAt(zoom, QPointF(0, 0));
        Settle();
        const QPoint on = At((ToQPointF(level.Route()[0]) * 2 + ToQPointF(level.Route()[1])) / 3);
        for (const int side : {-1, 1}) {
            EXPECT_EQ(Over(on + QPoint(0, side * 5)), Qt::PointingHandCursor) << zoom;
            EXPECT_EQ(Over(on + QPoint(0, side * 8)), Qt::CrossCursor) << zoom;
        }
    }
}

TEST_F(Pointers, OverTheHandlesOfASelectedNode) {
    a.SetSelected(true);
    Settle();
    const Qt::CursorShape shapes[] = {Qt::SizeFDiagCursor, Qt::SizeVerCursor,   Qt::SizeBDiagCursor,
                                      Qt::SizeHorCursor,   Qt::SizeFDiagCursor, Qt::SizeVerCursor,
                                      Qt::SizeBDiagCursor, Qt::SizeHorCursor};
    for (int handle = 0; handle < 8; ++handle) EXPECT_EQ(Over(Handle(a, handle)), shapes[handle]) << handle;
}

TEST_F(Pointers, OverTheGripsOfASelectedLink) {
    link.SetSelected(true);
    Settle();
    EXPECT_EQ(Over(At(ToQPointF(link.Route()[0]))), Qt::SizeAllCursor);
    EXPECT_EQ(Over(At(ToQPointF(link.Route()[1]))), Qt::SizeAllCursor);
    EXPECT_EQ(Over(Half(1)), Qt::SizeAllCursor);
    EXPECT_EQ(Over(Third(0)), Qt::PointingHandCursor);
}

TEST_F(Pointers, UnselectableAndHiddenItems_AreNotThere) {
    a.SetSelectable(false);
    link.SetHidden(true);
    Settle();
    EXPECT_EQ(Over(Body(a)), Qt::CrossCursor);
    EXPECT_EQ(Over(Third(0)), Qt::CrossCursor);
}

TEST_F(Pointers, DuringEachGesture) {
    a.SetSelected(true);
    link.SetSelected(true);
    Settle();
    struct Row {
        const char *what;
        QPoint from;
        Qt::KeyboardModifiers modifiers;
        Qt::CursorShape shape;
    };
    const Row rows[] = {{"draw", QPoint(560, 420), {}, Qt::CrossCursor},
                        {"move", Body(a), {}, Qt::SizeAllCursor},
                        {"copy", Body(a), Qt::ControlModifier, Qt::DragCopyCursor},
                        {"resize", Handle(a, 2), {}, Qt::SizeBDiagCursor},
                        {"link", LinkStart(b, 0), {}, Qt::CrossCursor},
                        {"link end", At(ToQPointF(link.Route()[2])), {}, Qt::CrossCursor},
                        {"bend", At(ToQPointF(link.Route()[1])), {}, Qt::SizeAllCursor}};
    for (const Row &row : rows) {
        DragAndHold(row.from, row.from + QPoint(40, 40), row.modifiers);
        EXPECT_EQ(Shape(), row.shape) << row.what;
        Key(Qt::Key_Escape);
        Release(QPoint(600, 480), row.modifiers);
        EXPECT_EQ(Over(QPoint(601, 481)), Qt::CrossCursor) << row.what;
    }
}

TEST_F(Pointers, WhilePanning) {
    view->setFocus();
    hand->KeyPress(Qt::Key_Space);
    EXPECT_EQ(Over(Body(a)), Qt::OpenHandCursor);
    Press(Body(a));
    EXPECT_EQ(Shape(), Qt::ClosedHandCursor);
    Release(Body(a));
    EXPECT_EQ(Shape(), Qt::OpenHandCursor);
    hand->KeyRelease(Qt::Key_Space);
    EXPECT_EQ(Shape(), Qt::SizeAllCursor);
    Press(Body(a), {}, Qt::MiddleButton);
    EXPECT_EQ(Shape(), Qt::ClosedHandCursor);
    Release(Body(a), {}, Qt::MiddleButton);
}

TEST_F(Pointers, OverTheTextThatIsEdited) {
    a.SetSelected(true);
    Key(Qt::Key_F2);
    const auto *editor = view->findChild<QTextEdit *>();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->viewport()->cursor().shape(), Qt::IBeamCursor);
    view->EndEdit(false);
}

} // namespace diagram::testing
