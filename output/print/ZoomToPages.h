// The scaling of a slice for a number of pages that the user asks for.
#pragma once

#include <functional>
#include <QSizeF>

namespace diagram {
class Surface;
}

namespace print {

class PrnFlow;

constexpr int kMostTries = 20;
constexpr int kPlainZoom = 100; // per cent

// Scales the surface, for `n` above 0, so that what is on it takes `n` times the room of its window, without
// scroll bars of that size (twips). Without any extent it stays as it is.
void ZoomToPages(diagram::Surface &surface, int n, const QSizeF &scrollBars);

// xZoom and yZoom of the slice shown go back to 100.
void ZoomBack(PrnFlow &flow);

enum class PagesWanted { Down, Wide };

// What an entry of the two buttons does: scales the slice shown, and again for one more as long as its pages
// are below `number`, at most 20 times. `clickParent` is the click of the button itself.
void AskForPages(PrnFlow &flow, PagesWanted wanted, int number, const QSizeF &scrollBars,
                 const std::function<void()> &clickParent);

} // namespace print
