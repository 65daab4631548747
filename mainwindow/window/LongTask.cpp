#include "mainwindow/window/LongTask.h"

#include "mainwindow/frmMain.h"

#include <QApplication>
#include <QKeyEvent>
#include <utility>

namespace mainwindow {

namespace {

constexpr qint64 kSilence = 250, kPatience = 500; // milliseconds
constexpr int kFull = 99;                         // per cent: the bar is never full while the work lasts

// The share of the bar that is filled by then, for work whose end nobody knows: it approaches 1.
double ShareAfter(qint64 milliseconds) {
    constexpr double kHalf = 5000; // milliseconds until half of the bar
    return double(milliseconds) / (double(milliseconds) + kHalf);
}

bool IsInput(QEvent::Type type) {
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::InputMethod:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

LongTask::LongTask(frmMain &window, const QString &doing, Bar bar)
    : window_(&window), doing_(doing), bar_(bar) {
    running_.start();
}

LongTask::~LongTask() {
    if (listens_) qApp->removeEventFilter(this);
    if (!window_ || !(told_ || givenUp_)) return;
    window_->SetProgress(0);
    window_->DoStatus(givenUp_ ? tr("%1 was given up.").arg(doing_) : QString());
}

void LongTask::Listen() {
    if (!std::exchange(listens_, true)) qApp->installEventFilter(this);
}

void LongTask::Tell() {
    if (!std::exchange(told_, true)) window_->DoStatus(tr("%1... Escape gives up.").arg(doing_));
}

bool LongTask::GoOn() {
    if (givenUp_ || !window_) return false;
    const qint64 elapsed = running_.elapsed();
    if (elapsed < kSilence) return true;
    Listen();
    if (elapsed >= kPatience) Tell();
    if (told_ && bar_ == Bar::ByTime) window_->SetProgress(1 + int((kFull - 1) * ShareAfter(elapsed)));
    window_->LetEventsRun(QEventLoop::AllEvents);
    return !givenUp_ && window_;
}

bool LongTask::GoOn(double done) {
    percent_ = std::max(percent_, int(kFull * std::clamp(done, 0.0, 1.0)));
    if (told_ && window_) window_->SetProgress(percent_);
    return GoOn();
}

// Closing, too, waits until the work is done.
bool LongTask::eventFilter(QObject *, QEvent *event) {
    if (!IsInput(event->type())) return false;
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape)
        givenUp_ = true;
    if (event->type() == QEvent::Close) event->ignore();
    return true;
}

} // namespace mainwindow
