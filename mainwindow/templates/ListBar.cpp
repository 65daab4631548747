#include "mainwindow/templates/ListBar.h"

#include "mainwindow/templates/ListBarDelegate.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <QStandardItemModel>

namespace mainwindow {

namespace {

constexpr std::array kIconSides = {24, 32, 48, 64, 96};
constexpr int kUsualIconSide = 48;

// A bar can be opened before it has items.
class BarModel : public QStandardItemModel {
public:
    using QStandardItemModel::QStandardItemModel;
    bool hasChildren(const QModelIndex &parent) const override { return !parent.parent().isValid(); }
};

std::size_t StepOf(int side) {
    const auto nearest = std::min_element(kIconSides.begin(), kIconSides.end(), [side](int a, int b) {
        return std::abs(a - side) < std::abs(b - side);
    });
    return std::size_t(nearest - kIconSides.begin());
}

void Fill(QStandardItem &row, const ListBarItem &item) {
    row.setText(item.caption);
    row.setData(item.key, listrole::kKey);
    row.setData(item.tag, listrole::kTag);
    row.setIcon(item.icon);
    row.setData(item.caption, Qt::AccessibleTextRole);
}

} // namespace

ListBar::ListBar(QWidget *parent) : QTreeView(parent), model_(new BarModel(this)) {
    setModel(model_);
    setItemDelegate(new ListBarDelegate(this));
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setIndentation(0);
    setFrameShape(QFrame::NoFrame);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setExpandsOnDoubleClick(false);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setDragDropMode(QAbstractItemView::DragOnly);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_Hover);
    setIconSize({kUsualIconSide, kUsualIconSide});
    connect(this, &QTreeView::clicked, this, &ListBar::Activate);
    connect(this, &QTreeView::expanded, this, &ListBar::Opened);
}

void ListBar::Clear() {
    EndTip();
    model_->clear();
}

int ListBar::AddBar(const QString &caption, const QString &key) {
    auto *bar = new QStandardItem(caption);
    bar->setData(key, listrole::kKey);
    bar->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    model_->appendRow(bar);
    return BarCount() - 1;
}

int ListBar::BarCount() const { return model_->rowCount(); }

QModelIndex ListBar::BarIndex(int bar) const { return model_->index(bar, 0); }

QString ListBar::BarCaption(int bar) const { return BarIndex(bar).data().toString(); }

QString ListBar::BarKey(int bar) const { return BarIndex(bar).data(listrole::kKey).toString(); }

int ListBar::FindBar(const QString &key) const {
    for (int bar = 0; bar < BarCount(); ++bar)
        if (BarKey(bar) == key) return bar;
    return -1;
}

void ListBar::SetBarBackColor(int bar, const QColor &colour) {
    model_->setData(BarIndex(bar), colour, listrole::kBackColor);
}

QColor ListBar::BarBackColor(int bar) const {
    return BarIndex(bar).data(listrole::kBackColor).value<QColor>();
}

void ListBar::SetBarNote(int bar, const QString &note) {
    model_->setData(BarIndex(bar), note, listrole::kNote);
}

QString ListBar::BarNote(int bar) const { return BarIndex(bar).data(listrole::kNote).toString(); }

int ListBar::CurrentBar() const {
    for (int bar = 0; bar < BarCount(); ++bar)
        if (isExpanded(BarIndex(bar))) return bar;
    return -1;
}

void ListBar::OpenBar(int bar) { expand(BarIndex(bar)); }

void ListBar::FoldBar(int bar) { collapse(BarIndex(bar)); }

void ListBar::Opened(const QModelIndex &index) {
    for (int bar = 0; bar < BarCount(); ++bar)
        if (BarIndex(bar) != index) collapse(BarIndex(bar));
    Q_EMIT BarClick(index.row());
}

void ListBar::AddItem(int bar, const ListBarItem &item) {
    auto *row = new QStandardItem;
    row->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled);
    Fill(*row, item);
    model_->item(bar)->appendRow(row);
}

int ListBar::ItemCount(int bar) const { return model_->rowCount(BarIndex(bar)); }

QModelIndex ListBar::IndexOf(const Place &place) const {
    return model_->index(place.item, 0, BarIndex(place.bar));
}

ListBarItem ListBar::Item(int bar, int item) const {
    const QModelIndex index = IndexOf({bar, item});
    return {index.data().toString(), index.data(listrole::kKey).toString(),
            index.data(listrole::kTag).toString(), index.data(Qt::DecorationRole).value<QIcon>()};
}

void ListBar::SetItem(int bar, int item, const ListBarItem &changed) {
    if (QStandardItem *row = model_->itemFromIndex(IndexOf({bar, item}))) Fill(*row, changed);
}

void ListBar::RemoveItem(int bar, int item) {
    EndTip();
    model_->removeRow(item, BarIndex(bar));
}

std::optional<ListBar::Place> ListBar::FindItem(const QString &key) const {
    for (int bar = 0; bar < BarCount(); ++bar)
        for (int item = 0; item < ItemCount(bar); ++item)
            if (IndexOf({bar, item}).data(listrole::kKey).toString() == key) return Place{bar, item};
    return std::nullopt;
}

std::optional<ListBar::Place> ListBar::PlaceOf(const QModelIndex &index) {
    if (!index.isValid() || !index.parent().isValid()) return std::nullopt;
    return Place{index.parent().row(), index.row()};
}

std::optional<ListBar::Place> ListBar::CurrentItem() const { return PlaceOf(currentIndex()); }

void ListBar::SetCurrentItem(const Place &place) { setCurrentIndex(IndexOf(place)); }

QRect ListBar::ItemRect(const Place &place) const { return visualRect(IndexOf(place)); }

QRect ListBar::BarRect(int bar) const { return visualRect(BarIndex(bar)); }

void ListBar::SetIconSide(int side) {
    const int step = kIconSides[StepOf(side)];
    if (step == IconSide()) return;
    setIconSize({step, step});
    scheduleDelayedItemsLayout();
    Q_EMIT IconSideChanged(step);
}

bool ListBar::CanStepIcons(int step) const {
    const int at = int(StepOf(IconSide())) + step;
    return at >= 0 && at < int(kIconSides.size());
}

void ListBar::StepIcons(int step) {
    if (CanStepIcons(step)) SetIconSide(kIconSides[StepOf(IconSide()) + std::size_t(step)]);
}

void ListBar::Activate(const QModelIndex &index) {
    EndTip();
    if (const auto place = PlaceOf(index)) {
        Q_EMIT ItemClick(place->bar, place->item);
    } else if (index.isValid()) {
        setExpanded(index, !isExpanded(index));
    }
}

} // namespace mainwindow
