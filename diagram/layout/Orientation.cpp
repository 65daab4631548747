#include "diagram/layout/Orientation.h"

namespace diagram {

namespace {

bool IsReversed(LayoutOrientation orientation) {
    return orientation == LayoutOrientation::Up || orientation == LayoutOrientation::Left;
}

} // namespace

bool IsLevel(LayoutOrientation orientation) {
    return orientation == LayoutOrientation::Right || orientation == LayoutOrientation::Left;
}

LayoutGraph TurnedDown(const LayoutGraph &graph, LayoutOrientation orientation) {
    LayoutGraph turned = graph;
    if (IsLevel(orientation)) {
        for (QSizeF &size : turned.sizes) size.transpose();
        for (QSizeF &label : turned.labels) label.transpose();
        for (QPointF &centre : turned.centres) centre = centre.transposed();
    }
    if (IsReversed(orientation))
        for (QPointF &centre : turned.centres) centre.setY(-centre.y());
    return turned;
}

std::vector<QPointF> TurnedBack(std::vector<QPointF> centres, LayoutOrientation orientation) {
    for (QPointF &centre : centres) {
        if (IsReversed(orientation)) centre.setY(-centre.y());
        if (IsLevel(orientation)) centre = centre.transposed();
    }
    return centres;
}

} // namespace diagram
