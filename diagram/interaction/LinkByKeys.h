// Finds a node for an end of a link with the keys: a new link, or one that is there already.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/LooseEnd.h"

namespace diagram {

// One node is lit as the candidate; Tab and the arrows go on from it to others as they do when nodes are
// selected, round again behind the last, and the node at the other end is met on the way: that gives a loop.
// The pointer has a say only while its button is held.
class LinkByKeys : public Gesture {
public:
    // Scrolls to the first candidate.
    LinkByKeys(Scene &scene, Stage &stage, const LooseEnd &end, Node &candidate);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    // The events of a link that is dragged.
    void Commit(const PointerInput &input) override;
    void Cancel() override { stage_.SetScrollOffset(scroll_); }
    void Show(Overlay &overlay) const override;
    bool ScrollsAtEdges() const override { return false; }

    bool TakesKeys() const override { return true; }
    void Key(const KeyInput &input) override;
    Hint WhatNow() const override;
    Attention LooksAt() const override;

private:
    void GoTo(const Node *candidate, const QPointF &at);

    Scene &scene_;
    Stage &stage_;
    LooseEnd end_;
    ItemId candidate_ = kNoItem;
    QPainterPath line_; // that the link would have, twips
    QPointF scroll_;    // at the start
};

// A gesture for the link that the keys ask for, or null when the selection gives none. With links selected it
// is the one with the focus, whose end looks for another node. With two nodes selected the link leads from
// the first of them, with the other as first candidate; with one or more than two it leads from the one with
// the focus, and the nearest node is the first candidate, in the direction given if there is one. `side`
// tells which end is loose.
std::unique_ptr<Gesture> BeginLinkByKeys(Scene &scene, Stage &stage, LinkSide side, const QPointF &direction);

} // namespace diagram
