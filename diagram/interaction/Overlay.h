// What a gesture shows on top of the diagram while it lasts.
#pragma once

#include "diagram/model/Item.h"

#include <optional>
#include <QLineF>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <vector>

namespace diagram {

// A node at an end of a link that is being drawn or joined.
struct LinkEndMark {
    QPainterPath outline;         // of the node; empty: only the joint is shown
    std::optional<QPointF> joint; // where the link meets it
    bool isSource = false;        // the link starts there
    bool lit = false;             // it is the one that is being chosen
    bool named = false;           // a word says which end it is
};

// All in twips. Whatever is empty isn't shown.
struct Overlay {
    QRectF band;             // rubber band
    QPainterPath ghost;      // outline of a node that is being drawn
    QPainterPath ghostLinks; // lines of links that come with it
    QString size;            // its size, shown below `sizeUnder`
    QRectF sizeUnder;
    QPainterPath line;                 // a link that is being dragged
    bool arrow = false;                // it has a head at its last point
    ItemId loose = kNoItem;            // a link one of whose ends is being dragged
    std::optional<QPointF> grip;       // a bend that the keys move
    std::vector<LinkEndMark> linkEnds; // of the link
    std::vector<QPointF> linkStarts;   // the places from where a link can be dragged
    int litLinkStart = -1;             // the one that the pointer is on
    std::vector<QLineF> guides;        // along edges and middles that are in line
    std::vector<QLineF> gaps;          // across distances that are equal
    std::vector<QLineF> sizes;         // along sides of the same length, shown beside them
    QPainterPath faded;                // covers a link whose place is being changed
    QPainterPath unfaded;              // outlines that stay as they are where it covers them

    // Holds everything but the size's text.
    QRectF Bounds() const;
    bool IsEmpty() const {
        return size.isEmpty() && !grip && line.isEmpty() && linkStarts.empty() && Bounds().isNull();
    }
};

} // namespace diagram
