#include "output/print/form/frmPrint.h"

#include "diagram/geometry/Units.h"
#include "output/print/form/PagesProgress.h"
#include "output/print/form/PreviewSheets.h"
#include "support/Error.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QStyle>

namespace print {

namespace {

constexpr int kHintTime = 6000; // milliseconds

class Hourglass {
public:
    Hourglass() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Hourglass() { QApplication::restoreOverrideCursor(); }
    Hourglass(const Hourglass &) = delete;
    Hourglass &operator=(const Hourglass &) = delete;
};

} // namespace

frmPrint::frmPrint(PrintPreviewArgument argument) : argument_(std::move(argument)), print_(argument_.print) {
    setObjectName(QLatin1String(PrintPreviewArgument::kForm));
    setAttribute(Qt::WA_DeleteOnClose);
    setContextMenuPolicy(Qt::PreventContextMenu);
    sheets_ = new PreviewSheets(PrnFlow1(), this);
    sheets_->setObjectName(QStringLiteral("PrnFlow1"));
    BuildToolbar();
    BuildStatus();
    BuildKeys();
    setCentralWidget(sheets_);
    connect(sheets_, &PreviewSheets::PageChanged, this, &frmPrint::UpdateStatus);
    connect(sheets_, &PreviewSheets::ZoomWanted, this, &frmPrint::StepZoom);
    PrnFlow1().OnShown([this] { Shown(); });
    print_->bringUp = [this] {
        show();
        raise();
        activateWindow();
    };
    print_->close = [this] { close(); };
    constexpr QSize kUsual(960, 760);
    resize(kUsual);
    sheets_->setFocus();
}

frmPrint::~frmPrint() { LetGo(); }

// The control may outlive the window, and must not reach for it.
void frmPrint::LetGo() {
    PrnFlow1().OnShown({});
    print_->close = {};
    print_->bringUp = {};
}

QString frmPrint::Panel(const QString &name) const {
    const QLabel *panel = panels_.value(name);
    return panel ? panel->text() : QString();
}

bool frmPrint::event(QEvent *event) {
    if (event->type() == QEvent::WindowActivate)
        support::Report("frmPrint", "Form_Activate", [this] { Form_Activate(); });
    return QMainWindow::event(event);
}

// When the user comes back, what has changed in the map meanwhile is shown.
void frmPrint::Form_Activate() {
    if (!print_->IsLoaded() || !PrnFlow1().Preview) return; // it prints, or is being closed
    if (std::exchange(wasActive_, true)) {
        PrnFlow1().Refresh();
        PrnFlow1().Run();
    }
    const int zoom = PrnFlow1().Zoom != 0 ? PrnFlow1().Zoom : kPlainZoom;
    cboZoom_->setCurrentIndex(cboZoom_->findData(zoom));
    sheets_->SetZoom(zoom);
    UpdateStatus();
}

void frmPrint::Shown() {
    sheets_->Renew();
    UpdateStatus();
    if (!PrnFlow1().IsGone()) statusBar()->showMessage(print_->TooNearTheEdge(PrnFlow1()));
    if (print_->pagesChanged) print_->pagesChanged();
}

void frmPrint::UpdateStatus() {
    PrnFlow &flow = PrnFlow1();
    panels_[QStringLiteral("PAGE")]->setText(tr("Pages: %1/%2").arg(flow.Page()).arg(flow.Pages()));
    panels_[QStringLiteral("VPAGE")]->setText(tr("Vertical Pages: %1").arg(flow.VerticalPages()));
    panels_[QStringLiteral("HPAGE")]->setText(tr("Horizontal Pages: %1").arg(flow.HorizontalPages()));
    const bool landscape = flow.Orientation == kLandscape;
    buttons_[QStringLiteral("LANDSCAPE")]->setChecked(landscape);
    buttons_[QStringLiteral("PORTRAIT")]->setChecked(!landscape);
    buttons_[QStringLiteral("FIT")]->setChecked(flow.FitToPage);
    buttons_[QStringLiteral("PRIOR")]->setEnabled(flow.Page() > 1);
    buttons_[QStringLiteral("NEXT")]->setEnabled(flow.Page() < flow.Pages());
    buttons_[QStringLiteral("PRINT")]->setEnabled(flow.Pages() > 0);
    const auto &sheets = flow.TheSheets().sheets;
    const int slice = flow.Page() > 0 ? sheets[std::size_t(flow.Page() - 1)].slice : -1;
    const QString caption = slice >= 0 ? flow.Map().slices[std::size_t(slice)].caption : QString();
    setWindowTitle(caption.isEmpty() ? tr("Print Preview") : tr("Print Preview: %1").arg(caption));
    if (flow.IsGone()) statusBar()->showMessage(tr("It was closed or deleted; its pages are as they were."));
}

void frmPrint::cboZoom_Click() {
    PrnFlow1().Zoom = cboZoom_->currentData().toInt();
    sheets_->SetZoom(PrnFlow1().Zoom);
}

void frmPrint::StepZoom(int steps) {
    const int index = std::clamp(cboZoom_->currentIndex() + steps, 0, cboZoom_->count() - 1);
    cboZoom_->setCurrentIndex(index);
    cboZoom_Click();
}

void frmPrint::Turn(int orientation) {
    PrnFlow1().Orientation = orientation;
    PrnFlow1().Run();
    UpdateStatus();
}

void frmPrint::GoTo(int page) {
    PrnFlow1().SetPage(page);
    sheets_->ShowPage();
    UpdateStatus();
}

bool frmPrint::TellThatFitIsOn() {
    if (!PrnFlow1().FitToPage) return false;
    statusBar()->showMessage(
        tr("Nothing changes while everything is fitted to one page. Release Fit to one page first."),
        kHintTime);
    return true;
}

void frmPrint::tlbPint_ButtonClick(const QString &key) {
    support::Report("frmPrint", "tlbPint_ButtonClick", [&] {
        const QString upper = key.toUpper();
        if (upper == QLatin1String("PRINT")) return Print();
        if (upper == QLatin1String("PORTRAIT")) return Turn(kPortrait);
        if (upper == QLatin1String("LANDSCAPE")) return Turn(kLandscape);
        if (upper == QLatin1String("NEXT")) return GoTo(PrnFlow1().Page() + 1);
        if (upper == QLatin1String("PRIOR")) return GoTo(PrnFlow1().Page() - 1);
        const bool isFit = upper == QLatin1String("FIT");
        if (isFit)
            PrnFlow1().FitToPage = buttons_[upper]->isChecked();
        else if (TellThatFitIsOn())
            return;
        else
            ZoomBack(PrnFlow1());
        statusBar()->clearMessage();
        PrnFlow1().Run();
        UpdateStatus();
    });
}

void frmPrint::tlbPint_ButtonMenuClick(const QString &key, int number) {
    support::Report("frmPrint", "tlbPint_ButtonMenuClick", [&] {
        if (TellThatFitIsOn()) return;
        const Hourglass busy;
        for (QAction *entry : buttons_[key]->menu()->actions())
            entry->setProperty("Tag", entry->data().toInt() == number ? QStringLiteral("1") : QString());
        const PagesWanted wanted = key == QLatin1String("DOWN") ? PagesWanted::Down : PagesWanted::Wide;
        AskForPages(PrnFlow1(), wanted, number, ScrollBars(), [&] { tlbPint_ButtonClick(key); });
        UpdateStatus();
    });
}

// Their widths in the window, in twips.
QSizeF frmPrint::ScrollBars() const {
    const double side =
        style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this) * diagram::kTwipsPerPixel;
    return {side, side};
}

void frmPrint::Print() {
    PagesProgress progress(this);
    const auto tell = argument_.tell;
    const auto printed =
        print_->PrintWithDialog(this, [&](int done, int of) { return progress.GoOn(done, of); });
    if (printed && tell) tell(TextOf(*printed));
}

void frmPrint::closeEvent(QCloseEvent *event) {
    support::Report("frmPrint", "Form_Unload", [this] {
        LetGo();
        print_->Unload();
    });
    QMainWindow::closeEvent(event);
}

} // namespace print
