// Window events other than closing: first showing, activation, resizing, files dropped.
#include "mainwindow/frmMain.h"

#include "mainwindow/cProgressOnStatusBar.h"
#include "mainwindow/cStatusBar.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>

namespace mainwindow {

namespace {
// The one file on this machine that is dragged; empty for anything else.
QString DraggedFile(const QMimeData &data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 && urls.first().isLocalFile() ? urls.first().toLocalFile() : QString();
}
} // namespace

void frmMain::showEvent(QShowEvent *event) {
    QMainWindow::showEvent(event);
    Form_Resize();
}

void frmMain::changeEvent(QEvent *event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        support::Report("frmMain", "Form_Activate", [this] { Form_Activate(); });
}

void frmMain::resizeEvent(QResizeEvent *event) {
    QMainWindow::resizeEvent(event);
    Form_Resize();
}

bool frmMain::eventFilter(QObject *watched, QEvent *event) {
    if (watched == picRHS_ && event->type() == QEvent::Resize) picRHS_Resize();
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

void frmMain::dragEnterEvent(QDragEnterEvent *event) {
    if (!InsideRoutine() && !DraggedFile(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent *event) {
    const QString file = DraggedFile(*event->mimeData());
    if (file.isEmpty() || InsideRoutine()) return;
    event->acceptProposedAction();
    // After the drag has ended, so that a question of ours doesn't hold up the program that the file came
    // from.
    QTimer::singleShot(0, this, [this, file] {
        support::Report("frmMain", "OLEDragDrop", [&] { DoOpen(file, WantsNewWindow()); });
    });
}

} // namespace mainwindow
