#include "mainwindow/look/StateButton.h"

#include <QActionEvent>
#include <QPainter>
#include <QToolBar>

namespace mainwindow {

namespace {
constexpr qreal kCorner = 4;  // pixels
constexpr double kTint = 0.3; // opacity of the accent behind a pressed button
} // namespace

StateButton::StateButton(QWidget *parent) : QToolButton(parent) {
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
}

void StateButton::ShowState(Shared state) {
    if (state == state_) return;
    state_ = state;
    setAccessibleDescription(state == Shared::Partly ? tr("in a part of the selection") : QString());
    PressIn();
    update();
}

// The action isn't checkable, so that a click doesn't toggle it. The button copies that from its action at
// each change, and is made checkable again.
void StateButton::PressIn() {
    setCheckable(true);
    setChecked(state_ == Shared::Everywhere);
}

void StateButton::actionEvent(QActionEvent *event) {
    QToolButton::actionEvent(event);
    if (event->type() == QEvent::ActionChanged) PressIn();
}

void StateButton::paintEvent(QPaintEvent *event) {
    if (state_ == Shared::Nowhere || !isEnabled()) return QToolButton::paintEvent(event);
    QColor accent = palette().color(QPalette::Highlight);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(accent, 1, state_ == Shared::Partly ? Qt::DashLine : Qt::SolidLine));
    accent.setAlphaF(float(kTint));
    painter.setBrush(state_ == Shared::Partly ? QBrush(Qt::NoBrush) : QBrush(accent));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), kCorner, kCorner);
    const QRect at(QPoint((width() - iconSize().width()) / 2, (height() - iconSize().height()) / 2),
                   iconSize());
    icon().paint(&painter, at);
}

QWidget *StateAction::createWidget(QWidget *parent) {
    auto *bar = qobject_cast<QToolBar *>(parent);
    if (!bar) return nullptr;
    auto *button = new StateButton(bar);
    button->setIconSize(bar->iconSize());
    button->setDefaultAction(this);
    return button;
}

} // namespace mainwindow
