// The dates that copies of nodes take along.
#pragma once

#include <QByteArray>
#include <QDate>
#include <QRectF>
#include <vector>

namespace diagram {

class DayStrip;
class Surface;

// One for each selected node in the order of adding, in which nodes are copied; null for a node without one.
std::vector<QDate> DatesOfSelected(const Surface &surface, const DayStrip &days);

// Makes room on the page for the selected nodes, which were dropped there (GrowPage), and gives them the
// dates in the same order, inside the group of changes that the caller has opened. No dates where there is
// none among them, or where they are not as many as the nodes.
void SettleCopies(Surface &surface, DayStrip &days, const std::vector<QDate> &dates, const QRectF &dropped,
                  const QRectF &former = {});

// As a clipboard carries them. Empty without any date; what is no date is read as a null one.
QByteArray DatesToBytes(const std::vector<QDate> &dates);
std::vector<QDate> DatesFromBytes(const QByteArray &bytes);

} // namespace diagram
