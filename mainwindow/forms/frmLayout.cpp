#include "mainwindow/forms/frmLayout.h"

#include "diagram/geometry/Units.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>

namespace mainwindow {

namespace {
using diagram::kTwipsPerPixel;
constexpr int kFurthest = 1000; // pixels
} // namespace

frmLayout::frmLayout(const LayoutFormArgument &argument, QWidget *parent)
    : QDialog(parent), tool_(argument.tool) {
    setObjectName(QLatin1String(LayoutFormArgument::kForm));
    setWindowTitle(argument.title);
    cboOrientation_ = new QComboBox(this);
    cboOrientation_->setObjectName(QStringLiteral("cboOrientation"));
    // In the order of LayoutOrientation.
    cboOrientation_->addItems({tr("Downwards"), tr("Upwards"), tr("To the right"), tr("To the left")});
    cboOrientation_->setCurrentIndex(int(tool_.options.orientation));
    txtLevels_ = AddDistance("txtLevels", tool_.options.levelDistance);
    txtNeighbours_ = AddDistance("txtNeighbours", tool_.options.neighbourDistance);
    cboTogether_ = new QComboBox(this);
    cboTogether_->setObjectName(QStringLiteral("cboTogether"));
    // In the order of Together.
    cboTogether_->addItems({tr("Nothing"), tr("Levels"), tr("Groups")});
    cboTogether_->setCurrentIndex(int(tool_.together));
    chkSelection_ = new QCheckBox(tr("Lay out only what is &selected"), this);
    chkSelection_->setObjectName(QStringLiteral("chkSelection"));
    chkSelection_->setChecked(tool_.scope == diagram::LayoutScope::Selection);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *form = new QFormLayout(this);
    form->addRow(tr("&Orientation"), cboOrientation_);
    form->addRow(tr("Distance of &levels"), txtLevels_);
    form->addRow(tr("Distance of &neighbours"), txtNeighbours_);
    form->addRow(tr("&Keep together"), cboTogether_);
    form->setRowVisible(cboTogether_, argument.keepsTogether);
    form->addRow(chkSelection_);
    form->addRow(buttons);
}

QDoubleSpinBox *frmLayout::AddDistance(const char *name, double twips) {
    auto *box = new QDoubleSpinBox(this);
    box->setObjectName(QLatin1String(name));
    box->setDecimals(0);
    box->setRange(0, kFurthest);
    box->setSuffix(tr(" px"));
    box->setValue(twips / kTwipsPerPixel);
    return box;
}

void frmLayout::accept() {
    tool_.options = {diagram::LayoutOrientation(cboOrientation_->currentIndex()),
                     txtLevels_->value() * kTwipsPerPixel, txtNeighbours_->value() * kTwipsPerPixel};
    tool_.together = document::Together(cboTogether_->currentIndex());
    tool_.scope = chkSelection_->isChecked() ? diagram::LayoutScope::Selection : diagram::LayoutScope::All;
    QDialog::accept();
}

} // namespace mainwindow
