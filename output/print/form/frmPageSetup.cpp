#include "output/print/form/frmPageSetup.h"

#include "output/print/StorePageSetup.h"
#include "settings/Settings.h"
#include "support/Desktop.h"
#include "support/Error.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

namespace print {

// How the paper is turned comes from the program's printer, the rest from the control.
void frmPageSetup::Form_Load() {
    const PrnFlow &flow = argument_.print.PrnFlow1;
    txtHeader_->setText(flow.Header);
    txtFooter_->setText(flow.Footer);
    optOri_[argument_.print.PrinterOrientation() == kLandscape ? 1 : 0]->setChecked(true);
    chkFit_->setChecked(flow.FitToPage);
    cboPaper_->setCurrentIndex(std::max(0, cboPaper_->findData(flow.paper)));
    const QMarginsF &m = flow.margins;
    const double sides[] = {m.left(), m.top(), m.right(), m.bottom()};
    for (std::size_t i = 0; i < txtMargin_.size(); ++i) txtMargin_[i]->setValue(sides[i]);
    optSlices_[std::size_t(flow.slices)]->setChecked(true);
    for (const int slice : flow.chosen)
        if (QListWidgetItem *row = lstSlices_->item(slice)) row->setCheckState(Qt::Checked);
    txtPages_->setText(RangeText(flow.range));
    chkMarks_->setChecked(flow.marks);
    chkKeepWhole_->setChecked(flow.keepWhole);
    chkGrid_->setChecked(flow.grid);
    UpdateControls();
    UpdateTooNear();
}

// What has no effect on a single page can't be chosen for it.
void frmPageSetup::UpdateControls() {
    const bool several = !chkFit_->isChecked();
    chkMarks_->setEnabled(several);
    chkKeepWhole_->setEnabled(several);
    lstSlices_->setEnabled(optSlices_[std::size_t(Slices::Chosen)]->isChecked());
}

// Its label keeps its room while it is empty: nothing moves as the user types.
void frmPageSetup::UpdateTooNear() { lblTooNear_->setText(argument_.print.TooNearTheEdge(Shown())); }

PageSetup frmPageSetup::Shown() const {
    PageSetup setup = argument_.print.PrnFlow1;
    setup.Header = txtHeader_->text();
    setup.Footer = txtFooter_->text();
    setup.Orientation = optOri_[1]->isChecked() ? kLandscape : kPortrait;
    setup.FitToPage = chkFit_->isChecked();
    setup.paper = cboPaper_->currentData().toString();
    setup.margins = {txtMargin_[0]->value(), txtMargin_[1]->value(), txtMargin_[2]->value(),
                     txtMargin_[3]->value()};
    setup.marks = chkMarks_->isChecked();
    setup.keepWhole = chkKeepWhole_->isChecked();
    setup.grid = chkGrid_->isChecked();
    for (std::size_t i = 0; i < optSlices_.size(); ++i)
        if (optSlices_[i]->isChecked()) setup.slices = Slices(i);
    setup.chosen.clear();
    for (int row = 0; row < lstSlices_->count(); ++row)
        if (lstSlices_->item(row)->checkState() == Qt::Checked) setup.chosen.push_back(row);
    ReadRange(txtPages_->text(), setup.range);
    return setup;
}

// Says what is missing, and leads there.
bool frmPageSetup::IsComplete(const PageSetup &setup) {
    const auto complain = [this](const QString &text, QWidget *control) {
        argument_.desktop.messageBoxes.Show(settings::ReplaceTerms(text), support::Buttons::Ok,
                                            support::Icon::Exclamation, settings::Terms().TITLE);
        control->setFocus();
        return false;
    };
    PageRange range;
    if (!ReadRange(txtPages_->text(), range))
        return complain(tr("Please write the pages as one number or two with a dash, such as 2-5."),
                        txtPages_);
    if (setup.slices == Slices::Chosen && setup.chosen.empty())
        return complain(tr("Please tick the @SLICEs that are to be printed."), lstSlices_);
    return true;
}

void frmPageSetup::cmdOK_Click() {
    support::Report("frmPageSetup", "cmdOK_Click", [this] {
        const PageSetup setup = Shown();
        if (!IsComplete(setup)) return;
        StorePageSetup(setup, argument_.print);
        accept();
    });
}

} // namespace print
