// Where the labels of a surface's links stand. Each finds its place among the nodes, the ways, and the labels
// that lie lower in the stacking, so that the same surface gives the same places whatever came before.
#pragma once

#include "diagram/scene/ItemsAround.h"

#include <QLineF>
#include <set>
#include <unordered_map>

namespace diagram {

class Link;
class Surface;

class LabelPlaces {
public:
    void Clear();
    // Text, font or way may have changed, the link may be hidden or restacked: its label is looked at anew.
    void LinkChanged(const Link &link);
    void LinkRemoved(ItemId id);
    // What stands, or stood, in that box has changed: labels that reach it are looked at anew.
    void Disturb(const FloatBox &box);
    // The same for the pieces of a link's way that it hadn't before, or has no more. `before` is where it
    // stood, null if it wasn't seen; it counts as a whole where its way isn't remembered.
    void DisturbAlong(const Link &link, const FloatBox *before);

    // While something is dragged, labels of links that don't change themselves stay where they are: what is
    // done for each step of the drag must not take longer than the step, and what is looked at stays quiet.
    // Afterwards they are looked at together, so that in the end the drag makes no difference.
    enum class Extent { All, OfChangedLinks };
    bool IsUpToDate(Extent extent) const {
        return pending_.empty() && (extent == Extent::OfChangedLinks || disturbed_.empty());
    }
    // Places what must be looked at; tells the links whose labels stand elsewhere now.
    void Update(const Surface &surface, const ItemsAround &around, Extent extent,
                const std::function<void(Link &)> &moved);
    // Empty without one.
    QRectF At(ItemId id) const;
    // Where a label of that size would stand.
    QRectF PlaceFor(const Link &link, const QSizeF &size, const ItemsAround &around) const;

private:
    using Rank = std::pair<StackKey, ItemId>;
    struct Found {
        QRectF box;
        // Nothing outside matters to it: a label in the middle of its way stays while it is free.
        std::vector<QRectF> reaches;
    };
    struct Placed {
        std::vector<FloatBox> reaches;
        QRectF box;
        Rank rank;              // when it was placed last
        bool isIndexed = false; // reaches and box are in the indices
    };

    static Rank RankOf(const Link &link);
    std::set<Rank> TakePending(const Surface &surface, Extent extent);
    void Forget(ItemId id);
    // Whether it stands elsewhere now; what that disturbs is noted.
    bool Place(const Link &link, const ItemsAround &around);
    void Index(ItemId id, Placed &placed, const Found &found);
    void DisturbAbove(const Link &link, const QRectF &box);
    void Enqueue(const Surface &surface, std::set<Rank> &queue);
    Found FindPlace(const Link &link, const QSizeF &size, const ItemsAround &around) const;

    std::unordered_map<ItemId, Placed> placed_;
    std::unordered_map<ItemId, std::vector<QLineF>> ways_; // of links that have moved among labels
    BoxIndex reaches_, boxes_;
    std::set<ItemId> pending_;   // changed themselves
    std::set<ItemId> disturbed_; // reach what has changed
};

} // namespace diagram
