// Where the text of a bar (see IsBarOfStrip) stands when the bar is too short for it: to the right of it, on
// the bare page. All in twips.
#pragma once

#include <QRectF>

namespace diagram {

class Node;
class TextMeasure;

// The width at which such a text is wrapped.
constexpr double kWidestBeside = 2400;

// The box of the text beside the bar. Empty where it has room inside or would be much higher than the bar,
// for a node with a picture, for one that is no bar, and without a measure.
QRectF TextBeside(const Node &node, TextMeasure *measure);
// The same for any node, as if it were a bar in the box `bar`.
QRectF TextBesideBar(const Node &node, const QRectF &bar, TextMeasure *measure);

} // namespace diagram
