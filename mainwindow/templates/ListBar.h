// A list of bars that fold and unfold, one of them at a time, with the items of each below its heading. It
// knows nothing of what the items stand for.
#pragma once

#include <optional>
#include <QColor>
#include <QIcon>
#include <QString>
#include <QTreeView>

class QStandardItem;
class QStandardItemModel;

namespace mainwindow {

struct ListBarItem {
    QString caption;
    QString key; // no two items of a list have the same
    QString tag;
    QIcon icon;
};

// Bars, and the items of a bar, are counted from 0.
class ListBar : public QTreeView {
    Q_OBJECT
public:
    explicit ListBar(QWidget *parent);

    struct Place {
        int bar, item;
    };

    void Clear();
    // Behind the last; gives its number. A bar without items can be opened like any other.
    int AddBar(const QString &caption, const QString &key);
    int BarCount() const;
    QString BarCaption(int bar) const;
    QString BarKey(int bar) const;
    // The bar with that key, or -1.
    int FindBar(const QString &key) const;
    // Of the heading; a dark theme paints its own instead.
    void SetBarBackColor(int bar, const QColor &colour);
    QColor BarBackColor(int bar) const;
    // A short text beside the heading's caption.
    void SetBarNote(int bar, const QString &note);
    QString BarNote(int bar) const;
    // The open one, or -1.
    int CurrentBar() const;
    // Folds the bar that was open.
    void OpenBar(int bar);
    void FoldBar(int bar);

    void AddItem(int bar, const ListBarItem &item);
    int ItemCount(int bar) const;
    ListBarItem Item(int bar, int item) const;
    void SetItem(int bar, int item, const ListBarItem &changed);
    void RemoveItem(int bar, int item);
    std::optional<Place> FindItem(const QString &key) const;
    // The item with the focus; nothing while that is on a bar or nowhere.
    std::optional<Place> CurrentItem() const;
    void SetCurrentItem(const Place &place);
    QRect ItemRect(const Place &place) const;
    QRect BarRect(int bar) const; // of the heading

    // The side of the items' icons in pixels, rounded to the nearest of a few steps.
    void SetIconSide(int side);
    int IconSide() const { return iconSize().width(); }
    // The next larger or smaller step, as far as there is one.
    void StepIcons(int step);
    bool CanStepIcons(int step) const;

Q_SIGNALS:
    // A bar was opened, by the user or by OpenBar.
    void BarClick(int bar);
    // Once for a click, a double click, Enter or Space.
    void ItemClick(int bar, int item);
    // The user drags the item; the receiver runs the drag.
    void DragAsked(int bar, int item);
    void RenameAsked(int bar, int item);
    void DeleteAsked(int bar, int item);
    // At a place in global pixels; item -1: of the bar; both -1: of the list.
    void MenuAsked(int bar, int item, const QPoint &at);
    // The pointer rests on the item, whose place is in global pixels; TipOver follows.
    void TipAsked(int bar, int item, const QRect &place);
    void TipOver();
    void IconSideChanged(int side);
    // Escape was pressed: the user leaves the list.
    void Left();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void startDrag(Qt::DropActions actions) override;
    bool viewportEvent(QEvent *event) override;
    void drawRow(QPainter *painter, const QStyleOptionViewItem &option,
                 const QModelIndex &index) const override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    QModelIndex BarIndex(int bar) const;
    QModelIndex IndexOf(const Place &place) const;
    static std::optional<Place> PlaceOf(const QModelIndex &index);
    void Activate(const QModelIndex &index);
    void Opened(const QModelIndex &index);
    void Hover(const QModelIndex &index);
    void AskForTip(const QModelIndex &index);
    void ShowTip(const QPoint &at, const QPoint &global);
    void EndTip();

    QStandardItemModel *model_;
    QPersistentModelIndex hovered_; // the row under the pointer
    bool tipShown_ = false;
};

} // namespace mainwindow
