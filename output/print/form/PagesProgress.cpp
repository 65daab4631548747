#include "output/print/form/PagesProgress.h"

#include <climits>
#include <QCoreApplication>

namespace print {

namespace {
constexpr qint64 kPatience = 500; // milliseconds
}

// The dialog's own delay is off: its clock would run while the user still chooses a printer.
PagesProgress::PagesProgress(QWidget *owner)
    : dialog_(QCoreApplication::translate("frmPrint", "Printing..."),
              QCoreApplication::translate("frmPrint", "&Cancel"), 0, 1, owner) {
    dialog_.setWindowModality(Qt::ApplicationModal);
    dialog_.setMinimumDuration(INT_MAX);
    dialog_.setAutoReset(false);
    dialog_.reset();
}

bool PagesProgress::GoOn(int done, int of) {
    if (!running_.isValid()) running_.start();
    if (running_.elapsed() < kPatience) return true;
    dialog_.setMaximum(of);
    dialog_.setLabelText(
        QCoreApplication::translate("frmPrint", "Printing page %1 of %2...").arg(done + 1).arg(of));
    dialog_.setValue(done);
    if (!dialog_.isVisible() && !dialog_.wasCanceled()) dialog_.show();
    QCoreApplication::processEvents();
    return !dialog_.wasCanceled();
}

} // namespace print
