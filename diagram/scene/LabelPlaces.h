// Where the labels of a surface's links stand. Each finds its place among the nodes, the routes, and the
// labels that lie lower in the stacking, so that the same surface gives the same places whatever came before.
#pragma once

#include "diagram/geometry/Point.h"
#include "diagram/scene/ItemsAround.h"
#include "diagram/scene/PieceGrid.h"
#include "diagram/shapes/LabelPlace.h"

#include <map>
#include <optional>
#include <QLineF>
#include <QRectF>
#include <set>
#include <unordered_map>

namespace diagram {

class Link;
class Surface;

class LabelPlaces {
public:
    void Clear();
    // Text, font or route may have changed, the link may be hidden or restacked: its label is looked at anew.
    void LinkChanged(const Link &link);
    void LinkRemoved(ItemId id);
    // What stood in that box stands there no more: labels that looked there are looked at anew.
    void DisturbWhereFreed(const FloatBox &box);
    // A node stands elsewhere; null where it isn't seen. Labels that it touches now, or that looked where it
    // stood, are looked at anew.
    void NodeMoved(ItemId id, const FloatBox *before, const FloatBox *now);
    // The same for the pieces of a link's route that it hadn't before, or has no more. `before` is where it
    // stood, null if it wasn't seen; it counts as a whole where its route isn't remembered.
    void RouteChanged(const Link &link, const FloatBox *before);
    // Most of what there is has been moved: labels whose links are as they were, elsewhere, go along; all are
    // looked at anew when that is asked for.
    void Follow(const Surface &surface);

    // While something is dragged, labels of links that don't change themselves stay where they are: what is
    // done for each step of the drag must not take longer than the step, and what is looked at stays quiet. A
    // label whose link is moved as a whole goes along.
    // Afterwards they are looked at together, so that in the end the drag makes no difference.
    enum class Extent { All, OfChangedLinks };
    bool IsUpToDate(Extent extent) const {
        return pending_.empty() &&
               (extent == Extent::OfChangedLinks || (disturbed_.empty() && moved_.IsEmpty()));
    }
    // Places what must be looked at; tells the links whose labels stand elsewhere now. `nodes` are those
    // around.
    void Update(const Surface &surface, const ItemsAround &nodes, Extent extent,
                const std::function<void(Link &)> &moved);
    // Empty without one.
    QRectF At(ItemId id) const;
    // Where a label of that size would stand.
    QRectF PlaceFor(const Link &link, const QSizeF &size, const ItemsAround &nodes);

private:
    using Rank = std::pair<StackKey, ItemId>;
    using Route = std::vector<QPointF>;
    struct Found {
        QRectF box;
        LabelPlace place;             // without what it looked at
        std::vector<FloatBox> looked; // nothing that goes elsewhere matters to it
    };
    struct Placed : Found {
        Route route;            // straight pieces, as when it was placed last
        Rank rank;              // the same
        bool isIndexed = false; // looked and box are in the indices
    };
    // What has happened around a label.
    struct Disturbance {
        bool isTaken = false; // or more than is worth remembering
        LabelGround freed;
        void Free(const QRectF &box);
        void Free(const QLineF &piece);
        void Add(const Disturbance &more);
    };
    using Queue = std::map<Rank, Disturbance>; // labels that are to be looked at
    struct SeenRoute {
        int style = 0;
        std::vector<Point> points; // none while it is hidden
        friend bool operator==(const SeenRoute &, const SeenRoute &) = default;
    };

    // What may stand elsewhere than when all labels were looked at last, and where that was. What comes and
    // goes in between, while something is dragged, matters to no label.
    struct Moved {
        struct Boxes {
            std::optional<FloatBox> before, now;
        };
        std::map<ItemId, Boxes> nodes, labels;
        std::map<ItemId, SeenRoute> routes; // before
        bool IsEmpty() const { return nodes.empty() && labels.empty() && routes.empty(); }
    };

    static Rank RankOf(const Link &link);
    std::set<ItemId> Waiting(Extent extent) const;
    void SettlePending(const Surface &surface, Extent extent);
    Queue TakePending(const Surface &surface, Extent extent);
    void Forget(ItemId id);
    // Whether it stands elsewhere now; what that disturbs is noted.
    bool Place(const Link &link, const ItemsAround &nodes, Extent extent);
    void Index(ItemId id, Placed &placed, const Found &found);
    void DisturbByMoved();
    void DisturbByMoved(const Moved::Boxes &boxes);
    void DisturbByMoved(const SeenRoute &before, const SeenRoute &now);
    void DisturbWhereFreed(const QLineF &piece);
    void DisturbWhereTaken(const FloatBox &box);
    void DisturbWhereTaken(const QLineF &piece);
    void DisturbAbove(const Link &link, const BoxIndex &index, const QRectF &box,
                      const std::function<void(Disturbance &)> &note);
    void NotePlace(const Link &link, const std::optional<QRectF> &before, const QRectF &now, Extent extent);
    bool KeepsPlace(const Link &link, const Disturbance &what, const ItemsAround &nodes) const;
    void NeedRoutes(const Surface &surface);
    void ForgetRoutes();
    void AddPieces(ItemId id, const SeenRoute &route);
    void Enqueue(const Surface &surface, Queue &queue);
    LabelGrounds GroundsOf(const Link &link, const ItemsAround &nodes) const;
    Found FindPlace(const Link &link, const Route &route, const QSizeF &size, const ItemsAround &nodes) const;
    static Found MovedBy(const QPointF &way, Found found);

    std::unordered_map<ItemId, Placed> placed_;
    bool knowsRoutes_ = false; // not while there are no labels, nor before a place is looked for
    std::unordered_map<ItemId, SeenRoute> routes_;
    PieceGrid pieces_; // of the routes
    BoxIndex looked_, boxes_;
    std::set<ItemId> pending_;                // changed themselves
    std::map<ItemId, Disturbance> disturbed_; // by what has changed around them
    Moved moved_;                             // what that isn't known of yet
};

} // namespace diagram
