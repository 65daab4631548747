#include "widgets/ShapeList.h"

#include "widgets/PropertyLists.h"
#include "widgets/ShapeNames.h"

#include <QApplication>
#include <QDrag>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QStyledItemDelegate>

namespace widgets {

namespace {

const QString kDragType = QStringLiteral("application/x-velmora-shape");
constexpr int kShapeRole = Qt::UserRole;
constexpr QSize kPicture(45, 25); // pixels
constexpr QSize kCell(55, 37);
constexpr int kHeadingGap = 3;  // above and below its text
constexpr double kHover = 0.15; // of the highlight
constexpr double kQuiet = 0.75; // of the ink of texts
constexpr double kCorner = 4;   // radius
constexpr double kFrame = 2;

QColor Faded(QColor colour, double share) {
    colour.setAlphaF(float(share));
    return colour;
}

// What the keys are at shows only where they lead to it: in the list, or in the line above.
bool LedByKeys(const ShapeList &list) {
    const QWidget *focus = QApplication::focusWidget();
    return focus && list.parentWidget() && list.parentWidget()->isAncestorOf(focus);
}

class ShapeDelegate : public QStyledItemDelegate {
public:
    explicit ShapeDelegate(ShapeList &list) : QStyledItemDelegate(&list), list_(list) {}

    // A heading takes a row of its own.
    QSize sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const override {
        if (ShapeList::ShapeOf(index)) return kCell;
        return {list_.viewport()->width() - 1, list_.HeadingHeight()};
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (ShapeList::ShapeOf(index))
            PaintShape(*painter, option, index);
        else
            PaintHeading(*painter, option, index);
        painter->restore();
    }

private:
    void PaintShape(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
        const bool lit = (option.state & QStyle::State_Selected) && LedByKeys(list_);
        const bool hovered = option.state & QStyle::State_MouseOver;
        const QColor highlight = option.palette.color(QPalette::Active, QPalette::Highlight);
        const QRectF cell = QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5);
        const bool chosen = ShapeList::ShapeOf(index) == list_.Chosen();
        painter.setPen(chosen ? QPen(highlight, kFrame) : QPen(Qt::NoPen));
        painter.setBrush(lit       ? QBrush(highlight)
                         : hovered ? QBrush(Faded(highlight, kHover))
                                   : QBrush(Qt::NoBrush));
        if (lit || hovered || chosen) painter.drawRoundedRect(cell, kCorner, kCorner);
        QRect picture(QPoint(0, 0), kPicture);
        picture.moveCenter(option.rect.center());
        index.data(Qt::DecorationRole)
            .value<QIcon>()
            .paint(&painter, picture, Qt::AlignCenter, lit ? QIcon::Selected : QIcon::Normal);
    }

    static void PaintHeading(QPainter &painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) {
        painter.setPen(Faded(option.palette.color(QPalette::Active, QPalette::Text), kQuiet));
        const QRect place = option.rect.adjusted(kHeadingGap * 2, 0, 0, 0);
        const QString text =
            option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, place.width());
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter, text);
    }

    const ShapeList &list_;
};

bool IsPrintable(const QKeyEvent &event) {
    const bool commanded = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !commanded && !event.text().isEmpty() && event.text().at(0).isPrint();
}

} // namespace

ShapeList::ShapeList(QWidget *parent) : QListView(parent), model_(new QStandardItemModel(this)) {
    setObjectName(QStringLiteral("ShapeList"));
    setAccessibleName(tr("Shapes"));
    setModel(model_);
    setItemDelegate(new ShapeDelegate(*this));
    setFlow(LeftToRight);
    setWrapping(true);
    setResizeMode(Adjust);
    setMovement(Static);
    setMouseTracking(true);
    setDragDropMode(DragOnly);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setFrameShape(QFrame::NoFrame);
    setMinimumSize(SizeOf(2, 1));
    const auto pick = [this](const QModelIndex &index) {
        if (const auto shape = ShapeOf(index)) Q_EMIT Picked(*shape);
    };
    connect(this, &QListView::clicked, this, pick);
    connect(this, &QListView::entered, this, [this](const QModelIndex &at) { Q_EMIT Pointed(ShapeOf(at)); });
    connect(this, &QListView::viewportEntered, this, [this] { Q_EMIT Pointed(Current()); });
}

void ShapeList::SetSections(const std::vector<ShapeSection> &sections) {
    model_->clear();
    for (const ShapeSection &section : sections) {
        if (!section.heading.isEmpty()) AddHeading(section.heading);
        for (const int shape : section.shapes) AddShape(shape);
    }
    Q_EMIT Pointed(std::nullopt);
}

void ShapeList::AddHeading(const QString &heading) {
    auto *item = new QStandardItem(heading);
    item->setFlags(Qt::ItemNeverHasChildren);
    model_->appendRow(item);
}

void ShapeList::AddShape(int shape) {
    QIcon &picture = pictures_[shape];
    if (picture.isNull()) picture = PictureOf(ListOf::Shapes, shape);
    auto *item = new QStandardItem(picture, ShapeCaption(shape));
    item->setToolTip(ShapeCaption(shape));
    item->setData(shape, kShapeRole);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled |
                   Qt::ItemNeverHasChildren);
    model_->appendRow(item);
}

void ShapeList::SetChosen(std::optional<int> shape) {
    chosen_ = shape;
    viewport()->update();
}

std::optional<int> ShapeList::ShapeOf(const QModelIndex &index) {
    const QVariant shape = index.data(kShapeRole);
    return shape.isValid() ? std::optional<int>(shape.toInt()) : std::nullopt;
}

void ShapeList::GoToFirst() { setCurrentIndex(moveCursor(MoveHome, {})); }

void ShapeList::GoTo(int shape) {
    const QModelIndexList found = model_->match(model_->index(0, 0), kShapeRole, shape, 1, Qt::MatchExactly);
    if (!found.isEmpty()) setCurrentIndex(found.first());
}

QSize ShapeList::SizeOf(int columns, int rows) const {
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    return {columns * kCell.width() + bar + 2, rows * kCell.height() + 2};
}

int ShapeList::HeadingHeight() const { return fontMetrics().height() + 2 * kHeadingGap; }

QModelIndex ShapeList::Neighbour(const QModelIndex &from, int way) const {
    QModelIndex at = from;
    do at = model_->index(at.row() + way, 0);
    while (at.isValid() && !ShapeOf(at));
    return at.isValid() ? at : from;
}

QModelIndex ShapeList::InRowBeside(const QModelIndex &from, int way) const {
    const QPoint middle = visualRect(from).center();
    QModelIndex best;
    for (QModelIndex at = Neighbour(from, way);; at = Neighbour(at, way)) {
        const QPoint distance = visualRect(at).center() - middle;
        if (distance.y() * way > 0) {
            const QPoint former = visualRect(best).center() - middle;
            if (best.isValid() && distance.y() != former.y()) break;
            if (!best.isValid() || qAbs(distance.x()) < qAbs(former.x())) best = at;
        }
        if (Neighbour(at, way) == at) break;
    }
    return best.isValid() ? best : from;
}

QModelIndex ShapeList::OnNextPage(const QModelIndex &from, int way) const {
    const int start = visualRect(from).center().y();
    QModelIndex at = from;
    for (QModelIndex next = InRowBeside(at, way); next != at; next = InRowBeside(at, way)) {
        if (qAbs(visualRect(next).center().y() - start) >= viewport()->height()) break;
        at = next;
    }
    return at;
}

QModelIndex ShapeList::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
    const QModelIndex current = currentIndex();
    const QModelIndex first = Neighbour(QModelIndex(), 1);
    if (action == MoveHome || !current.isValid()) return first;
    switch (action) {
    case MoveEnd:
        return model_->index(model_->rowCount() - 1, 0); // no heading stands last
    case MoveLeft:
    case MovePrevious:
        return Neighbour(current, -1);
    case MoveRight:
    case MoveNext:
        return Neighbour(current, 1);
    case MoveUp:
    case MoveDown:
        return InRowBeside(current, action == MoveUp ? -1 : 1);
    default:
        return OnNextPage(current, action == MovePageUp ? -1 : 1);
    }
}

void ShapeList::keyPressEvent(QKeyEvent *event) {
    const std::optional<int> shape = Current();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && shape) return Q_EMIT Picked(*shape);
    const QModelIndex at = currentIndex();
    if (event->key() == Qt::Key_Up && (!at.isValid() || InRowBeside(at, -1) == at))
        return Q_EMIT LeftUpwards();
    if (IsPrintable(*event)) return Q_EMIT Typed(event->text());
    QListView::keyPressEvent(event);
}

void ShapeList::currentChanged(const QModelIndex &current, const QModelIndex &previous) {
    QListView::currentChanged(current, previous);
    Q_EMIT Pointed(ShapeOf(current));
}

void ShapeList::leaveEvent(QEvent *event) {
    QListView::leaveEvent(event);
    Q_EMIT Pointed(Current());
}

void ShapeList::startDrag(Qt::DropActions) {
    const std::optional<int> shape = Current();
    if (!shape) return;
    auto *drag = new QDrag(this); // belongs to whoever shows it
    drag->setMimeData(DragDataOf(*shape).release());
    drag->setPixmap(currentIndex().data(Qt::DecorationRole).value<QIcon>().pixmap(kPicture));
    drag->setHotSpot(QRect(QPoint(0, 0), kPicture).center());
    drag->exec(Qt::CopyAction);
}

std::unique_ptr<QMimeData> DragDataOf(int shape) {
    auto data = std::make_unique<QMimeData>();
    data->setData(kDragType, QByteArray::number(shape));
    return data;
}

std::optional<int> DraggedShape(const QMimeData &data) {
    bool isNumber = false;
    const int shape = data.data(kDragType).toInt(&isNumber);
    return isNumber && !ShapeCaption(shape).isEmpty() ? std::optional<int>(shape) : std::nullopt;
}

} // namespace widgets
