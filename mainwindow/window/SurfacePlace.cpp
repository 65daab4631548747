#include "mainwindow/window/SurfacePlace.h"

#include "diagram/view/SurfaceView.h"
#include "mainwindow/frmMain.h"

namespace mainwindow {

std::optional<QPointF> SurfacePlace(frmMain &window, const QPoint &at) {
    const diagram::SurfaceView &view = window.CurrentView();
    const QPoint pixels = view.viewport()->mapFrom(&window, at);
    if (!view.viewport()->rect().contains(pixels)) return std::nullopt;
    return view.ToSurface(pixels);
}

} // namespace mainwindow
