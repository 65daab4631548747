// Rows of font names, each written in its font.
#pragma once

#include <QStyledItemDelegate>

namespace mainwindow {

// A font is loaded when its row is painted. All rows are equally high.
class FontSamples : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};

} // namespace mainwindow
