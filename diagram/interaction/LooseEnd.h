// The end of a link that is looking for a node: of a new link, or of one that is there already.
#pragma once

#include "diagram/model/LinkDraft.h"
#include "diagram/model/Surface.h"

#include <QPainterPath>

namespace diagram {

class Scene;
struct Overlay;

// The topmost node at the point that a user may link to; null for none.
Node *LinkTargetAt(Scene &scene, const QPointF &at);

enum class LinkSide : unsigned char { Source, Destination };

class LooseEnd {
public:
    // Of a new link, whose other end is at `fixed`.
    LooseEnd(Node &fixed, LinkSide side) : fixed_(fixed.Id()), side_(side) {}
    // Of a new link that was pulled from a side of `source` (0 above, clockwise) and keeps to that as long as
    // it is free.
    LooseEnd(Node &source, int pulledFrom)
        : fixed_(source.Id()), side_(LinkSide::Destination), pulledFrom_(pulledFrom) {}
    LooseEnd(Link &link, LinkSide side);

    bool IsNew() const { return link_ == kNoItem; }
    LinkSide Side() const { return side_; }
    // The node at the other end, and the one at which the loose end is now; null when there is none.
    Node *Fixed(const Surface &surface) const { return surface.FindNode(fixed_); }
    Node *Joined(const Surface &surface) const;

    // The line that the link would have with its end at `target`, or at the point `at` when that is null;
    // twips.
    QPainterPath LineTo(Scene &scene, const Node *target, const QPointF &at) const;
    // The style that a new link to a node there would get (twips).
    int StyleTo(Scene &scene, const QRectF &newNode) const;
    // Shows a new link with a new node at its end.
    void ShowNew(Scene &scene, const QRectF &newNode, Overlay &overlay) const;
    // Shows that line, the node that it would join, and a link that is there already standing back. `named`
    // tells the two ends from each other by words.
    void Show(Scene &scene, const QPainterPath &line, const Node *target, bool named, Overlay &overlay) const;
    // Joins the node, as one step with its events: a new link is added with the surface's defaults and
    // becomes the selection (AfterAddLink, AfterSelect); of another the end goes there (AfterStretch).
    // Nothing where it ends there already.
    void Join(Scene &scene, Node &target) const;

private:
    void Add(Scene &scene, Node &target) const;
    LinkDraft DraftTo(const Surface &surface, const Node *target, const QPointF &at) const;
    LinkDraft DraftTo(const Surface &surface, const QRectF &newNode) const;
    void ShowEnds(Scene &scene, const Node *target, bool named, Overlay &overlay) const;
    int StyleOf(Scene &scene, const LinkDraft &draft) const;
    QPainterPath LineOf(Scene &scene, const LinkDraft &draft) const;

    ItemId link_ = kNoItem;
    ItemId fixed_;
    LinkSide side_;
    int pulledFrom_ = -1; // from no side
};

} // namespace diagram
