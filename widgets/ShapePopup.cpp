#include "widgets/ShapePopup.h"

#include "widgets/PopupPlace.h"
#include "widgets/ShapeGrid.h"

#include <QKeyEvent>
#include <QVBoxLayout>

namespace widgets {

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
    setGeometry(BesidePlace(sizeHint(), place, RoomAround(place)));
    show();
    grid_->Begin();
}

void ShapePopup::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape) return hide();
    QFrame::keyPressEvent(event);
}

} // namespace widgets
