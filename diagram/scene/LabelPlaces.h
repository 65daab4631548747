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
    // What stood in that box is gone: labels that have searched there are looked at anew.
    void DisturbWhereFreed(const FloatBox &box);
    // A node stands elsewhere; null where it isn't seen. Labels that it touches now, or that looked where it
    // stood, are looked at anew.
    void NodeMoved(ItemId id, const FloatBox *before, const FloatBox *now);
    // The same for the pieces of a link's route that have come or gone. `before` is the link's former bounds,
    // null if it wasn't seen; these count where the former route isn't remembered.
    void RouteChanged(const Link &link, const FloatBox *before);
    // Most items have been moved: labels whose links have kept their form go along with them, and all labels
    // are marked to be looked at anew.
    void Follow(const Surface &surface);

    // While something is dragged, labels of links that don't change themselves stay where they are: what is
    // done for each step of the drag must not take longer than the step, and what is looked at stays quiet. A
    // label whose link is moved as a whole goes along. Afterwards they are looked at together, so that in the
    // end the drag makes no difference.
    enum class Extent { All, OfChangedLinks };
    bool IsUpToDate(Extent extent) const {
        return pending_.empty() &&
               (extent == Extent::OfChangedLinks || (disturbed_.empty() && moved_.IsEmpty()));
    }
    // Places the labels that must be looked at; calls `moved` for links whose labels stand elsewhere now.
    // `nodes` finds nodes.
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
        LabelPlace place;             // without its areas
        std::vector<FloatBox> looked; // these: what goes outside of them doesn't matter to the label
    };
    struct Placed : Found {
        Route route;            // when it was placed last; straight pieces
        Rank rank;              // when it was placed last
        bool isIndexed = false; // whether `looked` and `box` are in the indices
    };
    // What has happened around a label since it was placed.
    struct Disturbance {
        bool isTaken = false; // something came that touches it, or more has changed than is worth noting
        LabelGround freed;    // what has gone where it has searched
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

    // What has moved since all labels were looked at last: where it stood then, and where it stands now.
    // Places in between, while something is dragged, matter to no label.
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
    bool knowsRoutes_ = false; // routes_ and pieces_ are filled; not before a label looks for a place
    std::unordered_map<ItemId, SeenRoute> routes_;
    PieceGrid pieces_; // of the routes
    BoxIndex looked_, boxes_;
    std::set<ItemId> pending_;                // labels that have changed themselves
    std::map<ItemId, Disturbance> disturbed_; // labels around which something has changed
    Moved moved_; // what has moved; which labels that disturbs is still to be seen
};

} // namespace diagram
