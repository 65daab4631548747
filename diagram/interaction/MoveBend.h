// Moves a bend of a link, or makes one out of a segment. A free bend that comes to lie in line with its
// neighbours goes away; Alt keeps it.
#pragma once

#include "diagram/interaction/Gesture.h"
#include "diagram/interaction/HeldItems.h"

namespace diagram {

class MoveBend : public Gesture {
public:
    enum class Grip { Bend, Segment };
    // `index` is the bend or the segment. The link must be one of `surface`.
    MoveBend(Surface &surface, Link &link, Grip grip, int index);

    std::unique_ptr<Gesture> Move(const PointerInput &input) override;
    void Commit(const PointerInput &input) override; // AfterStretch
    void Cancel() override;
    Qt::CursorShape Pointer() const override { return Qt::SizeAllCursor; }

private:
    std::vector<Point> Route(const PointerInput &input) const;

    Surface &surface_;
    HeldItems held_;
    Grip grip_;
    int index_;
};

// Takes a bend away, as one step with AfterStretch. With a style that fixes the number of bends all of them
// go back to the router. An end is no bend: nothing happens.
void RemoveBend(Link &link, int index);

// All bends are the router's again; a write like any other, with no event.
void GiveBendsToRouter(Link &link);

} // namespace diagram
