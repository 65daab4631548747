#include "mainwindow/slices/NewLinkRouting.h"

#include "diagram/model/AutomaticStyle.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/view/SurfaceView.h"
#include "mainwindow/frmMain.h"
#include "mainwindow/slices/SliceViews.h"
#include "settings/NewLinks.h"
#include "support/Val.h"

namespace mainwindow {

int RoutingOfNewLinks() {
    const QString routing = settings::LinkRouting();
    if (routing.compare(QLatin1String(settings::kAutomaticRouting), Qt::CaseInsensitive) == 0)
        return diagram::kAutomaticStyle;
    const int style = int(support::Val(routing));
    return diagram::FindLinkStyle(style) ? style : 0;
}

void SetRoutingOfNewLinks(int style) {
    settings::SaveLinkRouting(style == diagram::kAutomaticStyle ? QLatin1String(settings::kAutomaticRouting)
                                                                : QString::number(style));
    for (const frmMain *window : frmMain::Forms())
        for (const diagram::SurfaceView *view : window->Views().All()) view->TheScene().SetStyleToDraw(style);
}

} // namespace mainwindow
