// Window events other than closing: first showing, activation, resizing, what is dropped.
#include "mainwindow/frmMain.h"

#include "mainwindow/cProgressOnStatusBar.h"
#include "mainwindow/cStatusBar.h"
#include "mainwindow/DroppedFiles.h"

#include <QDragMoveEvent>
#include <utility>

namespace mainwindow {

void frmMain::showEvent(QShowEvent *event) {
    QMainWindow::showEvent(event);
    Form_Resize();
}

// Listing the printers takes the machine a moment: the window is there first.
void frmMain::paintEvent(QPaintEvent *event) {
    QMainWindow::paintEvent(event);
    if (!std::exchange(painted_, true)) firstPaint_.start();
}

void frmMain::changeEvent(QEvent *event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
    support::Report("frmMain", "Form_Activate", [this] { Form_Activate(); });
    ScheduleUpdate(); // another program may have written to an embedded file
}

void frmMain::resizeEvent(QResizeEvent *event) {
    QMainWindow::resizeEvent(event);
    Form_Resize();
}

bool frmMain::eventFilter(QObject *watched, QEvent *event) {
    if (watched == picRHS_ && event->type() == QEvent::Resize) picRHS_Resize();
    // What stands beside the panel comes and goes.
    if (watched != picRHS_ && event->type() == QEvent::Move)
        cProgressOnStatusBar().SetProgressBar(*prg1_, *staMain_);
    return QMainWindow::eventFilter(watched, event);
}

// The splitter fills the window by itself; the progress bar waits until the size has settled.
void frmMain::Form_Resize() {
    prg1_->hide();
    tmrResize_.start();
}

void frmMain::tmrResize_Timer() {
    tmrResize_.stop();
    cProgressOnStatusBar().SetProgressBar(*prg1_, *staMain_);
    prg1_->show();
}

void frmMain::dragEnterEvent(QDragEnterEvent *event) { drop_->Accept(*event); }

void frmMain::dragMoveEvent(QDragMoveEvent *event) {
    if (drop_->Accept(*event)) drop_->TellAt(event->position().toPoint());
}

void frmMain::dragLeaveEvent(QDragLeaveEvent *) { DropHint(); }

void frmMain::dropEvent(QDropEvent *event) {
    DropHint();
    drop_->Drop(*event);
}

} // namespace mainwindow
