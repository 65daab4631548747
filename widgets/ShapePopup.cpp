#include "widgets/ShapePopup.h"

#include "widgets/ShapeGrid.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>

namespace widgets {

QRect BesidePlace(const QSize &size, const QRect &place, const QRect &screen) {
    const int below = screen.bottom() - place.bottom(), above = place.top() - screen.top();
    const bool under = below >= size.height() || below >= above;
    const int height = qMin(size.height(), under ? below : above);
    const int width = qMin(size.width(), screen.width());
    const int left = qMax(screen.left(), qMin(place.left(), screen.left() + screen.width() - width));
    return {left, under ? place.bottom() + 1 : place.top() - height, width, height};
}

ShapePopup::ShapePopup(QWidget *parent) : QFrame(parent, Qt::Popup), grid_(new ShapeGrid(this)) {
    setObjectName(QStringLiteral("ShapePopup"));
    setAccessibleName(tr("Shapes"));
    setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base); // like the list: the line for a name is seen only while it has one
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(grid_);
    connect(grid_, &ShapeGrid::Chosen, this, &QWidget::hide);
}

void ShapePopup::PopUp(const QRect &place) {
    const QScreen *screen = QGuiApplication::screenAt(place.center());
    if (!screen) screen = QGuiApplication::primaryScreen();
    setGeometry(BesidePlace(sizeHint(), place, screen->availableGeometry()));
    show();
    grid_->Begin();
}

void ShapePopup::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) return hide();
    QFrame::keyPressEvent(event);
}

} // namespace widgets
