// What a gesture shows on top of the diagram while it lasts.
#pragma once

#include <optional>
#include <QLineF>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <vector>

namespace diagram {

// All in twips. Whatever is empty isn't shown.
struct Overlay {
    QRectF band;        // rubber band
    QPainterPath ghost; // outline of a node that is being drawn
    QString size;       // its size, shown below `sizeUnder`
    QRectF sizeUnder;
    std::optional<QLineF> line;       // a link that is being dragged
    QPainterPath target;              // outline of the node that the link would join
    std::optional<QPointF> linkStart; // the place from where a link can be dragged
    bool onLinkStart = false;         // the pointer is on it
    std::vector<QLineF> guides;       // along edges and middles that are in line
    std::vector<QLineF> gaps;         // across distances that are equal

    // Holds everything but the size's text.
    QRectF Bounds() const;
    bool IsEmpty() const { return size.isEmpty() && !line && !linkStart && Bounds().isNull(); }
};

} // namespace diagram
