#include "mainwindow/slices/SliceTurns.h"

#include "mainwindow/frmMain.h"

#include <algorithm>
#include <QApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <utility>

namespace mainwindow {

namespace {

constexpr int kUntilList = 200; // milliseconds: a short press shows none
constexpr int kMostRows = 12;
constexpr int kWidest = 32;    // characters of a name
constexpr int kPadding = 12;   // pixels at both sides of a name
constexpr int kRowPadding = 3; // above and below it

bool HoldsCtrl() { return QGuiApplication::keyboardModifiers().testFlag(Qt::ControlModifier); }

bool IsRelease(const QEvent &event) {
    return event.type() == QEvent::KeyRelease &&
           static_cast<const QKeyEvent &>(event).key() == Qt::Key_Control;
}

bool IsEscape(const QEvent &event) {
    return (event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride) &&
           static_cast<const QKeyEvent &>(event).key() == Qt::Key_Escape;
}

QListWidget *NewList(QWidget *place) {
    auto *list = new QListWidget(place);
    list->setObjectName(QStringLiteral("SliceTurns"));
    list->setFocusPolicy(Qt::NoFocus); // the keys go on where they are
    list->setFrameShape(QFrame::StyledPanel);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setTextElideMode(Qt::ElideRight);
    list->setUniformItemSizes(true);
    list->setSpacing(kRowPadding);
    return list;
}

void PlaceInMiddle(QListWidget &list) {
    const QSize room = list.parentWidget()->size();
    const int frame = 2 * list.frameWidth(), widest = list.fontMetrics().averageCharWidth() * kWidest;
    const int rows = qMin(list.count(), kMostRows);
    const QSize size(qBound(widest / 2, list.sizeHintForColumn(0) + 4 * kPadding, widest) + frame,
                     rows * (list.sizeHintForRow(0) + 2 * kRowPadding) + frame);
    const QSize fits = size.boundedTo(room);
    list.setGeometry(
        QRect(QPoint((room.width() - fits.width()) / 2, (room.height() - fits.height()) / 3), fits));
}

} // namespace

SliceTurns::SliceTurns(frmMain &window, QWidget *place) : window_(window), place_(place) {
    soon_.setSingleShot(true);
    soon_.setInterval(kUntilList);
    connect(&soon_, &QTimer::timeout, this, &SliceTurns::ShowList);
}

SliceTurns::~SliceTurns() = default;

void SliceTurns::Selected(int tab) {
    if (!turn_.empty()) return;
    std::erase(used_, tab);
    used_.insert(used_.begin(), tab);
}

void SliceTurns::Forget() {
    used_.clear();
    Selected(window_.TabStrip().TheTab());
}

std::vector<int> SliceTurns::Order() const {
    std::vector<int> order;
    const int count = window_.TabStrip().TabCount();
    for (const int tab : used_)
        if (tab < count) order.push_back(tab);
    for (int tab = 0; tab < count; ++tab)
        if (std::find(order.begin(), order.end(), tab) == order.end()) order.push_back(tab);
    return order;
}

void SliceTurns::Turn(int step) {
    if (window_.TabStrip().TabCount() < 2) return;
    if (turn_.empty())
        Begin();
    else
        ShowList();
    const int count = int(turn_.size());
    Choose((at_ + step + count) % count);
    if (!HoldsCtrl()) End();
}

void SliceTurns::Begin() {
    Selected(window_.TabStrip().TheTab());
    turn_ = Order();
    at_ = 0;
    qApp->installEventFilter(this);
    soon_.start();
}

// Tabs don't come and go while Ctrl is held; if they do the turn ends.
void SliceTurns::Choose(int row) {
    if (int(turn_.size()) != window_.TabStrip().TabCount()) return End();
    at_ = row;
    window_.TabStrip().SetTheTab(turn_[std::size_t(row)]);
    if (!list_) return;
    list_->setCurrentRow(row);
    list_->raise();
}

void SliceTurns::End() {
    qApp->removeEventFilter(this);
    soon_.stop();
    turn_.clear();
    if (QListWidget *list = std::exchange(list_, nullptr)) {
        list->hide();
        list->deleteLater(); // it may be handling a press
    }
    if (window_.TabStrip().TheTab() >= 0) Selected(window_.TabStrip().TheTab());
}

void SliceTurns::GiveUp() {
    Choose(0);
    End();
}

void SliceTurns::ShowList() {
    soon_.stop();
    if (list_ || turn_.empty()) return;
    list_ = NewList(place_);
    list_->setAccessibleName(tr("By last use"));
    for (const int tab : turn_) list_->addItem(window_.TabStrip().TabCaption(tab));
    list_->setCurrentRow(at_);
    connect(list_, &QListWidget::itemPressed, this, [this](const QListWidgetItem *item) {
        Choose(list_->row(item));
        End();
    });
    PlaceInMiddle(*list_);
    list_->show();
    list_->raise();
}

// Installed while Ctrl is held.
bool SliceTurns::eventFilter(QObject *watched, QEvent *event) {
    if (IsRelease(*event) || event->type() == QEvent::ApplicationDeactivate ||
        (watched == &window_ && event->type() == QEvent::WindowDeactivate)) {
        End();
        return false;
    }
    if (!IsEscape(*event)) return false;
    GiveUp();
    event->accept();
    return true;
}

} // namespace mainwindow
