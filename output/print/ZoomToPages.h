// The scaling of a slice for a number of pages that the user asks for.
#pragma once

#include <functional>
#include <QSizeF>

namespace diagram {
class Surface;
}

namespace print {

class PrnFlow;

// Scales the surface so that what is on it takes `n` times (above 0) the room that `scrollBars` leave of its
// window; these are their widths, in twips. A surface without any extent stays as it is.
void ZoomToPages(diagram::Surface &surface, int n, const QSizeF &scrollBars);

// xZoom and yZoom of the slice shown go back to 100.
void ZoomBack(PrnFlow &flow);

enum class PagesWanted { Down, Wide };

// What an entry of the two buttons does: scales the slice shown to `number` pages, and as long as it has
// fewer, to one more, up to 20 times. `clickParent` is the click of the button itself.
void AskForPages(PrnFlow &flow, PagesWanted wanted, int number, const QSizeF &scrollBars,
                 const std::function<void()> &clickParent);

} // namespace print
