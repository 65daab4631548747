// Makes room on a page for what has gone beyond its left or its top.
#pragma once

#include <QRectF>

namespace diagram {

class DayStrip;
class Surface;

// Moves everything on the surface, hidden items too, right and down so far that `dropped` (twips) lies on the
// page, by whole steps of the grid, and lays the strip of days out again. Nothing for a box that lies on the
// page, or no farther out than `former`. Call it inside the group of changes that brought the box there,
// before its event.
void GrowPage(Surface &surface, DayStrip &days, const QRectF &dropped, const QRectF &former = {});

// The same without the strip of days, for callers that lay it out anyway. False where nothing was to be done.
bool ShiftOntoPage(Surface &surface, const QRectF &dropped, const QRectF &former = {});

// Everything on the surface moved by the distance (twips) as it stands: no route changes its form.
void ShiftAll(Surface &surface, float dx, float dy);

} // namespace diagram
