#include "output/print/ZoomToPages.h"

#include "diagram/model/ScreenValues.h"
#include "diagram/model/Surface.h"
#include "output/print/PrnFlow.h"
#include "support/Val.h"

#include <algorithm>

namespace print {

namespace {

constexpr int kMostTries = 20;
constexpr double kMostZoom = 10000; // of a surface, per cent

void SetZoom(diagram::Surface &surface, int percent) {
    surface.SetxZoom(percent);
    surface.SetyZoom(percent);
}

} // namespace

void ZoomToPages(diagram::Surface &surface, int n, const QSizeF &scrollBars) {
    const QSizeF extent = surface.Extent().size();
    if (extent.width() == 0 || extent.height() == 0) return;
    const auto zoom = [n](double room, double size) {
        return support::CLng(std::clamp(n * kPlainZoom * room / size, 0.0, kMostZoom));
    };
    SetZoom(surface, std::min(zoom(surface.Screen().Width() - scrollBars.width(), extent.width()),
                              zoom(surface.Screen().Height() - scrollBars.height(), extent.height())));
}

void ZoomBack(PrnFlow &flow) {
    if (diagram::Surface *surface = flow.Surface()) SetZoom(*surface, kPlainZoom);
}

void AskForPages(PrnFlow &flow, PagesWanted wanted, int number, const QSizeF &scrollBars,
                 const std::function<void()> &clickParent) {
    diagram::Surface *surface = flow.Surface();
    if (!surface) return;
    const auto pages = [&] {
        return wanted == PagesWanted::Down ? flow.VerticalPages() : flow.HorizontalPages();
    };
    int n = number;
    SetZoom(*surface, kPlainZoom);
    clickParent();
    ZoomToPages(*surface, n, scrollBars);
    flow.Run();
    for (int tries = 0; tries < kMostTries && pages() < number; ++tries) {
        flow.Run();
        ZoomToPages(*surface, ++n, scrollBars);
    }
    flow.Run();
}

} // namespace print
