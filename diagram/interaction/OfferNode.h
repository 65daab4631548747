// Offers a new node at the end of a link that was dropped on the empty page.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/LooseEnd.h"

namespace diagram {

// Shows the node and the link as they would be until the user takes or leaves them. The node has the look,
// the size, the level and the groups of the one at the link's other end. Taken, both are one step, and the
// text of the node is edited. Left, nothing comes of the link.
class OfferNode : public Gesture {
public:
    // `place` is the node's box, twips.
    OfferNode(Scene &scene, Stage &stage, const LooseEnd &end, const QRectF &place);

    std::unique_ptr<Gesture> Move(const PointerInput &) override { return nullptr; }
    void Commit(const PointerInput &input) override; // AfterAddNodeLike, AfterAddLink, AfterSelect
    void Cancel() override { stage_.Tell(Hint::LinkNeedsNode); }
    void Show(Overlay &overlay) const override;
    bool ScrollsAtEdges() const override { return false; }

    bool TakesKeys() const override { return true; }
    Hint WhatNow() const override { return Hint::KeysTakeNode; }
    bool IsOffer() const override { return true; }

private:
    Scene &scene_;
    Stage &stage_;
    LooseEnd end_;
    QRectF place_;
};

} // namespace diagram
