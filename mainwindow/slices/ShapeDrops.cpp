#include "mainwindow/slices/ShapeDrops.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/start/StartOffer.h"
#include "support/Error.h"
#include "widgets/ShapeList.h"

#include <QDropEvent>
#include <QTimer>

namespace mainwindow {

ShapeDrops::ShapeDrops(frmMain &window) : window_(window) { window.installEventFilter(this); }

bool ShapeDrops::eventFilter(QObject *, QEvent *event) {
    if (event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove &&
        event->type() != QEvent::Drop)
        return false;
    auto &drop = static_cast<QDropEvent &>(*event);
    const std::optional<int> shape = widgets::DraggedShape(*drop.mimeData());
    if (shape) Take(drop, *shape);
    return shape.has_value();
}

// Entering is accepted everywhere, as the drag enters the window beside the page; else it would get no moves.
// The node comes once the drag has ended.
void ShapeDrops::Take(QDropEvent &event, int shape) {
    QWidget &page = *window_.CurrentView().viewport();
    const QPoint at = page.mapFrom(&window_, event.position().toPoint());
    const bool onPage = page.rect().contains(at);
    if (frmMain::InsideRoutine() || !(onPage || event.type() == QEvent::DragEnter)) return event.ignore();
    event.acceptProposedAction();
    if (event.type() != QEvent::Drop) return;
    QTimer::singleShot(0, &window_, [this, shape, at] {
        support::Report("frmMain", "OLEDragDrop", [&] {
            window_.Start().Leave();
            window_.CurrentView().PlaceShape(shape, at);
            window_.CurrentView().setFocus();
        });
    });
}

} // namespace mainwindow
