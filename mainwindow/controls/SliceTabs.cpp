#include "mainwindow/controls/SliceTabs.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace mainwindow {

namespace {
constexpr int kMarkWidth = 3;       // pixels of the line that shows where a tab would drop
constexpr int kCharacters = 32;     // of a tab at most
constexpr int kTipCharacters = 500; // of a name in a tip

bool IsTouch(QEvent::Type type) {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick || type == QEvent::Wheel ||
           type == QEvent::KeyPress || type == QEvent::ContextMenu;
}

int WidestTab(const QFontMetrics &metrics) { return metrics.averageCharWidth() * kCharacters; }
} // namespace

SliceTabs::SliceTabs(QWidget *parent) : QTabBar(parent) {
    setContextMenuPolicy(Qt::DefaultContextMenu);
    setElideMode(Qt::ElideRight);
}

QSize SliceTabs::tabSizeHint(int index) const {
    const QSize size = QTabBar::tabSizeHint(index);
    return {qMin(size.width(), WidestTab(fontMetrics())), size.height()};
}

// Tabs that find no room are scrolled, not squeezed.
QSize SliceTabs::minimumTabSizeHint(int index) const { return tabSizeHint(index); }

bool SliceTabs::event(QEvent *event) {
    if (IsTouch(event->type())) Q_EMIT Touched();
    if (event->type() != QEvent::ToolTip) return QTabBar::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    ShowName(help->pos(), help->globalPos());
    return true;
}

void SliceTabs::ShowName(const QPoint &at, const QPoint &global) {
    const int tab = tabAt(at);
    if (tab < 0 || QTabBar::tabSizeHint(tab).width() <= tabRect(tab).width()) return QToolTip::hideText();
    QString name = tabText(tab).replace(QLatin1String("&&"), QLatin1String("&"));
    if (name.size() > kTipCharacters) name = name.left(kTipCharacters) + QStringLiteral("...");
    QToolTip::showText(global, name.toHtmlEscaped(), this, tabRect(tab));
}

int SliceTabs::GapAt(const QPoint &at) const {
    const bool mirrored = isRightToLeft();
    for (int tab = 0; tab < count(); ++tab) {
        const int middle = tabRect(tab).center().x();
        if (mirrored ? at.x() > middle : at.x() < middle) return tab;
    }
    return count();
}

void SliceTabs::ShowGap(int gap) {
    if (gap == gap_) return;
    gap_ = gap;
    update();
}

void SliceTabs::EndDrag() {
    pressed_ = -1;
    ShowGap(-1);
    unsetCursor();
}

void SliceTabs::mousePressEvent(QMouseEvent *event) {
    QTabBar::mousePressEvent(event);
    pressed_ = event->button() == Qt::LeftButton ? tabAt(event->pos()) : -1;
    pressedAt_ = event->pos();
}

void SliceTabs::mouseMoveEvent(QMouseEvent *event) {
    if (pressed_ < 0) return QTabBar::mouseMoveEvent(event);
    const int distance = (event->pos() - pressedAt_).manhattanLength();
    if (gap_ < 0 && distance < QApplication::startDragDistance()) return;
    setCursor(Qt::ClosedHandCursor);
    ShowGap(GapAt(event->pos()));
}

void SliceTabs::mouseReleaseEvent(QMouseEvent *event) {
    QTabBar::mouseReleaseEvent(event);
    const int from = pressed_, gap = gap_;
    EndDrag();
    if (from < 0 || gap < 0) return;
    const int to = gap > from ? gap - 1 : gap;
    if (to != from) Q_EMIT MoveAsked(from, to);
}

void SliceTabs::mouseDoubleClickEvent(QMouseEvent *event) {
    EndDrag();
    const int tab = tabAt(event->pos());
    if (tab >= 0 && event->button() == Qt::LeftButton) Q_EMIT RenameAsked(tab);
}

void SliceTabs::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape && gap_ >= 0) return EndDrag();
    if (event->key() == Qt::Key_F2 && currentIndex() >= 0) {
        Q_EMIT RenameAsked(currentIndex());
        return;
    }
    QTabBar::keyPressEvent(event);
}

// By key it is the menu of the tab that is selected.
void SliceTabs::contextMenuEvent(QContextMenuEvent *event) {
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    const int tab = byMouse ? tabAt(event->pos()) : currentIndex();
    if (tab < 0) return;
    Q_EMIT MenuAsked(tab, byMouse ? event->globalPos() : mapToGlobal(tabRect(tab).topLeft()));
}

void SliceTabs::paintEvent(QPaintEvent *event) {
    QTabBar::paintEvent(event);
    if (gap_ < 0 || count() == 0) return;
    const QRect beside = tabRect(qMin(gap_, count() - 1));
    const bool atRight = (gap_ == count()) != isRightToLeft();
    const int x = atRight ? beside.right() - kMarkWidth + 1 : beside.left();
    QPainter(this).fillRect(QRect(x, beside.top(), kMarkWidth, beside.height()), palette().highlight());
}

} // namespace mainwindow
