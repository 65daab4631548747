// What the user does with the list: keys, wheel, menu, drag, tool tips.
#include "mainwindow/templates/ListBar.h"
#include "mainwindow/templates/ListBarDelegate.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>
#include <QWheelEvent>

namespace mainwindow {

namespace {

bool EndsTips(QEvent::Type type) {
    return type == QEvent::Leave || type == QEvent::Wheel || type == QEvent::MouseButtonPress ||
           type == QEvent::Hide || type == QEvent::Resize;
}

} // namespace

void ListBar::keyPressEvent(QKeyEvent *event) {
    const auto place = CurrentItem();
    EndTip();
    switch (event->modifiers() & ~Qt::KeypadModifier ? 0 : event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        return Activate(currentIndex());
    case Qt::Key_F2:
        if (place) Q_EMIT RenameAsked(place->bar, place->item);
        return;
    case Qt::Key_Delete:
        if (place) Q_EMIT DeleteAsked(place->bar, place->item);
        return;
    case Qt::Key_Escape:
        return Q_EMIT Left();
    default:
        QTreeView::keyPressEvent(event);
    }
}

// Left goes from an item to the heading of its bar; on a heading Left folds and Right unfolds.
QModelIndex ListBar::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const bool back = action == (isRightToLeft() ? MoveRight : MoveLeft);
    if (back && PlaceOf(currentIndex())) return currentIndex().parent();
    return QTreeView::moveCursor(action, modifiers);
}

void ListBar::wheelEvent(QWheelEvent *event) {
    EndTip();
    if (!(event->modifiers() & Qt::ControlModifier)) return QTreeView::wheelEvent(event);
    if (const int turn = event->angleDelta().y()) StepIcons(turn > 0 ? 1 : -1);
    event->accept();
}

void ListBar::contextMenuEvent(QContextMenuEvent *event) {
    EndTip();
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? currentIndex() : indexAt(event->pos());
    const QPoint at = byKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos();
    if (index.isValid()) setCurrentIndex(index);
    const auto place = PlaceOf(index);
    const int bar = place ? place->bar : index.row();
    Q_EMIT MenuAsked(bar, place ? place->item : -1, at);
    event->accept();
}

void ListBar::startDrag(Qt::DropActions) {
    EndTip();
    if (const auto place = CurrentItem()) Q_EMIT DragAsked(place->bar, place->item);
}

bool ListBar::viewportEvent(QEvent *event) {
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        ShowTip(help->pos(), help->globalPos());
        return true;
    }
    if (EndsTips(event->type())) EndTip();
    if (event->type() == QEvent::Leave) Hover({});
    if (event->type() == QEvent::MouseMove)
        Hover(indexAt(static_cast<QMouseEvent *>(event)->position().toPoint()));
    return QTreeView::viewportEvent(event);
}

void ListBar::Hover(const QModelIndex &index) {
    if (hovered_ == index) return;
    for (const QModelIndex &row : {QModelIndex(hovered_), index})
        if (row.isValid()) viewport()->update(visualRect(row));
    hovered_ = index;
    if (tipShown_ && PlaceOf(index)) return AskForTip(index); // without waiting again
    EndTip();
}

void ListBar::AskForTip(const QModelIndex &index) {
    tipShown_ = true;
    const QRect row = visualRect(index);
    Q_EMIT TipAsked(index.parent().row(), index.row(),
                    QRect(viewport()->mapToGlobal(row.topLeft()), row.size()));
}

void ListBar::ShowTip(const QPoint &at, const QPoint &global) {
    const QModelIndex index = indexAt(at);
    if (PlaceOf(index)) return AskForTip(index);
    EndTip();
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    const auto *delegate = static_cast<const ListBarDelegate *>(itemDelegate());
    if (index.isValid() && delegate->IsCut(option, index))
        QToolTip::showText(global, index.data().toString().toHtmlEscaped(), this, option.rect);
}

void ListBar::EndTip() {
    if (!std::exchange(tipShown_, false)) return;
    Q_EMIT TipOver();
}

// The delegate paints the whole row, without the branches and the background that the style would add.
void ListBar::drawRow(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    QStyleOptionViewItem row = option;
    row.rect = visualRect(index);
    row.state.setFlag(QStyle::State_Open, isExpanded(index));
    row.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
    row.state.setFlag(QStyle::State_HasFocus, hasFocus() && index == currentIndex());
    row.state.setFlag(QStyle::State_MouseOver, index == hovered_);
    itemDelegate()->paint(painter, row, index);
}

} // namespace mainwindow
