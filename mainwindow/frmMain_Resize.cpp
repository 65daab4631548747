// Window events other than closing: first showing, activation, resizing.
#include "mainwindow/frmMain.h"

#include "mainwindow/controls/cProgressOnStatusBar.h"
#include "mainwindow/WindowParts.h"

#include <QEvent>
#include <utility>

namespace mainwindow {

void frmMain::showEvent(QShowEvent *event) {
    QMainWindow::showEvent(event);
    Form_Resize();
}

// Listing the printers and making the start page are slow, so they wait until the window has been painted.
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
    if (!parts_) return false; // they are being made
    if (watched == parts_->picRHS && event->type() == QEvent::Resize) picRHS_Resize();
    // The panel of the progress bar moves when what stands beside it comes or goes.
    if (watched != parts_->picRHS && event->type() == QEvent::Move)
        cProgressOnStatusBar().SetProgressBar(*parts_->prg1, *parts_->staMain);
    return QMainWindow::eventFilter(watched, event);
}

// The splitter fills the window by itself; the progress bar waits until the size has settled.
void frmMain::Form_Resize() {
    parts_->prg1->hide();
    tmrResize_.start();
}

void frmMain::tmrResize_Timer() {
    tmrResize_.stop();
    cProgressOnStatusBar().SetProgressBar(*parts_->prg1, *parts_->staMain);
    parts_->prg1->show();
}

} // namespace mainwindow
