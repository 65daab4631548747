#include "mainwindow/start/TileLayout.h"

#include <algorithm>

namespace mainwindow {

TileLayout::~TileLayout() {
    for (QLayoutItem *item : items_) delete item; // the widgets are their parent's
}

void TileLayout::addItem(QLayoutItem *item) { items_.push_back(item); }

QLayoutItem *TileLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? items_[std::size_t(index)] : nullptr;
}

QLayoutItem *TileLayout::takeAt(int index) {
    QLayoutItem *item = itemAt(index);
    if (item) items_.erase(items_.begin() + index);
    return item;
}

QSize TileLayout::TileSize() const {
    QSize size;
    for (const QLayoutItem *item : items_)
        if (!item->isEmpty()) size = size.expandedTo(item->sizeHint());
    return size;
}

int TileLayout::VisibleCount() const {
    return int(std::ranges::count_if(items_, [](const QLayoutItem *item) { return !item->isEmpty(); }));
}

int TileLayout::ColumnsIn(int width) const {
    const int tile = std::max(TileSize().width(), 1);
    return std::max(1, (width + spacing()) / (tile + spacing()));
}

int TileLayout::heightForWidth(int width) const {
    const int columns = ColumnsIn(width), rows = (VisibleCount() + columns - 1) / columns;
    return rows == 0 ? 0 : rows * TileSize().height() + (rows - 1) * spacing();
}

void TileLayout::setGeometry(const QRect &rect) {
    QLayout::setGeometry(rect);
    const QSize tile = TileSize();
    const int columns = ColumnsIn(rect.width());
    int at = 0;
    for (QLayoutItem *item : items_) {
        if (item->isEmpty()) continue;
        const QPoint place(at % columns * (tile.width() + spacing()),
                           at / columns * (tile.height() + spacing()));
        item->setGeometry(QRect(rect.topLeft() + place, tile));
        ++at;
    }
}

} // namespace mainwindow
