#include "mainwindow/forms/frmLayers.h"

#include "mainwindow/controls/ucEctchedLines.h"
#include "settings/Settings.h"
#include "support/Error.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace mainwindow {

frmLayers::frmLayers(support::Desktop &desktop, const std::vector<document::cSlice> &slices,
                     int iSelectedItem, QWidget *parent)
    : QDialog(parent), desktop_(desktop), cLayers_(slices), list_(slices) {
    setObjectName(QLatin1String(kForm));
    setWindowTitle(QStringLiteral("Layers"));
    BuildControls();
    ShowRows(iSelectedItem);
}

void frmLayers::BuildControls() {
    auto *grid = new QGridLayout(this);
    auto *label = new QLabel(QStringLiteral("&Layers:"), this);
    lvwLayers_ = new QListWidget(this);
    lvwLayers_->setObjectName(QStringLiteral("lvwLayers"));
    lvwLayers_->setAccessibleName(QStringLiteral("Layers"));
    label->setBuddy(lvwLayers_);
    grid->addWidget(label, 0, 0);
    grid->addWidget(lvwLayers_, 1, 0);

    auto *buttons = new QVBoxLayout;
    buttons->addWidget(AddButton("cmdNew", QStringLiteral("&New"), &frmLayers::cmdNew_Click));
    buttons->addWidget(cmdEdit_ = AddButton("cmdEdit", QStringLiteral("&Edit"), &frmLayers::cmdEdit_Click));
    buttons->addWidget(cmdDelete_ =
                           AddButton("cmdDelete", QStringLiteral("&Delete"), &frmLayers::cmdDelete_Click));
    buttons->addSpacing(12);
    buttons->addWidget(cmdUp_ = AddButton("cmdUp", QStringLiteral("Up"), &frmLayers::cmdUp_Click));
    buttons->addWidget(cmdDown_ = AddButton("cmdDown", QStringLiteral("Down"), &frmLayers::cmdDown_Click));
    buttons->addStretch();
    grid->addLayout(buttons, 1, 1);

    auto *line = new ucEctchedLines(this);
    line->SetVertical(false);
    grid->addWidget(line, 2, 0, 1, 2);
    auto *closing = new QDialogButtonBox(this);
    closing->addButton(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
    QPushButton *cancel = closing->addButton(QStringLiteral("&Cancel"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    grid->addWidget(closing, 3, 0, 1, 2);
    connect(closing, &QDialogButtonBox::accepted, this, &frmLayers::cmdOK_Click);
    connect(closing, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(lvwLayers_, &QListWidget::currentRowChanged, this, &frmLayers::UpdateButtons);
    connect(lvwLayers_, &QListWidget::itemDoubleClicked, cmdEdit_, &QPushButton::click);
    lvwLayers_->setFocus();
}

QPushButton *frmLayers::AddButton(const char *name, const QString &text, void (frmLayers::*click)()) {
    auto *button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, routine = QByteArray(name) + "_Click", click] {
        support::Report("frmLayers", routine.constData(), [&] { (this->*click)(); });
    });
    return button;
}

void frmLayers::ShowRows(int selected) {
    lvwLayers_->clear();
    for (int row = 0; row < list_.Count(); ++row) lvwLayers_->addItem(list_.Name(row));
    if (selected < list_.Count()) lvwLayers_->setCurrentRow(selected);
    UpdateButtons();
}

void frmLayers::UpdateButtons() {
    const int row = lvwLayers_->currentRow();
    cmdEdit_->setEnabled(row >= 0);
    cmdDelete_->setEnabled(row >= 0);
    cmdUp_->setEnabled(row > 0);
    cmdDown_->setEnabled(row >= 0 && row + 1 < list_.Count());
}

QString frmLayers::AskName(const QString &preset) {
    return desktop_.messageBoxes.InputBox(QStringLiteral("Name for %1.").arg(settings::Terms().SLICE),
                                          settings::Terms().TITLE, preset);
}

void frmLayers::cmdNew_Click() {
    const QString name = AskName(QString());
    if (!name.isEmpty()) ShowRows(list_.Add(name));
}

void frmLayers::cmdEdit_Click() {
    const int row = lvwLayers_->currentRow();
    if (row < 0) return;
    const QString name = AskName(list_.Name(row));
    if (name.isEmpty()) return;
    list_.Rename(row, name);
    ShowRows(row);
}

void frmLayers::cmdDelete_Click() {
    const int row = lvwLayers_->currentRow();
    if (row < 0) return;
    const settings::ProductTerms &terms = settings::Terms();
    if (list_.Count() == 1) {
        desktop_.messageBoxes.Show(
            QStringLiteral("Cannot remove %1\r\n\r\nThere must be at least one %1 per %2")
                .arg(terms.SLICE, terms.MAP),
            support::Buttons::Ok, support::Icon::Stop, terms.TITLE);
        return;
    }
    const QString question = QStringLiteral("Are you sure you want to delete '%1'?").arg(list_.Name(row));
    if (desktop_.messageBoxes.Show(question, support::Buttons::YesNo, support::Icon::None, terms.TITLE,
                                   support::EnterPresses::No) != support::Answer::Yes)
        return;
    list_.Remove(row);
    ShowRows(qMin(row, list_.Count() - 1));
}

void frmLayers::MoveRow(int by) {
    const int row = lvwLayers_->currentRow();
    if (row >= 0) ShowRows(list_.Move(row, by));
}

void frmLayers::OkIfEdited() {
    if (list_.Slices() != SliceList(cLayers_).Slices()) cmdOK_Click();
}

void frmLayers::cmdOK_Click() {
    cLayers_ = list_.Slices();
    accept();
}

} // namespace mainwindow
