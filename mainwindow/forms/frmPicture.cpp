#include "mainwindow/forms/frmPicture.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

namespace mainwindow {

frmPicture::frmPicture(PictureFormArgument &argument, QWidget *parent)
    : QDialog(parent), argument_(argument) {
    setObjectName(QLatin1String(PictureFormArgument::kForm));
    setWindowTitle(tr("Export as Picture"));
    auto *form = new QFormLayout(this);
    form->setSizeConstraint(QLayout::SetFixedSize);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    AddSize(*form);
    AddBackground(*form);
    lblSize_ = new QLabel(this);
    lblSize_->setObjectName(QStringLiteral("lblSize"));
    lblSize_->setMinimumWidth(lblSize_->fontMetrics().horizontalAdvance(QString(38, u'0')));
    form->addRow(tr("The picture becomes"), lblSize_);
    AddButtons(*form);
    ShowSize();
}

QSpinBox *frmPicture::AddNumber(const char *name, const QString &spoken, int lowest, int highest, int value) {
    auto *box = new QSpinBox(this);
    box->setObjectName(QLatin1String(name));
    box->setAccessibleName(spoken);
    box->setRange(lowest, highest);
    box->setValue(value);
    connect(box, &QSpinBox::valueChanged, this, &frmPicture::ShowSize);
    return box;
}

// ShowSize enables the number beside the chosen option alone.
QRadioButton *frmPicture::AddOption(const char *name, const QString &text, bool chosen) {
    auto *option = new QRadioButton(text, this);
    option->setObjectName(QLatin1String(name));
    option->setChecked(chosen);
    connect(option, &QRadioButton::toggled, this, &frmPicture::ShowSize);
    return option;
}

void frmPicture::AddSize(QFormLayout &form) {
    const PictureChoice &choice = argument_.choice;
    txtScale_ = AddNumber("txtScale", tr("Scale"), kLeastScale, kMostScale, choice.scale);
    txtScale_->setSuffix(tr(" %"));
    if (!IsPng()) return form.addRow(tr("&Scale"), txtScale_);
    txtPixels_ = AddNumber("txtPixels", tr("Longest side"), kLeastSide, kMostSidePixels, choice.pixels);
    txtPixels_->setSuffix(tr(" pixels"));
    txtDots_ = AddNumber("txtDots", tr("Resolution"), kLeastDots, kMostDots, choice.dotsPerInch);
    txtDots_->setSuffix(tr(" dots per inch"));
    optScale_ = AddOption("optScale", tr("&Scale"), !choice.bySide);
    optPixels_ = AddOption("optPixels", tr("&Longest side"), choice.bySide);
    form.addRow(optScale_, txtScale_);
    form.addRow(optPixels_, txtPixels_);
    form.addRow(tr("&Resolution"), txtDots_);
}

void frmPicture::AddBackground(QFormLayout &form) {
    cboBackground_ = new QComboBox(this);
    cboBackground_->setObjectName(QStringLiteral("cboBackground"));
    // In the order of PictureBackground.
    cboBackground_->addItems({tr("As shown"), tr("White"), tr("Transparent")});
    cboBackground_->setCurrentIndex(int(argument_.choice.background));
    form.addRow(tr("&Background"), cboBackground_);
}

void frmPicture::AddButtons(QFormLayout &form) {
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
    buttons->button(QDialogButtonBox::Ok)->setText(tr("&Export"));
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("cmdCancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    form.addRow(buttons);
}

// What this format has no control for keeps its value.
PictureChoice frmPicture::Choice() const {
    PictureChoice choice = argument_.choice;
    choice.scale = txtScale_->value();
    choice.background = diagram::PictureBackground(cboBackground_->currentIndex());
    if (!IsPng()) return choice;
    choice.bySide = optPixels_->isChecked();
    choice.pixels = txtPixels_->value();
    choice.dotsPerInch = txtDots_->value();
    return choice;
}

void frmPicture::ShowSize() {
    if (!lblSize_) return; // still being built
    if (IsPng()) {
        txtScale_->setEnabled(optScale_->isChecked());
        txtPixels_->setEnabled(optPixels_->isChecked());
    }
    lblSize_->setText(SizeText(Choice(), argument_.format, argument_.page));
}

void frmPicture::accept() {
    argument_.choice = Choice();
    QDialog::accept();
}

} // namespace mainwindow
