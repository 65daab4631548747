// What the view says that a press would do where the pointer is.
#include "tests/diagram/view/ViewFixture.h"

#include "tests/diagram/view/TaggedDays.h"

#include <QSignalSpy>

namespace diagram::testing {

namespace {

class Hints : public ViewTest {
protected:
    Hints() : a(AddNode("a", 50, 100)), b(AddNode("b", 350, 100)), link(AddLink(a, b)) {
        link.Points().Assign({{2250, 1950}, {3750, 5250}, {5250, 1950}});
        link.SetText(QStringLiteral("label of it"));
        Settle();
        QObject::connect(view.get(), &SurfaceView::HintShown, [this](Hint hint) { told << hint; });
        QObject::connect(view.get(), &SurfaceView::HintOffered, [this](Hint hint) { offered << hint; });
    }
    Hint Over(const QPoint &at) {
        MoveTo(at);
        return told.isEmpty() ? Hint::Nothing : told.last();
    }
    QPoint Third() const { return At((ToQPointF(link.Route()[0]) * 2 + ToQPointF(link.Route()[1])) / 3); }
    Node &a, &b;
    Link &link;
    QList<Hint> told, offered;
    static constexpr QPoint kEmpty{600, 450};
};

} // namespace

TEST_F(Hints, OverEachThing) {
    EXPECT_EQ(Over(kEmpty), Hint::DragDrawsNode);
    EXPECT_EQ(Over(Body(a)), Hint::DragMovesNode);
    EXPECT_EQ(Over(Third()), Hint::DragBendsLink);
    EXPECT_EQ(Over(LinkStart(a, 0)), Hint::DragDrawsLink);
    a.SetSelected(true);
    link.SetSelected(true);
    Settle();
    EXPECT_EQ(Over(Handle(a, 4)), Hint::DragResizes);
    EXPECT_EQ(Over(At(ToQPointF(link.Route()[1]))), Hint::DragMovesBend);
    EXPECT_EQ(Over(At(ToQPointF(link.Route()[2]))), Hint::DragMovesEnd);
    EXPECT_EQ(Over(At((ToQPointF(link.Route()[1]) + ToQPointF(link.Route()[2])) / 2)), Hint::DragMakesBend);
}

TEST_F(Hints, OverDatedNodesAndTheirEnds) {
    struct : TaggedDays {
        bool keeps = false;
        bool KeepsNodesAtDates(const Surface &) const override { return keeps; }
    } days;
    TaggedDays::Date(a, QDate(2027, 1, 4), QDate(2027, 1, 8));
    a.SetSelected(true);
    b.SetSelected(true);
    view->SetDays(days);
    Settle();
    EXPECT_EQ(Over(Body(a)), Hint::DragMovesDatedNode);
    EXPECT_EQ(Over(Handle(a, 3)), Hint::DragResizes);
    days.keeps = true;
    EXPECT_EQ(Over(Body(b)), Hint::DragMovesNode);
    EXPECT_EQ(Over(Body(a)), Hint::DragDatesNode);
    EXPECT_EQ(Over(Handle(a, 3)), Hint::DragDatesEnd);
    EXPECT_EQ(Over(Handle(a, 5)), Hint::DragResizes) << "across";
    EXPECT_EQ(Over(Handle(b, 3)), Hint::DragResizes);
    view->SetDays(DayStrip::None());
}

TEST_F(Hints, OverALabel) {
    link.Points().Assign({{2250, 1950}, {5250, 1950}});
    link.SetText(QStringLiteral("label"));
    Settle();
    EXPECT_EQ(Over(At((ToQPointF(link.Route()[0]) + ToQPointF(link.Route()[1])) / 2)),
              Hint::ClickSelectsLink);
}

TEST_F(Hints, OverThePageWithAChosenShapeOrWithShift) {
    view->SetShapeToDraw(8);
    EXPECT_EQ(Over(kEmpty), Hint::DragDrawsShape);
    MoveTo(kEmpty + QPoint(5, 5), Qt::ShiftModifier);
    EXPECT_EQ(told.last(), Hint::DragSelects);
}

TEST_F(Hints, ShiftIsAnsweredAtOnceWithoutOverwritingAMessage) {
    MoveTo(kEmpty);
    view->setFocus();
    const auto count = told.size();
    hand->KeyPress(Qt::Key_Shift);
    EXPECT_EQ(offered.last(), Hint::DragSelects);
    EXPECT_EQ(view->viewport()->cursor().shape(), Qt::ArrowCursor);
    hand->KeyRelease(Qt::Key_Shift);
    EXPECT_EQ(offered.last(), Hint::DragDrawsNode);
    EXPECT_EQ(view->viewport()->cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(told.size(), count);
}

TEST_F(Hints, AreToldOncePerThing) {
    MoveTo(kEmpty);
    MoveTo(kEmpty + QPoint(10, 0));
    MoveTo(kEmpty + QPoint(20, 0));
    EXPECT_EQ(told.count(Hint::DragDrawsNode), 1);
    MoveTo(Body(a));
    MoveTo(kEmpty);
    EXPECT_EQ(told.count(Hint::DragDrawsNode), 2);
}

TEST_F(Hints, GoWithThePointer) {
    MoveTo(kEmpty);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(view->viewport(), &leave);
    EXPECT_EQ(told.last(), Hint::Nothing);
}

TEST_F(Hints, AfterADragOnlyOfferWhatComesNext) {
    MoveTo(LinkStart(a, 3));
    const QPoint tooNear = Body(a) + QPoint(-90, -10);
    Drag(LinkStart(a, 3), tooNear);
    ASSERT_EQ(told.last(), Hint::LinkNeedsNode);
    EXPECT_EQ(offered.last(), Hint::DragDrawsNode);
    MoveTo(tooNear + QPoint(1, 2));
    EXPECT_EQ(told.last(), Hint::LinkNeedsNode) << "still over the same page";
    MoveTo(Body(a));
    EXPECT_EQ(told.last(), Hint::DragMovesNode);
}

TEST_F(Hints, WithoutAButtonTheKeysDontMatterOutsideOfTheView) {
    const auto count = offered.size();
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(view->viewport(), &leave);
    view->setFocus();
    hand->KeyPress(Qt::Key_Shift);
    hand->KeyRelease(Qt::Key_Shift);
    EXPECT_EQ(offered.size(), count);
}

} // namespace diagram::testing
