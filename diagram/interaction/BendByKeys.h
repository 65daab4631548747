// Bends a link with the keys.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/HeldItems.h"

#include <vector>

namespace diagram {

// One of the link's bends or of the middles of its segments is lit; Tab goes on along the route. The arrows
// move it by a pixel, with Shift by a step of the grid: a segment of free form gets a bend by that, one that
// runs level or upright is shifted. Del takes a bend away, or gives all bends back to the router where they
// can't go one by one. A click ends it like Enter.
class BendByKeys : public Gesture {
public:
    // The link must be one of `surface`.
    BendByKeys(Surface &surface, Stage &stage, Link &link);

    std::unique_ptr<Gesture> Move(const PointerInput &) override { return nullptr; }
    void Commit(const PointerInput &input) override; // AfterStretch
    void Cancel() override { held_.RestoreLinks(surface_); }
    void Show(Overlay &overlay) const override;
    bool ScrollsAtEdges() const override { return false; }

    bool TakesKeys() const override { return true; }
    void Key(const KeyInput &input) override;
    Hint WhatNow() const override { return Hint::KeysBend; }

private:
    // A point of the route, or the middle between it and the next.
    struct Grip {
        bool isBend;
        int index;
    };
    const HeldLink &Held() const { return held_.Links().front(); }
    std::vector<Grip> Grips() const; // along the route, never empty
    Grip Lit() const { return Grips()[lit_]; }
    QPointF Place(const Grip &grip) const;
    void GoTo(size_t grip);
    void Drag(const QPointF &by);
    void Remove();
    void Write(std::vector<Point> route);

    Surface &surface_;
    Stage &stage_;
    HeldItems held_;
    std::vector<Point> route_; // as it is now
    size_t lit_ = 0;
    bool routed_ = false; // the bends are the router's again
};

} // namespace diagram
