#include "mainwindow/window/frmPics.h"

#include "mainwindow/frmMain.h"
#include "mainwindow/icons/Icons.h"

#include <QApplication>
#include <QFontDatabase>

namespace mainwindow {

namespace {
constexpr int kLookAgain = 100; // milliseconds
constexpr int kSizes[] = {6, 7, 8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72};
const QString kName = QStringLiteral("frmPics");
} // namespace

frmPics &frmPics::Shared() {
    if (auto *pics = qApp->findChild<frmPics *>(kName, Qt::FindDirectChildrenOnly)) return *pics;
    return *new frmPics(qApp);
}

frmPics::frmPics(QObject *parent) : QObject(parent) {
    setObjectName(kName);
    tmrEnd_.setSingleShot(true);
    tmrEnd_.setInterval(kLookAgain);
    connect(&tmrEnd_, &QTimer::timeout, this, &frmPics::tmrEnd_Timer);
}

void frmPics::AddUsage() { ++usage_; }

void frmPics::RemoveUsage(const frmMain &leaving) {
    --usage_;
    const std::vector<frmMain *> forms = frmMain::Forms();
    const bool lastForm = forms.empty() || (forms.size() == 1 && forms.front() == &leaving);
    if (usage_ < 1 || lastForm)
        Unload();
    else
        tmrEnd_.start();
}

void frmPics::tmrEnd_Timer() {
    if (frmMain::Forms().empty()) Unload();
}

// Without its name Shared doesn't find it: a window that starts from now on gets a new object.
void frmPics::Unload() {
    setObjectName(QString());
    deleteLater();
}

QIcon frmPics::ProgramIcon() const { return mainwindow::ProgramIcon(); }

const QStringList &frmPics::cboFont() {
    if (fonts_.isEmpty()) fonts_ = QFontDatabase::families();
    return fonts_;
}

const QStringList &frmPics::cboFontSize() {
    if (sizes_.isEmpty())
        for (const int size : kSizes) sizes_ << QString::number(size);
    return sizes_;
}

} // namespace mainwindow
