// Pages of slices onto any device, screen or paper, by the one renderer.
#pragma once

#include "diagram/render/Renderer.h"
#include "output/print/PageLayout.h"
#include "output/print/PrintedMap.h"

#include <functional>

class QPagedPaintDevice;
class QPainter;

namespace print {

// One sheet: a page of the layout of a slice.
struct Sheet {
    int slice = 0;  // position in the map
    int page = 0;   // in that slice's layout, from 0
    int number = 1; // among all sheets, before a range is taken
};

// What is to be painted. Without any slice chosen there are no sheets.
struct Sheets {
    std::vector<PageLayout> layouts; // by slice; an empty one for a slice that is not printed
    std::vector<Sheet> sheets;
    int all = 0; // how many there were before a range was taken
};

// Each slice is scaled by its surface's xZoom and yZoom where the setup doesn't fit it. Nothing is painted.
Sheets LayOutSlices(PrintedMap &map, const PageSetup &setup);

class PrintSlices {
public:
    PrintSlices(PrintedMap &map, const PageSetup &setup, const Sheets &sheets)
        : map_(map), setup_(setup), sheets_(sheets) {}

    // The sheet with that position, counted from 0. One unit of the painter is a device pixel, and `scale`
    // of them are a millimetre; the sheet's left top corner is its origin. Vectors stay vectors where
    // `vector` says so.
    void Paint(QPainter &painter, int sheet, double scale, bool vector);
    // The sheets with the positions in `order`, one after the other, onto a device that is not painted on
    // yet. `newPage` is called between two; `goOn` before each, told how many are done, and false gives up.
    // Gives the number of pages painted.
    int PaintAll(QPagedPaintDevice &device, const std::vector<int> &order,
                 const std::function<void()> &newPage, const std::function<bool(int done)> &goOn);

private:
    void PaintTexts(QPainter &painter, const Sheet &sheet, const PageLayout &layout);
    void PaintSurface(QPainter &painter, const Sheet &sheet, const PageLayout &layout, double scale,
                      bool vector);

    PrintedMap &map_;
    const PageSetup &setup_;
    const Sheets &sheets_;
    diagram::Renderer renderer_;
};

} // namespace print
