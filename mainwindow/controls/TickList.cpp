#include "mainwindow/controls/TickList.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolButton>

namespace mainwindow {

namespace {

QKeySequence KeyFor(bool ticked) {
    return ticked ? QKeySequence(Qt::CTRL | Qt::Key_A) : QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A);
}

bool IsKeyFor(bool ticked, const QKeyEvent &event) {
    return QKeySequence(event.keyCombination()) == KeyFor(ticked);
}

} // namespace

TickList::TickList(QWidget *parent) : QListView(parent), strip_(new QWidget(this)) {
    auto *row = new QHBoxLayout(strip_);
    row->setContentsMargins(2, 2, 2, 2);
    row->setSpacing(2);
    row->addWidget(AddButton("cmdAll", tr("All"), true));
    row->addWidget(AddButton("cmdNone", tr("None"), false));
    row->addStretch();
    setViewportMargins(0, strip_->sizeHint().height(), 0, 0);
}

// The list keeps the focus, so that its keys work after a click as well.
QToolButton *TickList::AddButton(const char *name, const QString &text, bool ticked) {
    auto *button = new QToolButton(strip_);
    button->setObjectName(QLatin1String(name));
    button->setText(text);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    const QString what = ticked ? tr("Tick all") : tr("Tick none");
    button->setAccessibleName(what);
    button->setToolTip(
        QStringLiteral("%1 (%2)").arg(what, KeyFor(ticked).toString(QKeySequence::NativeText)));
    connect(button, &QToolButton::clicked, this, [this, ticked] { Q_EMIT AllAsked(ticked); });
    return button;
}

int TickList::NeededWidth() const { return qMax(sizeHintForColumn(0), strip_->sizeHint().width()); }

// The window has other work for these keys.
bool TickList::event(QEvent *event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (IsKeyFor(true, key) || IsKeyFor(false, key)) event->accept();
    }
    return QListView::event(event);
}

void TickList::keyPressEvent(QKeyEvent *event) {
    for (const bool ticked : {true, false})
        if (IsKeyFor(ticked, *event)) return Q_EMIT AllAsked(ticked);
    QListView::keyPressEvent(event);
}

void TickList::resizeEvent(QResizeEvent *event) {
    QListView::resizeEvent(event);
    const QRect rows = viewport()->geometry();
    const int height = strip_->sizeHint().height();
    strip_->setGeometry(rows.left(), rows.top() - height, rows.width(), height);
}

} // namespace mainwindow
