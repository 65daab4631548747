#include "mainwindow/controls/PickBox.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QStyle>
#include <QWheelEvent>

namespace mainwindow {

PickBox::PickBox(const QString &name, const QString &tip, int characters, QWidget *parent)
    : QComboBox(parent) {
    setObjectName(name);
    setToolTip(tip);
    setAccessibleName(tip);
    setLineEdit(new QLineEdit(this)); // setEditable() would make the list too, which waits until it is opened
    setInsertPolicy(QComboBox::NoInsert);
    setMinimumContentsLength(characters);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setMaxVisibleItems(20);
    setFocusPolicy(Qt::StrongFocus);
    lineEdit()->setAccessibleName(tip);
    connect(this, &QComboBox::activated, this, &PickBox::Chosen);
    connect(lineEdit(), &QLineEdit::returnPressed, this, &PickBox::Confirmed);
}

QSize PickBox::sizeHint() const { return minimumSizeHint(); }

void PickBox::showPopup() {
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + 2 * bar);
    QComboBox::showPopup();
}

bool PickBox::HideMatches() {
    const bool lists = completer() && completer()->completionMode() == QCompleter::PopupCompletion;
    QAbstractItemView *matches = lists ? completer()->popup() : nullptr;
    if (!matches || !matches->isVisible()) return false;
    matches->hide();
    return true;
}

void PickBox::Chosen() {
    Q_EMIT Click();
    if (!stepping_) Q_EMIT Done();
}

void PickBox::Confirmed() {
    HideMatches();
    if (!currentText().isEmpty()) {
        setEditText(Meant(currentText()));
        Q_EMIT Click();
    }
    Q_EMIT Done();
}

void PickBox::GiveUpTyping() { setEditText(itemText(currentIndex())); }

void PickBox::keyPressEvent(QKeyEvent *event) {
    const QScopedValueRollback<bool> stepping(stepping_, true);
    if (event->key() != Qt::Key_Escape) return QComboBox::keyPressEvent(event);
    if (HideMatches()) return;
    GiveUpTyping();
    Q_EMIT Done();
}

// What was typed and not confirmed is no choice.
void PickBox::focusOutEvent(QFocusEvent *event) {
    if (event->reason() != Qt::PopupFocusReason) GiveUpTyping();
    QComboBox::focusOutEvent(event);
}

// The wheel scrolls the page: a font must not change because the pointer happens to lie here.
void PickBox::wheelEvent(QWheelEvent *event) {
    const QScopedValueRollback<bool> stepping(stepping_, true);
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace mainwindow
