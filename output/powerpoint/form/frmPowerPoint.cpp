#include "output/powerpoint/form/frmPowerPoint.h"

#include "document/MapWindow.h"
#include "settings/Settings.h"
#include "support/cOpenFile.h"
#include "support/Error.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace powerpoint {

namespace {

constexpr int kTitleButtons = 130; // pixels beside the caption of a window

QCheckBox *AddTick(QVBoxLayout &column, const char *name, const QString &text) {
    auto *tick = new QCheckBox(settings::ReplaceTerms(text));
    tick->setObjectName(QLatin1String(name));
    column.addWidget(tick);
    return tick;
}

} // namespace

frmPowerPoint::frmPowerPoint(PowerPointArgument &argument, QWidget *parent)
    : QDialog(parent), argument_(argument) {
    setObjectName(QLatin1String(PowerPointArgument::kForm));
    setWindowTitle(QStringLiteral("PowerPoint Export Options"));
    argument_.frmForm.SetMousePointer(document::pointer::kNormal);
    setMinimumWidth(fontMetrics().horizontalAdvance(windowTitle()) + kTitleButtons);
    BuildControls();
    ShowChoice(LoadChoice());
    ShowWork(false);
}

void frmPowerPoint::BuildControls() {
    auto *column = new QVBoxLayout(this);
    chkAll_ = AddTick(*column, "chkAll", QStringLiteral("Export All @SLICE's"));
    chkTitle_ = AddTick(*column, "chkTitle", QStringLiteral("Include title in slide"));
    chkShapes_ = AddTick(*column, "chkShapes", tr("&Shapes instead of a picture"));
    chkShapes_->setToolTip(
        settings::ReplaceTerms(tr("Each @NODE and @LINK becomes a shape that you can edit in PowerPoint. "
                                  "Files that end in .ppt hold pictures alone.")));
    lblDoing_ = new QLabel(this);
    lblDoing_->setObjectName(QStringLiteral("lblDoing"));
    prg1_ = new QProgressBar(this);
    prg1_->setObjectName(QStringLiteral("prg1"));
    prg1_->setAccessibleName(tr("Progress"));
    column->addSpacing(4);
    column->addWidget(lblDoing_);
    column->addWidget(prg1_);
    column->addStretch();
    buttons_ = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons_->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
    auto *cancel = buttons_->button(QDialogButtonBox::Cancel);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cancel->setText(QStringLiteral("&Cancel"));
    connect(buttons_, &QDialogButtonBox::accepted, this, &frmPowerPoint::cmdOK_Click);
    connect(buttons_, &QDialogButtonBox::rejected, this, &frmPowerPoint::reject);
    column->addWidget(buttons_);
}

void frmPowerPoint::ShowChoice(const FormChoice &choice) {
    chkAll_->setChecked(choice.all);
    chkTitle_->setChecked(choice.title);
    chkShapes_->setEnabled(!IsBinary(argument_.Filename));
    chkShapes_->setChecked(choice.shapes && chkShapes_->isEnabled());
}

// What can't be chosen this time stays as it was for the next.
FormChoice frmPowerPoint::Choice() const {
    const bool shapes = chkShapes_->isEnabled() ? chkShapes_->isChecked() : LoadChoice().shapes;
    return {chkAll_->isChecked(), chkTitle_->isChecked(), shapes};
}

void frmPowerPoint::ShowWork(bool working) {
    working_ = working;
    for (QWidget *choice : {static_cast<QWidget *>(chkAll_), static_cast<QWidget *>(chkTitle_)})
        choice->setEnabled(!working);
    chkShapes_->setEnabled(!working && !IsBinary(argument_.Filename));
    buttons_->button(QDialogButtonBox::Ok)->setEnabled(!working);
    lblDoing_->setVisible(working);
    prg1_->setVisible(working);
}

bool frmPowerPoint::GoOn(int done, int all) {
    lblDoing_->setText(settings::ReplaceTerms(tr("@SLICE %1 of %2")).arg(done).arg(all));
    prg1_->setRange(0, all);
    prg1_->setValue(done);
    QCoreApplication::processEvents();
    return !givenUp_;
}

void frmPowerPoint::cmdOK_Click() {
    if (working_) return;
    const FormChoice choice = Choice();
    support::Report("frmPowerPoint", "cmdOK_Click", [&] { SaveChoice(choice); });
    givenUp_ = false;
    ShowWork(true);
    const bool written = CreatePowerpoint(argument_.Filename, argument_.frmForm, OptionsOf(choice),
                                          [this](int done, int all) { return GoOn(done, all); });
    ShowWork(false);
    if (written)
        support::Report("frmPowerPoint", "cmdOK_Click", [this] {
            support::cOpenFile(argument_.frmForm.Desktop()).LaunchFile(argument_.Filename);
        });
    QDialog::done(written ? Accepted : Rejected);
}

void frmPowerPoint::reject() {
    if (working_)
        givenUp_ = true;
    else
        QDialog::reject();
}

} // namespace powerpoint
