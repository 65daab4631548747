// The arrow heads: one row each.
//
// The number in a name is the angle in degrees that the head spans: between the two sides at its tip, between
// the line and the one side of a half arrow, between the outer toes of a foot ("Many"), or as which the bar
// of "One" is seen from the tip.
#pragma once

#include <QPainterPath>
#include <span>

namespace diagram {

enum class ArrowFill : unsigned char {
    None, // strokes only
    Line, // in the line's colour
    Paper // in the surface's back colour
};

struct ArrowRow {
    int value;              // stored value
    const char *name;       // as the user reads it; a number in it is the angle of the head in degrees
    QPainterPath (*path)(); // unit frame: the tip at the origin, the line comes from negative x, length 1;
                            // null for none
    ArrowFill fill;
    double eats; // length of line that the head replaces, in units of the frame
};

std::span<const ArrowRow> ArrowTable(); // the position in it is the value
int LastArrow();
const ArrowRow *FindArrow(int value);

// Length of the unit frame in twips for a size (0 small, 1 medium, 2 big) and a line width in pixels.
double ArrowScale(int size, double drawWidth);
// Twips of a line that such a head takes up: at least the unit frame, and what it replaces; 0 for no head.
double HeadLength(int arrow, int size, double drawWidth);

} // namespace diagram
