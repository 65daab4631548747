// The wheel, touchpads and pinches.
#include "tests/diagram/view/ViewFixture.h"

#include <QApplication>
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

namespace diagram::testing {

class Wheels : public ViewTest {
protected:
    Wheels() {
        AddNode("a", 100, 100);
        AddNode("far", 4000, 4000);
        Settle();
    }

    void Turn(const QPoint &angle, const QPoint &pixels = {}, Qt::KeyboardModifiers modifiers = {}) {
        const QPoint at(400, 300);
        QWheelEvent event(at, view->viewport()->mapToGlobal(at), pixels, angle, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(view->viewport(), &event);
        Settle();
    }
    QPoint Scroll() const {
        return {view->horizontalScrollBar()->value(), view->verticalScrollBar()->value()};
    }
    void PinchOnPad(double value, const QPoint &at) {
        QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2, at, at,
                                  view->viewport()->mapToGlobal(at), value, QPointF());
        QApplication::sendEvent(view->viewport(), &event);
        Settle();
    }
};

TEST_F(Wheels, Notches_PassThroughTheUsualZooms) {
    std::vector<int> zooms;
    for (int notch = 0; notch < 4; ++notch) {
        Turn({0, 120}, {}, Qt::ControlModifier);
        zooms.push_back(qRound(view->ShownZoom()));
    }
    EXPECT_EQ(zooms, (std::vector<int>{110, 125, 150, 175}));
    view->ZoomAt(137, QPointF());
    zooms.clear();
    for (int notch = 0; notch < 6; ++notch) {
        Turn({0, -120}, {}, Qt::ControlModifier);
        zooms.push_back(qRound(view->ShownZoom()));
    }
    EXPECT_EQ(zooms, (std::vector<int>{125, 110, 100, 90, 75, 67}));
}

TEST_F(Wheels, PartsOfANotch_GatherAndAnotherDirectionStartsAnew) {
    for (int part = 0; part < 7; ++part) Turn({0, 15}, {}, Qt::ControlModifier);
    EXPECT_EQ(qRound(view->ShownZoom()), 100);
    Turn({0, 15}, {}, Qt::ControlModifier);
    EXPECT_EQ(qRound(view->ShownZoom()), 110);
    Turn({0, 100}, {}, Qt::ControlModifier);
    Turn({0, -100}, {}, Qt::ControlModifier);
    EXPECT_EQ(qRound(view->ShownZoom()), 110);
    Turn({0, -20}, {}, Qt::ControlModifier);
    EXPECT_EQ(qRound(view->ShownZoom()), 100);
}

TEST_F(Wheels, FineWheels_ScrollAsFarAsCoarseOnes) {
    Turn({0, -120});
    const int coarse = Scroll().y();
    view->verticalScrollBar()->setValue(0);
    for (int part = 0; part < 120; ++part) Turn({0, -1});
    EXPECT_EQ(Scroll().y(), coarse);
    EXPECT_GT(coarse, 0);
}

TEST_F(Wheels, Shift_GoesSideways) {
    Turn({0, -120}, {}, Qt::ShiftModifier);
    EXPECT_GT(Scroll().x(), 0);
    EXPECT_EQ(Scroll().y(), 0);
    const int once = Scroll().x();
    Turn({-120, 0}, {}, Qt::ShiftModifier); // turned aside by the platform already
    EXPECT_EQ(Scroll(), QPoint(2 * once, 0));
}

TEST_F(Wheels, Touchpads_ScrollByPixelsInBothDirections) {
    Turn({-20, -40}, {-7, -13});
    EXPECT_EQ(Scroll(), QPoint(7, 13));
    Turn({0, -40}, {0, -13}, Qt::ShiftModifier);
    EXPECT_EQ(Scroll(), QPoint(20, 13));
}

TEST_F(Wheels, PinchOnATouchpad_ZoomsAroundThePointer) {
    const QPoint at(500, 350);
    const QPointF under = view->ToSurface(at);
    PinchOnPad(0.1, at);
    PinchOnPad(0.1, at);
    EXPECT_NEAR(view->ShownZoom(), 121, 1e-6);
    EXPECT_NEAR(view->FromSurface(under).x(), at.x(), 1);
    EXPECT_NEAR(view->FromSurface(under).y(), at.y(), 1);
    PinchOnPad(-0.5, at);
    EXPECT_NEAR(view->ShownZoom(), 60.5, 1e-6);
    PinchOnPad(-3, at);
    EXPECT_NEAR(view->ShownZoom(), 60.5, 1e-6) << "no size at all";
    EXPECT_EQ(surface.xZoom(), 100);
    EXPECT_FALSE(surface.CanUndo());
}

class Touch : public Wheels {
protected:
    Touch() : screen(QTest::createTouchDevice()) {}
    void Fingers(const std::function<void(QTest::QTouchEventWidgetSequence &)> &what) {
        auto sequence = QTest::touchEvent(view->viewport(), screen.get(), false);
        what(sequence);
        sequence.commit();
        Settle();
    }
    std::unique_ptr<QPointingDevice> screen;
};

TEST_F(Touch, TwoFingers_ZoomAroundTheirMiddle) {
    QWidget *on = view->viewport();
    const QPoint middle(400, 300);
    const QPointF under = view->ToSurface(middle);
    const auto beside = [&](int by) { return std::pair(middle - QPoint(by, 0), middle + QPoint(by, 0)); };
    Fingers([&](auto &touch) { touch.press(0, beside(50).first, on).press(1, beside(50).second, on); });
    for (int by = 55; by <= 100; by += 5)
        Fingers([&](auto &touch) { touch.move(0, beside(by).first, on).move(1, beside(by).second, on); });
    EXPECT_GT(view->ShownZoom(), 150);
    EXPECT_NEAR(view->FromSurface(under).x(), middle.x(), 4);
    EXPECT_NEAR(view->FromSurface(under).y(), middle.y(), 4);
    Fingers([&](auto &touch) { touch.release(0, beside(100).first, on).release(1, beside(100).second, on); });
    EXPECT_EQ(surface.Nodes().Count(), 2);
    EXPECT_FALSE(surface.CanUndo());
}

TEST_F(Touch, OneFinger_DrawsAsTheMouseDoes) {
    QWidget *on = view->viewport();
    Fingers([&](auto &touch) { touch.press(0, QPoint(300, 300), on); });
    for (int by = 10; by <= 100; by += 10)
        Fingers([&](auto &touch) { touch.move(0, QPoint(300 + by, 300 + by), on); });
    Fingers([&](auto &touch) { touch.release(0, QPoint(400, 400), on); });
    EXPECT_EQ(surface.Nodes().Count(), 3);
}

} // namespace diagram::testing
