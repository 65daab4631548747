// Where the text of a bar beside the strip of days stands that is too short for it: to its right, on no
// ground. All in twips.
#pragma once

#include <QRectF>

namespace diagram {

class Node;
class TextMeasure;

// Lines of it are wrapped there.
constexpr double kWidestBeside = 2400;

// Empty where the text has room inside, or a picture stands there too; for every node that is no bar, and
// without a measure.
QRectF TextBeside(const Node &node, TextMeasure *measure);
// The same for any node, if it were a bar of that box.
QRectF TextBesideBar(const Node &node, const QRectF &bar, TextMeasure *measure);

} // namespace diagram
