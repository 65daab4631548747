// Shapes as pictures in rows, in sections with a quiet heading each.
#pragma once

#include <memory>
#include <optional>
#include <QHash>
#include <QIcon>
#include <QListView>
#include <vector>

class QMimeData;
class QStandardItemModel;

namespace widgets {

struct ShapeSection {
    QString heading; // empty: none
    std::vector<int> shapes;
};

// Headings can't be gone to. The arrow keys go from picture to picture, Home and End to the first and the
// last. A picture is painted when it is seen, and can be dragged to where a shape is taken.
class ShapeList : public QListView {
    Q_OBJECT
public:
    explicit ShapeList(QWidget *parent = nullptr);

    // In the place of what was there; nothing is current then.
    void SetSections(const std::vector<ShapeSection> &sections);
    // Frames that shape wherever it stands.
    void SetChosen(std::optional<int> shape);
    std::optional<int> Chosen() const { return chosen_; }
    // The shape that the keys are at, or an index stands for.
    std::optional<int> Current() const { return ShapeOf(currentIndex()); }
    static std::optional<int> ShapeOf(const QModelIndex &index);
    // Goes to the first picture, or to that of a shape; no effect without one.
    void GoToFirst();
    void GoTo(int shape);
    // The size with that many columns and rows of pictures.
    QSize SizeOf(int columns, int rows) const;
    int HeadingHeight() const;

Q_SIGNALS:
    // By a click or Enter.
    void Picked(int shape);
    // The pointer or the keys are at another shape, or at none.
    void Pointed(std::optional<int> shape);
    // Up was pressed in the first row.
    void LeftUpwards();
    // A text was typed.
    void Typed(const QString &text);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyboardSearch(const QString &) override {}
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void leaveEvent(QEvent *event) override;
    void startDrag(Qt::DropActions actions) override;

private:
    void AddHeading(const QString &heading);
    void AddShape(int shape);
    // The nearest picture in the next row that way, or `from` itself.
    QModelIndex InRowBeside(const QModelIndex &from, int way) const;
    QModelIndex Neighbour(const QModelIndex &from, int way) const;
    QModelIndex OnNextPage(const QModelIndex &from, int way) const;

    QStandardItemModel *model_;
    QHash<int, QIcon> pictures_;
    std::optional<int> chosen_;
};

// What is dragged for a shape; no other program makes anything of it.
std::unique_ptr<QMimeData> DragDataOf(int shape);
// None for any other drag, and for a value that is no shape.
std::optional<int> DraggedShape(const QMimeData &data);

} // namespace widgets
