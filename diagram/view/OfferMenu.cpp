#include "diagram/view/OfferMenu.h"

#include "diagram/view/SurfaceView.h"

#include <QMenu>

namespace diagram {

void OfferMenu::Ask(const QPoint &global, const QString &node) {
    Close();
    menu_ = new QMenu(&parent_);
    menu_->setAttribute(Qt::WA_DeleteOnClose);
    QAction *yes = menu_->addAction(SurfaceView::tr("&New %1 here").arg(node));
    menu_->addAction(SurfaceView::tr("&Leave it"));
    QObject::connect(yes, &QAction::triggered, &parent_, [this] { answered_(true); });
    // A menu hides before it tells what was chosen: queued, the no comes after a yes.
    QObject::connect(
        menu_, &QMenu::aboutToHide, &parent_, [this] { answered_(false); }, Qt::QueuedConnection);
    menu_->popup(global);
    menu_->setActiveAction(yes);
}

void OfferMenu::Close() {
    if (menu_) menu_->close();
}

bool OfferMenu::IsOpen() const { return menu_ && menu_->isVisible(); }

} // namespace diagram
