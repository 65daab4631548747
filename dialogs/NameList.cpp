#include "dialogs/NameList.h"

#include "support/Contrast.h"
#include "widgets/SwatchButton.h"

#include <QAccessible>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTimer>

namespace dialogs {

namespace {

constexpr int kKeyRole = Qt::UserRole;
constexpr int kColourRole = Qt::UserRole + 1;
constexpr int kSwatchSide = 14; // pixels

// The plate behind a text of that colour; none where it can be read on the base.
QBrush PlateFor(const QColor &text, const QColor &base) {
    constexpr double kReadable = 3;
    if (support::Contrast(text, base) >= kReadable) return {};
    return support::Luminance(base) > 0.2 ? QColor(0x40, 0x40, 0x40) : QColor(0xF0, 0xF0, 0xF0);
}

QIcon Swatch(const QColor &colour, const QColor &edge, double scale) {
    QPixmap field(QSize(kSwatchSide, kSwatchSide) * scale);
    field.setDevicePixelRatio(scale);
    field.fill(Qt::transparent);
    QPainter painter(&field);
    painter.setPen(edge);
    painter.setBrush(colour);
    painter.drawRect(QRectF(0.5, 0.5, kSwatchSide - 1, kSwatchSide - 1));
    painter.end();
    return field;
}

} // namespace

// Doesn't write what was typed to the row: the receiver of LabelEdited decides whether to take it.
class NameList::Delegate : public QStyledItemDelegate {
public:
    explicit Delegate(NameList &list) : QStyledItemDelegate(&list), list_(list) {}

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override {
        list_.HideMessage();
        editor_ = QStyledItemDelegate::createEditor(parent, option, index);
        editor_->setAccessibleName(list_.headerItem()->text(0));
        return editor_;
    }
    void setModelData(QWidget *editor, QAbstractItemModel *, const QModelIndex &index) const override {
        list_.edited_ = list_.itemFromIndex(index);
        list_.typed_ = editor->property("text").toString();
        QTimer::singleShot(0, &list_, &NameList::TellEdited);
    }
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override {
        constexpr int kAir = 6; // pixels
        return QStyledItemDelegate::sizeHint(option, index) + QSize(0, kAir);
    }
    // Gives the row's colour to the text alone, so that the check box keeps the colours of the theme, and
    // paints the plate no wider than the text.
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override {
        QStyleOptionViewItem item = option;
        initStyleOption(&item, index);
        const QColor colour = item.palette.color(QPalette::Text);
        const QStyle &style = *list_.style();
        const QRect place = style.subElementRect(QStyle::SE_ItemViewItemText, &item, &list_);
        const QBrush plate = std::exchange(item.backgroundBrush, QBrush());
        const QString text = std::exchange(item.text, QString());
        item.palette = option.palette;
        const QRect swatch = style.subElementRect(QStyle::SE_ItemViewItemDecoration, &item, &list_);
        style.drawControl(QStyle::CE_ItemViewItem, &item, painter, &list_);
        item.icon.paint(painter, swatch); // the colour itself, in a selected row too
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &list_) + 1;
        const QRect inner = place.adjusted(margin, 0, -margin, 0);
        const QString shown = item.fontMetrics.elidedText(text, Qt::ElideRight, inner.width());
        if (!selected) PaintPlate(*painter, inner, item.fontMetrics.horizontalAdvance(shown), plate);
        painter->setFont(item.font);
        painter->setPen(selected ? item.palette.color(QPalette::HighlightedText) : colour);
        painter->drawText(inner, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, shown);
    }
    QWidget *Editor() const { return editor_; }

private:
    static void PaintPlate(QPainter &painter, const QRect &text, int width, const QBrush &plate) {
        if (plate.style() == Qt::NoBrush) return;
        constexpr int kOver = 3; // pixels
        const QRect field(text.left() - kOver, text.top() + 1, qMin(width, text.width()) + 2 * kOver,
                          text.height() - 2);
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(plate);
        painter.drawRoundedRect(field, kOver, kOver);
        painter.restore();
    }

    NameList &list_;
    mutable QPointer<QWidget> editor_;
};

NameList::NameList(const QString &column, Colours colours, QWidget *parent)
    : QTreeWidget(parent),
      colours_(colours),
      delegate_(new Delegate(*this)),
      message_(new QLabel(viewport())) {
    setHeaderLabel(column);
    setAccessibleName(column);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setItemDelegate(delegate_);
    setIconSize(QSize(kSwatchSide, kSwatchSide));
    setEditTriggers(DoubleClicked | SelectedClicked | EditKeyPressed);
    setTabKeyNavigation(false);
    setMinimumSize(fontMetrics().averageCharWidth() * 30, fontMetrics().height() * 10);
    message_->setObjectName(QStringLiteral("lblMessage"));
    message_->setTextFormat(Qt::PlainText);
    message_->setWordWrap(true);
    message_->setMargin(6);
    message_->setFrameShape(QFrame::Box);
    message_->setAutoFillBackground(true);
    message_->setForegroundRole(QPalette::ToolTipText);
    message_->setBackgroundRole(QPalette::ToolTipBase);
    message_->hide();
    connect(this, &QTreeWidget::currentItemChanged, this, &NameList::HideMessage);
    connect(this, &QTreeWidget::itemChanged, this, &NameList::HideMessage);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &NameList::HideMessage);
}

void NameList::SetRows(const NameRows &rows) {
    clear();
    QList<QTreeWidgetItem *> items;
    for (const NameRow &row : rows) {
        items << new QTreeWidgetItem;
        ShowRow(*items.last(), row);
    }
    addTopLevelItems(items);
    setCurrentItem(topLevelItem(0));
}

QTreeWidgetItem &NameList::AddRow(const NameRow &row) {
    auto *item = new QTreeWidgetItem;
    ShowRow(*item, row);
    addTopLevelItem(item);
    return *item;
}

void NameList::ShowRow(QTreeWidgetItem &item, const NameRow &row) {
    item.setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsUserCheckable |
                  Qt::ItemNeverHasChildren);
    item.setText(0, row.name);
    item.setCheckState(0, row.selected ? Qt::Checked : Qt::Unchecked);
    item.setData(0, kKeyRole, row.key);
    item.setData(0, kColourRole, row.colour);
    PaintColour(item);
}

NameRows NameList::Rows() const {
    NameRows rows;
    for (int at = 0; at < topLevelItemCount(); ++at) {
        const QTreeWidgetItem &item = *topLevelItem(at);
        rows.push_back({item.data(0, kKeyRole).toString(), item.text(0), item.checkState(0) == Qt::Checked,
                        ColourOf(item)});
    }
    return rows;
}

support::Colour NameList::ColourOf(const QTreeWidgetItem &row) { return row.data(0, kColourRole).toInt(); }

void NameList::SetColour(QTreeWidgetItem &row, support::Colour colour) {
    row.setData(0, kColourRole, colour);
    PaintColour(row);
}

void NameList::PaintColour(QTreeWidgetItem &item) {
    if (colours_ == Colours::None) return;
    const QColor colour = support::ToQColor(ColourOf(item));
    item.setForeground(0, colour);
    item.setBackground(0, PlateFor(colour, palette().color(QPalette::Base)));
    item.setIcon(0, Swatch(colour, palette().color(QPalette::Mid), devicePixelRatioF()));
    item.setData(0, Qt::AccessibleDescriptionRole, widgets::ColourName(ColourOf(item)));
}

void NameList::EditRow(QTreeWidgetItem &row) {
    setFocus();
    setCurrentItem(&row);
    scrollToItem(&row);
    editItem(&row);
}

void NameList::EndEditing() {
    QWidget *editor = delegate_->Editor(); // a closed one is deleted later
    if (editor && state() == EditingState) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
    TellEdited();
}

void NameList::DropEditing() { dropped_ = true; }

void NameList::TellEdited() {
    if (!edited_ || dropped_) return;
    HideMessage();
    QTreeWidgetItem &row = *std::exchange(edited_, nullptr);
    Q_EMIT LabelEdited(row, std::exchange(typed_, QString()));
}

void NameList::ShowMessage(const QTreeWidgetItem &row, const QString &text) {
    const QRect place = visualItemRect(&row);
    const int width = viewport()->width();
    message_->setText(text);
    const int height = message_->heightForWidth(width);
    const bool below = place.bottom() + height < viewport()->height() || place.top() < height;
    const int top = below ? qMin(place.bottom() + 1, viewport()->height() - height) : place.top() - height;
    message_->setGeometry(0, qMax(0, top), width, height);
    message_->show();
    message_->raise();
    QAccessibleEvent event(message_, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

QString NameList::Message() const { return message_->isHidden() ? QString() : message_->text(); }

void NameList::HideMessage() { message_->hide(); }

void NameList::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Delete && state() != EditingState)
        Q_EMIT DeletePressed();
    else
        QTreeWidget::keyPressEvent(event);
}

// Another theme has another base colour, and may want other plates.
void NameList::changeEvent(QEvent *event) {
    QTreeWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    for (int at = 0; at < topLevelItemCount(); ++at) PaintColour(*topLevelItem(at));
}

} // namespace dialogs
