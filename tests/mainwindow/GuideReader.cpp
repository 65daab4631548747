#include "tests/mainwindow/GuideReader.h"

#include "diagram/edit/History.h"
#include "diagram/hit/Grips.h"
#include "diagram/interaction/Press.h"
#include "diagram/view/SurfaceView.h"
#include "tests/mainwindow/HeldKeys.h"

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QTest>
#include <QToolBar>
#include <QWheelEvent>

namespace mainwindow::testing {

Reader::Reader() : window(&NewWindow()) {
    const diagram::ActionGroup group(Surface());
    a = &AddNode(*window, 900, 900, QStringLiteral("first"));
    b = &AddNode(*window, 5400, 900, QStringLiteral("second"));
    c = &AddNode(*window, 5400, 3600, QStringLiteral("third"));
}

void Reader::Stroke(const std::vector<QPointF> &places, Qt::KeyboardModifiers first,
                    Qt::KeyboardModifiers later) {
    ProcessEvents();
    QWidget *viewport = window->CurrentView().viewport();
    QPoint at = PixelOf(*window, places.front());
    QTest::mousePress(viewport, Qt::LeftButton, first, at);
    for (std::size_t i = 1; i < places.size(); ++i) {
        const QPoint to = PixelOf(*window, places[i]);
        for (const QPoint &point : {at + (to - at) / 2, to}) MoveHeld(*viewport, point, later);
        at = to;
    }
    QTest::mouseRelease(viewport, Qt::LeftButton, later, at);
    ProcessEvents();
}

void Reader::Click(const QPointF &at, Qt::KeyboardModifiers modifiers) {
    WindowTest::Click(*window, at, modifiers);
}
void Reader::DoubleClick(const QPointF &at) { WindowTest::DoubleClick(*window, at); }

void Reader::Wheel(const QPointF &at, int angle, Qt::KeyboardModifiers modifiers) {
    QWidget *viewport = window->CurrentView().viewport();
    const QPoint pixel = PixelOf(*window, at);
    QWheelEvent event(pixel, viewport->mapToGlobal(pixel), QPoint(), QPoint(0, angle), Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(viewport, &event);
    ProcessEvents();
}

QString Reader::TipAt(const QPointF &at) { return WindowTest::TipAt(*window, at); }

void Reader::DropAt(const QString &file, const QPointF &at) {
    ProcessEvents();
    DropFile(*window, file, at);
    ProcessEvents();
}

void Reader::Press(const char *keys) { WindowTest::Press(*window, QLatin1String(keys)); }

void Reader::Type(const QString &text) {
    for (const QChar letter : text) {
        QTest::keyClick(QApplication::focusWidget(), letter.toLatin1());
        ProcessEvents();
    }
}

void Reader::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    ProcessEvents();
}

void Reader::TabWithCtrl(Qt::Key key, int times) {
    const Qt::KeyboardModifiers shift = key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier;
    PressKey(*window, Qt::Key_Control, Qt::ControlModifier);
    for (; times > 0; --times) PressKey(*window, key, Qt::ControlModifier | shift);
    ReleaseKey(*window, Qt::Key_Control);
}

void Reader::PushFormatButton(const char *key) {
    ProcessEvents();
    auto *bar = window->findChild<QToolBar *>(QStringLiteral("tlbFormat"));
    auto *action = bar->findChild<QAction *>(QLatin1String(key));
    ASSERT_TRUE(action && action->isEnabled()) << key;
    action->trigger();
    ProcessEvents();
}

diagram::Link &Reader::Join(diagram::Node &from, diagram::Node &to) {
    diagram::Link &link = from.Links().Add(to);
    ProcessEvents();
    return link;
}

void Reader::Select(diagram::Node &node) {
    Surface().UnselectAll();
    node.SetSelected(true);
    ProcessEvents();
}

QPointF Reader::Body(const diagram::Node &node) { return node.Bounds().topLeft() + QPointF(300, 150); }

QPointF Reader::Start(const diagram::Node &node) {
    const double handle = diagram::OptionsFor({{}, {}, QSizeF(15, 15), {}}).handleSize;
    return diagram::LinkStartPlaces(node.Bounds(), handle)[1];
}

QPointF Reader::Half(const diagram::Link &link, std::size_t segment) {
    return (diagram::ToQPointF(link.Route()[segment]) + diagram::ToQPointF(link.Route()[segment + 1])) / 2;
}

QImage Reader::Seen() {
    ProcessEvents();
    return window->CurrentView().viewport()->grab().toImage();
}

} // namespace mainwindow::testing
