#include "output/export/form/frmExport.h"

#include "settings/Settings.h"
#include "support/cOpenFile.h"
#include "support/Error.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <QStyle>
#include <QVBoxLayout>

namespace output {

using document::pointer::kHourglass;
using document::pointer::kNormal;
using settings::ReplaceTerms;

frmExport::frmExport(clsExport &argument, QWidget *parent) : QDialog(parent), argument_(argument) {
    setObjectName(QLatin1String(clsExport::kForm));
    setWindowTitle(QStringLiteral("Export Settings"));
    auto *lines = new QVBoxLayout(this);
    lines->setSizeConstraint(QLayout::SetMinimumSize);
    pages_ = new QStackedWidget(this);
    pages_->addWidget(BuildOptions());
    pages_->addWidget(BuildDoing());
    lines->addWidget(pages_);
    lines->addStretch();
    BuildButtons();
    ShowOptions(LastReportOptions(argument_.Filename));
}

QCheckBox *frmExport::AddCheck(QLayout &lines, const char *name, const QString &caption) {
    auto *check = new QCheckBox(ReplaceTerms(caption), this);
    check->setObjectName(QLatin1String(name));
    lines.addWidget(check);
    return check;
}

QWidget *frmExport::BuildOptions() {
    fraOutput_ = new QGroupBox(QStringLiteral("&Output Options:"), this);
    fraOutput_->setObjectName(QStringLiteral("fraOutput"));
    auto *lines = new QVBoxLayout(fraOutput_);
    chkNodes_ = AddCheck(*lines, "chkNodes", QStringLiteral("Include @NODEs"));
    auto *indented = new QVBoxLayout;
    indented->setContentsMargins(style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                                     style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing),
                                 0, 0, 0);
    chkDetails_ = AddCheck(*indented, "chkDetails", QStringLiteral("Show @NODE Details"));
    lines->addLayout(indented);
    chkAll_ = AddCheck(*lines, "chkAll", QStringLiteral("Export All @SLICE's"));
    chkMap_ = AddCheck(*lines, "chkMap", QStringLiteral("Insert @SLICE as picture"));
    lines->addSpacing(style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing));
    auto *formats = new QButtonGroup(this);
    const char *const captions[] = {"&Rich Text Format (RTF)", "&HTML"};
    for (int index = 0; index < 2; ++index) {
        optOutput_[std::size_t(index)] = new QRadioButton(QLatin1String(captions[index]), fraOutput_);
        optOutput(index)->setObjectName(QStringLiteral("optOutput%1").arg(index));
        formats->addButton(optOutput(index));
        lines->addWidget(optOutput(index));
    }
    lines->addStretch();
    connect(chkNodes_, &QCheckBox::clicked, this, &frmExport::chkNodes_Click);
    return fraOutput_;
}

QWidget *frmExport::BuildDoing() {
    picDoing_ = new QWidget(this);
    picDoing_->setObjectName(QStringLiteral("picDoing"));
    auto *lines = new QVBoxLayout(picDoing_);
    const auto addLabel = [&](const char *name) {
        auto *label = new QLabel(picDoing_);
        label->setObjectName(QLatin1String(name));
        label->setTextFormat(Qt::PlainText);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        lines->addWidget(label);
        return label;
    };
    const auto addBar = [&](const char *name, const QString &spoken) {
        auto *bar = new QProgressBar(picDoing_);
        bar->setObjectName(QLatin1String(name));
        bar->setAccessibleName(ReplaceTerms(spoken));
        bar->setTextVisible(false);
        lines->addWidget(bar);
        return bar;
    };
    lines->addStretch();
    lblMap_ = addLabel("lblMap");
    prg1_ = addBar("prg1", tr("@SLICEs that are done"));
    lblDoing_ = addLabel("lblDoing");
    prg2_ = addBar("prg2", tr("@NODEs that are done"));
    addLabel("lblEscape")->setText(tr("Escape gives up."));
    lines->addStretch();
    return picDoing_;
}

void frmExport::BuildButtons() {
    auto *closing = new QDialogButtonBox(this);
    cmdOK_ = closing->addButton(QDialogButtonBox::Ok);
    cmdOK_->setObjectName(QStringLiteral("cmdOK"));
    cmdCancel_ = closing->addButton(QStringLiteral("&Cancel"), QDialogButtonBox::RejectRole);
    cmdCancel_->setObjectName(QStringLiteral("cmdCancel"));
    connect(closing, &QDialogButtonBox::accepted, this, &frmExport::cmdOK_Click);
    connect(closing, &QDialogButtonBox::rejected, this, &frmExport::reject);
    layout()->addWidget(closing);
}

void frmExport::ShowOptions(const ReportOptions &options) {
    optOutput(options.html ? 1 : 0)->setChecked(true);
    chkNodes_->setChecked(options.nodes);
    chkDetails_->setChecked(options.details);
    chkAll_->setChecked(options.all);
    chkMap_->setChecked(options.map);
    chkNodes_Click();
}

void frmExport::chkNodes_Click() {
    if (!chkNodes_->isChecked()) chkDetails_->setChecked(false);
    chkDetails_->setEnabled(chkNodes_->isChecked());
}

ReportOptions frmExport::Options() const {
    return {chkNodes_->isChecked(), chkDetails_->isChecked(), chkAll_->isChecked(), chkMap_->isChecked(),
            optOutput(1)->isChecked()};
}

void frmExport::SetRunning(bool on) {
    running_ = on;
    pages_->setCurrentWidget(on ? picDoing_ : fraOutput_);
    for (QPushButton *button : {cmdOK_, cmdCancel_}) button->setEnabled(!on);
    argument_.Frm.SetMousePointer(on ? kHourglass : kNormal);
    if (!on) cmdOK_->setFocus();
}

void frmExport::cmdOK_Click() {
    if (running_) return;
    givenUp_ = false;
    SetRunning(true);
    support::Report(clsExport::kForm, "cmdOK_Click", [this] { Run(); });
    SetRunning(false);
}

void frmExport::Run() {
    const ReportOptions options = Options();
    if (!ExportReport(argument_.Frm, argument_.AF, argument_.Filename, options, *this)) return;
    RememberReportOptions(options);
    Doing(QStringLiteral("Opening File..."));
    support::cOpenFile(argument_.Frm.Desktop()).LaunchFile(argument_.Filename);
    accept();
}

void frmExport::reject() {
    if (running_)
        givenUp_ = true;
    else
        QDialog::reject();
}

void frmExport::Slice(const QString &caption, int done, int slices) {
    lblMap_->setText(
        lblMap_->fontMetrics().elidedText(caption.simplified(), Qt::ElideRight, lblMap_->width()));
    prg1_->setRange(0, slices);
    prg1_->setValue(done);
}

void frmExport::Nodes(int done, int nodes) {
    prg2_->setRange(0, std::max(nodes, 1));
    prg2_->setValue(done);
}

void frmExport::Doing(const QString &text) {
    constexpr int kLongest = 200; // a node may hold a book
    const QString line = text.left(kLongest).simplified();
    lblDoing_->setText(lblDoing_->fontMetrics().elidedText(line, Qt::ElideRight, lblDoing_->width()));
}

bool frmExport::GoOn() {
    LetEventsRun();
    return !givenUp_;
}

// Not each time it is asked: a report may have thousands of nodes.
void frmExport::LetEventsRun() {
    constexpr qint64 kOften = 40; // milliseconds
    if (sinceShown_.isValid() && sinceShown_.elapsed() < kOften) return;
    QCoreApplication::processEvents();
    sinceShown_.start();
}

} // namespace output
