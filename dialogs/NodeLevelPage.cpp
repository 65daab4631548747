#include "dialogs/NodeLevelPage.h"

#include "dialogs/ListIndex.h"
#include "document/clsfrmMain.h"
#include "document/Tags.h"

#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QScopedValueRollback>

namespace dialogs {

namespace {

constexpr QSize kSwatch(16, 16); // pixels
constexpr int kRowRim = 6;       // pixels above and below the text of a row, together

QListWidgetItem *Unmarked(const QListWidget &list, const QString &text) {
    auto *item = new QListWidgetItem(text);
    item->setSizeHint({0, qMax(kSwatch.height(), list.fontMetrics().height()) + kRowRim});
    item->setToolTip(text);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(Qt::Unchecked);
    return item;
}

// The entry at `index`, or the first one instead of none.
void Mark(QListWidget &list, int index) {
    if (QListWidgetItem *item = list.item(qMax(index, 0))) item->setCheckState(Qt::Checked);
}

QStringList MarkedTexts(const QListWidget &list) {
    QStringList texts;
    for (int row = 0; row < list.count(); ++row)
        if (list.item(row)->checkState() == Qt::Checked) texts << list.item(row)->text();
    return texts;
}

} // namespace

NodeLevelPage::NodeLevelPage(QWidget *parent) : QWidget(parent) {
    auto *grid = new QGridLayout(this);
    lstLevels_ = AddList(*grid, 0, tr("&Levels"), "lstLevels");
    lstGroups_ = AddList(*grid, 1, tr("&Groups"), "lstGroups");
    connect(lstLevels_, &QListWidget::itemChanged, this, &NodeLevelPage::lstLevels_ItemCheck);
}

QListWidget *NodeLevelPage::AddList(QGridLayout &grid, int column, const QString &label, const char *name) {
    auto *list = new QListWidget(this);
    list->setObjectName(QLatin1String(name));
    list->setAccessibleName(QString(label).remove(u'&'));
    list->setUniformItemSizes(true);
    list->setIconSize(kSwatch);
    list->setTextElideMode(Qt::ElideRight);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *text = new QLabel(label, this);
    text->setBuddy(list);
    grid.addWidget(text, 0, column);
    grid.addWidget(list, 1, column);
    return list;
}

bool NodeLevelPage::IsFilled() const { return lstLevels_->count() > 0 || lstGroups_->count() > 0; }

void NodeLevelPage::Fill(document::clsfrmMain &settings, const diagram::Node &oNode) {
    if (IsFilled()) return;
    FillLevels(settings, oNode);
    FillGroups(settings, oNode);
}

void NodeLevelPage::FillLevels(document::clsfrmMain &settings, const diagram::Node &oNode) {
    for (const document::cLevel &level : settings.Levels()) {
        QListWidgetItem *item = Unmarked(*lstLevels_, level.LevelName);
        item->setData(Qt::UserRole, level.Color);
        item->setData(Qt::DecorationRole, support::ToQColor(level.Color));
        lstLevels_->addItem(item);
    }
    const QString key = document::GetTag(oNode, document::tags::kLevel);
    Mark(*lstLevels_, DoFindIndex2(*lstLevels_, settings.Levels().LevelNameForKey(key)));
}

// Each key that no group has marks the first group.
void NodeLevelPage::FillGroups(document::clsfrmMain &settings, const diagram::Node &oNode) {
    for (const document::cGroup &group : settings.Groups())
        lstGroups_->addItem(Unmarked(*lstGroups_, group.GroupName));
    const QString keys = document::GetTag(oNode, document::tags::kGroup);
    for (const QString &key : keys.split(u','))
        Mark(*lstGroups_, DoFindIndex2(*lstGroups_, settings.Groups().GroupNameForKey(key)));
}

// One level at most, which can't be unmarked but by marking another.
void NodeLevelPage::lstLevels_ItemCheck(QListWidgetItem *item) {
    if (checking_) return;
    const QScopedValueRollback guard(checking_, true);
    for (int row = 0; row < lstLevels_->count(); ++row)
        lstLevels_->item(row)->setCheckState(lstLevels_->item(row) == item ? Qt::Checked : Qt::Unchecked);
    Q_EMIT LevelMarked(item->data(Qt::UserRole).toInt());
}

void NodeLevelPage::SelectLevel() {
    lstLevels_->setCurrentRow(DoFindIndex2(*lstLevels_, MarkedTexts(*lstLevels_).value(0)));
}

void NodeLevelPage::Store(NodeEdit &edit) const {
    if (!IsFilled()) return;
    edit.membership = Membership{MarkedTexts(*lstLevels_).value(0), MarkedTexts(*lstGroups_)};
}

} // namespace dialogs
