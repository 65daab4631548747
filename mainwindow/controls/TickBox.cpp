#include "mainwindow/controls/TickBox.h"

#include "mainwindow/controls/TickList.h"
#include "widgets/ProgramStyle.h"

#include <QKeyEvent>
#include <QListView>
#include <QMouseEvent>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QStylePainter>
#include <QWheelEvent>
#include <utility>

namespace mainwindow {

namespace {
constexpr int kCharacters = 14; // of the closed box
constexpr int kMostRows = 20;   // without scrolling
constexpr int kKeyRole = Qt::UserRole;

// The list drops below the box, so that what is ticked can be read while one ticks.
class DropsBelow : public widgets::ProgramStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *result) const override {
        return hint == SH_ComboBox_Popup ? 0 : ProgramStyle::styleHint(hint, option, widget, result);
    }
};
} // namespace

TickBox::TickBox(const QString &name, const QString &tip, QWidget *parent)
    : QComboBox(parent), rows_(new QStandardItemModel(this)) {
    setObjectName(name);
    setAccessibleName(tip);
    ShowTip();
    setModel(rows_);
    setMinimumContentsLength(kCharacters);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setMaxVisibleItems(kMostRows);
    setFocusPolicy(Qt::StrongFocus);
}

QSize TickBox::sizeHint() const { return minimumSizeHint(); }

void TickBox::Prepare() {
    if (std::exchange(prepared_, true)) return;
    auto *dropsBelow = new DropsBelow;
    dropsBelow->setParent(this);
    setStyle(dropsBelow);
    list_ = new TickList(this);
    setView(list_);
    setItemDelegate(new QStyledItemDelegate(this)); // the combo's own draws no boxes to tick
    list_->setAccessibleName(accessibleName());
    list_->installEventFilter(this);
    list_->viewport()->installEventFilter(this);
    connect(list_, &TickList::AllAsked, this, &TickBox::ClickAll);
}

void TickBox::SetRows(const std::vector<TickRow> &rows) {
    const int current = open_ ? view()->currentIndex().row() : -1;
    rows_->setRowCount(int(rows.size()));
    for (int at = 0; at < int(rows.size()); ++at) {
        auto *item = new QStandardItem(rows[std::size_t(at)].name);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setData(rows[std::size_t(at)].key, kKeyRole);
        rows_->setItem(at, item);
        SetTicked(at, rows[std::size_t(at)].ticked);
    }
    if (open_) view()->setCurrentIndex(rows_->index(qMin(current, rows_->rowCount() - 1), 0));
}

TickRow TickBox::Row(int row) const {
    const QStandardItem *item = rows_->item(row);
    return item ? TickRow{item->checkState() == Qt::Checked, item->text(), item->data(kKeyRole).toString()}
                : TickRow{};
}

void TickBox::SetTicked(int row, bool ticked) {
    rows_->item(row)->setCheckState(ticked ? Qt::Checked : Qt::Unchecked);
}

void TickBox::SetText(const QString &text) {
    text_ = text;
    setAccessibleDescription(text);
    ShowTip();
    update();
}

// Names may look like markup.
void TickBox::ShowTip() {
    constexpr int kMostNames = 25;
    QStringList lines;
    int ticked = 0;
    for (int row = 0; row < rows_->rowCount(); ++row)
        if (Row(row).ticked && ++ticked <= kMostNames) lines << Row(row).name.toHtmlEscaped();
    if (ticked > kMostNames) lines << tr("and %n more", nullptr, ticked - kMostNames);
    if (ticked == 0) lines << tr("none");
    const QString names = lines.join(QLatin1String("<br>"));
    setToolTip(QStringLiteral("<p style='white-space:pre'>%1:<br>%2</p>")
                   .arg(accessibleName().toHtmlEscaped(), names));
}

void TickBox::showPopup() {
    if (rows_->rowCount() == 0) return;
    Prepare();
    open_ = true;
    view()->setMinimumWidth(list_->NeededWidth() + 2 * style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    QComboBox::showPopup();
    if (!view()->currentIndex().isValid()) view()->setCurrentIndex(rows_->index(0, 0));
}

void TickBox::hidePopup() {
    QComboBox::hidePopup();
    pressed_ = -1;
    if (std::exchange(open_, false)) Q_EMIT CloseUp();
}

// The button that opened the list may be let go over a row: that is no click on it.
bool TickBox::TakesClick(QEvent *event) {
    const QEvent::Type type = event->type();
    const bool presses = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (!presses && type != QEvent::MouseButtonRelease) return false;
    const int row = view()->indexAt(static_cast<QMouseEvent *>(event)->position().toPoint()).row();
    const int pressed = std::exchange(pressed_, presses ? row : -1);
    if (!presses && row >= 0 && row == pressed) Q_EMIT Click(row);
    return type != QEvent::MouseButtonPress;
}

bool TickBox::TakesKey(QEvent *event) {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key == Qt::Key_Tab || key == Qt::Key_Return || key == Qt::Key_Enter) {
        hidePopup();
        return true;
    }
    if (key != Qt::Key_Space && key != Qt::Key_Select) return false;
    if (view()->currentIndex().isValid()) Q_EMIT Click(view()->currentIndex().row());
    return true;
}

bool TickBox::eventFilter(QObject *watched, QEvent *event) {
    if (prepared_ && watched == view()->viewport() && TakesClick(event)) return true;
    if (prepared_ && watched == view() && TakesKey(event)) return true;
    return QComboBox::eventFilter(watched, event);
}

void TickBox::paintEvent(QPaintEvent *) {
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    option.currentText = fontMetrics().elidedText(text_, Qt::ElideRight, field.width() - 4);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

// The closed box has nothing to step through: the keys that would do so open it.
void TickBox::keyPressEvent(QKeyEvent *event) {
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F4:
        return showPopup();
    default:
        event->ignore();
    }
}

void TickBox::wheelEvent(QWheelEvent *event) { event->ignore(); }

} // namespace mainwindow
