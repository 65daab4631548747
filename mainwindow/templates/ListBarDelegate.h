// Paints the headings and items of a ListBar.
#pragma once

#include <QStyledItemDelegate>

namespace mainwindow {

// What the model of a list bar holds beside caption (display) and icon (decoration).
namespace listrole {
constexpr int kKey = Qt::UserRole + 1;
constexpr int kTag = Qt::UserRole + 2;
constexpr int kBackColor = Qt::UserRole + 3; // of bars
constexpr int kNote = Qt::UserRole + 4;      // of bars
} // namespace listrole

class ListBarDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    // Whether the caption is cut off in a row of that size.
    bool IsCut(const QStyleOptionViewItem &option, const QModelIndex &index) const;
};

} // namespace mainwindow
