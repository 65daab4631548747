// A link as the router looks at it: one that is there, or one that might be.
#pragma once

#include "diagram/model/Link.h"

#include <QPointF>
#include <QSizeF>

namespace diagram {

class Node;

// Whoever makes one keeps what it points to.
struct LinkDraft {
    // One more link, as a surface adds it.
    LinkDraft();
    // That link; its ends may then be put elsewhere.
    explicit LinkDraft(const Link &link);

    const LinkData *data; // never null; its ends are passed over
    // Null for an end that lies free at `loose` (twips); not both.
    const Node *source = nullptr;
    const Node *destination = nullptr;
    QPointF loose;
    QSizeF looseSize;   // of a node that will stand around it, if any
    int looseShape = 1; // and the shape of that
    int looseOrientation = 0;
    ItemId id = kNoItem; // the link that it is or takes the place of; none for one more
};

} // namespace diagram
