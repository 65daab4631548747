#include "tests/diagram/view/Hand.h"

#include "diagram/hit/Grips.h"
#include "diagram/interaction/Press.h"
#include "diagram/view/SurfaceView.h"

#include <QApplication>
#include <QTest>
#include <QWheelEvent>

namespace diagram::testing {

namespace {

void Settle() { QApplication::processEvents(); }

QWidget *Listener(SurfaceView &view) {
    QWidget *focus = QApplication::focusWidget();
    return focus ? focus : &view;
}

} // namespace

void Hand::Press(const QPoint &at, Qt::KeyboardModifiers modifiers, Qt::MouseButton button) {
    at_ = at;
    held_ |= button;
    QTest::mousePress(view_.viewport(), button, modifiers, at);
    Settle();
}

void Hand::MoveTo(const QPoint &at, Qt::KeyboardModifiers modifiers) {
    at_ = at;
    QMouseEvent move(QEvent::MouseMove, at, view_.viewport()->mapToGlobal(at), Qt::NoButton, held_,
                     modifiers);
    QApplication::sendEvent(view_.viewport(), &move);
    Settle();
}

void Hand::Release(const QPoint &at, Qt::KeyboardModifiers modifiers, Qt::MouseButton button) {
    at_ = at;
    held_ &= ~Qt::MouseButtons(button);
    QTest::mouseRelease(view_.viewport(), button, modifiers, at);
    Settle();
}

void Hand::DoubleClick(const QPoint &at, Qt::KeyboardModifiers modifiers) {
    Press(at, modifiers);
    Release(at, modifiers);
    QMouseEvent twice(QEvent::MouseButtonDblClick, at, view_.viewport()->mapToGlobal(at), Qt::LeftButton,
                      Qt::LeftButton, modifiers);
    QApplication::sendEvent(view_.viewport(), &twice);
    Release(at, modifiers);
}

void Hand::DragAndHold(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers) {
    MoveTo(from, modifiers);
    Press(from, modifiers);
    for (int third = 1; third <= 3; ++third) MoveTo(from + (to - from) * third / 3, modifiers);
}

void Hand::Wheel(const QPoint &at, int angle, Qt::KeyboardModifiers modifiers) {
    at_ = at;
    QWheelEvent event(at, view_.viewport()->mapToGlobal(at), QPoint(), QPoint(0, angle), held_, modifiers,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(view_.viewport(), &event);
    Settle();
}

void Hand::KeyPress(int key, Qt::KeyboardModifiers modifiers) {
    QTest::keyPress(Listener(view_), Qt::Key(key), modifiers);
    Settle();
}

void Hand::KeyRelease(int key, Qt::KeyboardModifiers modifiers) {
    QTest::keyRelease(Listener(view_), Qt::Key(key), modifiers);
    Settle();
}

void Hand::Key(int key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(Listener(view_), Qt::Key(key), modifiers);
    Settle();
}

void Hand::Type(const char *text) {
    for (const char *at = text; *at; ++at) {
        QTest::keyClick(Listener(view_), *at);
        Settle();
    }
}

QPoint LinkStartOf(const SurfaceView &view, const Node &node, int side) {
    const double handle = OptionsFor({{}, {}, QSizeF(1500, 1500) / view.ShownZoom(), {}}).handleSize;
    return view.FromSurface(LinkStartPlaces(node.Bounds(), handle)[size_t(side)]).toPoint();
}

QPoint HandleOf(const SurfaceView &view, const Node &node, int handle) {
    const QRectF box = node.Bounds();
    const QPointF middle = box.center();
    const QPointF places[] = {
        box.topLeft(),     {middle.x(), box.top()},    box.topRight(),   {box.right(), middle.y()},
        box.bottomRight(), {middle.x(), box.bottom()}, box.bottomLeft(), {box.left(), middle.y()}};
    return view.FromSurface(places[handle]).toPoint();
}

} // namespace diagram::testing
