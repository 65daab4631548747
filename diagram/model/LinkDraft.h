// A link as the router sees it: one that is there, or one that might be drawn.
#pragma once

#include "diagram/model/Link.h"

#include <QPointF>
#include <QSizeF>

namespace diagram {

class Node;

// What it points to must outlive it.
struct LinkDraft {
    // A new link, with the values that a surface gives it.
    LinkDraft();
    // That link; its ends may then be put elsewhere.
    explicit LinkDraft(const Link &link);

    const LinkData *data; // never null; `source` and `destination` below count, not those in it
    // Null for an end that lies free at `loose` (twips); not both.
    const Node *source = nullptr;
    const Node *destination = nullptr;
    QPointF loose;
    QSizeF looseSize;   // of a node that will stand around it, if any
    int looseShape = 1; // and the shape of that
    int looseOrientation = 0;
    ItemId id = kNoItem; // the link that it is or takes the place of; kNoItem for a new one
};

} // namespace diagram
