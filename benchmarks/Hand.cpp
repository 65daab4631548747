#include "benchmarks/Hand.h"

#include <algorithm>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QWheelEvent>

namespace bench {

namespace {
constexpr int kRuns = 5;
constexpr int kNotch = 120;
} // namespace

Hand::Hand(QWidget &viewport) : viewport_(viewport) { viewport.installEventFilter(this); }

bool Hand::eventFilter(QObject *, QEvent *event) {
    if (event->type() == QEvent::Paint) ++frames_;
    return false;
}

// A view collects what changes until its posted flush, which then posts the frame; both are sent here.
void Hand::Do(const std::function<void()> &what) {
    QElapsedTimer timer;
    timer.start();
    what();
    QApplication::sendPostedEvents(); // the flush
    QApplication::sendPostedEvents(); // the frame that it asked for
    steps_.push_back(double(timer.nsecsElapsed()) / 1e6);
}

void Hand::Send(QWidget &target, QEvent &event) {
    Do([&] { QApplication::sendEvent(&target, &event); });
}

void Hand::Mouse(QEvent::Type type, const QPoint &at, Qt::MouseButton button,
                 Qt::KeyboardModifiers modifiers) {
    QMouseEvent event(type, at, viewport_.mapToGlobal(at), button, held_, modifiers);
    Send(viewport_, event);
}

void Hand::Move(const QPoint &at, Qt::KeyboardModifiers modifiers) {
    Mouse(QEvent::MouseMove, at, Qt::NoButton, modifiers);
}

void Hand::Press(const QPoint &at, Qt::KeyboardModifiers modifiers, Qt::MouseButton button) {
    held_ = button;
    Mouse(QEvent::MouseButtonPress, at, button, modifiers);
}

void Hand::Release(const QPoint &at, Qt::KeyboardModifiers modifiers) {
    const Qt::MouseButton button = std::exchange(held_, Qt::NoButton);
    Mouse(QEvent::MouseButtonRelease, at, button, modifiers);
}

void Hand::Wheel(const QPoint &at, int notches, Qt::KeyboardModifiers modifiers) {
    QWheelEvent event(at, viewport_.mapToGlobal(at), QPoint(), QPoint(0, notches * kNotch), held_, modifiers,
                      Qt::NoScrollPhase, false);
    Send(viewport_, event);
}

void Hand::Key(int key, const QString &text, Qt::KeyboardModifiers modifiers) {
    QWidget *target = QApplication::focusWidget();
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    Send(target ? *target : viewport_, event);
}

Timing BestOf(Hand &hand, const std::function<void(Hand &)> &before,
              const std::function<void(Hand &)> &gesture) {
    Timing best;
    for (int run = 0; run < kRuns; ++run) {
        before(hand);
        hand.TakeSteps(), hand.TakeFrames();
        gesture(hand);
        const Steps steps = hand.TakeSteps();
        best.frames = hand.TakeFrames();
        if (best.steps.empty()) best.steps = steps;
        for (size_t i = 0; i < std::min(best.steps.size(), steps.size()); ++i)
            best.steps[i] = std::min(best.steps[i], steps[i]);
    }
    return best;
}

double Timing::Worst() const { return *std::max_element(steps.begin(), steps.end()); }

double Timing::Median() const {
    Steps sorted = steps;
    std::sort(sorted.begin(), sorted.end());
    return sorted[sorted.size() / 2];
}

QString Timing::Remark() const {
    return QStringLiteral("worst of %1 events, %2 frames, median %3 ms")
        .arg(steps.size())
        .arg(frames)
        .arg(Median(), 0, 'f', 2);
}

} // namespace bench
