#include "dialogs/frmLevels.h"

#include "dialogs/GiveLevel.h"
#include "document/cLevels.h"
#include "document/MapWindow.h"
#include "settings/Settings.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace dialogs {

frmLevels::frmLevels(LevelsFormArgument &argument, QWidget *parent)
    : NamesForm({LevelsFormArgument::kForm, QStringLiteral("Levels"), QStringLiteral("&Levels"),
                 QStringLiteral("Level")},
                NameList::Colours::Shown, argument.window, argument.status, parent),
      oLevels_(argument.oLevels),
      nodesByLevel_(NodesByLevel(argument.window)) {
    NeedsRow(*AddButton("cmdColor", QStringLiteral("Colo&r"), [this] { cmdColor_Click(); }));
    lvwColor()->header()->setSectionsClickable(true);
    connect(lvwColor()->header(), &QHeaderView::sectionClicked, this, &frmLevels::lvwColor_ColumnClick);
    BuildGive();
    ShowRows(RowsOf(oLevels_));
    RowsChanged();
}

void frmLevels::BuildGive() {
    give_ = new QWidget(this);
    auto *line = new QVBoxLayout(give_);
    line->setContentsMargins(0, 0, 0, 0);
    lblGive_ = new QLabel(give_);
    lblGive_->setObjectName(QStringLiteral("lblGive"));
    lblGive_->setWordWrap(true);
    cboGive_ = new QComboBox(give_);
    cboGive_->setObjectName(QStringLiteral("cboGive"));
    cboGive_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboGive_->setMinimumContentsLength(12);
    lblGive_->setBuddy(cboGive_);
    line->addWidget(lblGive_);
    line->addWidget(cboGive_);
    AddBelowList(*give_, *cboGive_);
}

void frmLevels::lvwColor_AfterLabelEdit(QTreeWidgetItem &row, const QString &text) {
    const bool isNew = row.text(0) == kNewItem;
    row.setText(0, text);
    if (isNew) ChooseColour(row);
}

void frmLevels::lvwColor_ColumnClick() { setWindowTitle(QString::number(lvwColor()->columnWidth(0))); }

void frmLevels::cmdColor_Click() {
    Run("cmdColor_Click", [this] {
        if (QTreeWidgetItem *row = lvwColor()->currentItem()) ChooseColour(*row);
    });
}

void frmLevels::ChooseColour(QTreeWidgetItem &row) {
    const support::Colour chosen =
        Window().Desktop().dialogs.ShowColorDialog(this, true, NameList::ColourOf(row));
    if (chosen == support::kNoColour) return;
    lvwColor()->SetColour(row, chosen);
    RowsChanged();
}

NameRows frmLevels::DeletedInUse(const NameRows &rows) const {
    NameRows used = DeletedRows(Former(), rows);
    std::erase_if(used, [this](const NameRow &row) { return !nodesByLevel_.contains(row.key); });
    return used;
}

void frmLevels::RowsChanged() {
    const NameRows used = DeletedInUse(lvwColor()->Rows());
    give_->setVisible(!used.empty());
    if (used.empty()) return;
    int nodes = 0;
    for (const NameRow &row : used) nodes += nodesByLevel_.value(row.key);
    const QString text = used.size() == 1 ? tr("@NODEs of the deleted level: %1. &Give them:")
                                          : tr("@NODEs of the deleted levels: %1. &Give them:");
    lblGive_->setText(settings::ReplaceTerms(text).arg(QLocale().toString(nodes)));
    FillGive();
}

// The choice stays as long as its row is there.
void frmLevels::FillGive() {
    const QVariant chosen = cboGive_->currentData();
    cboGive_->clear();
    cboGive_->addItem(tr("Their level, as before"));
    for (int at = 0; at < lvwColor()->topLevelItemCount(); ++at) {
        QTreeWidgetItem *row = lvwColor()->topLevelItem(at);
        cboGive_->addItem(row->icon(0), row->text(0), QVariant::fromValue(static_cast<void *>(row)));
    }
    cboGive_->setCurrentIndex(qMax(0, chosen.isNull() ? 0 : cboGive_->findData(chosen)));
}

void frmLevels::Store(NameRows &rows) {
    const NameRows used = DeletedInUse(rows);
    const int target = cboGive_->currentIndex() - 1; // the position of its row
    StoreRows(rows, oLevels_);
    if (used.empty() || target < 0) return;
    QSet<QString> keys;
    for (const NameRow &row : used) keys.insert(row.key);
    GiveLevel(Window(), keys, oLevels_.Item(rows[std::size_t(target)].key));
}

} // namespace dialogs
