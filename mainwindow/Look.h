// The look of nodes and links as the look bar shows and changes it: one row for each property. Plain routines
// on what is selected.
#pragma once

#include "support/Colour.h"

#include <optional>
#include <span>
#include <vector>

namespace diagram {
class Font;
class Link;
class Node;
class Surface;
} // namespace diagram

namespace mainwindow {

enum class LookOf {
    Fill,
    LineColour,
    LineWidth, // pixels
    LineStyle,
    TextColour,
    Shadow,
    Shape,
    Routing,
    ArrowStart,
    ArrowEnd,
    Jumps
};

// The fill of a node that has none.
constexpr double kNoFill = support::kNoColour;

// Values are those of the model's properties; colours are numbers like all others.
struct LookRow {
    LookOf what;
    const char *key;                             // the name of its button
    const char *caption;                         // with placeholders of the product terms
    const char *image;                           // what the button shows while there is no one value
    double (*ofNode)(const diagram::Node &node); // null where nodes have no such property
    void (*toNode)(diagram::Node &node, double value);
    double (*ofLink)(const diagram::Link &link); // the same for links
    void (*toLink)(diagram::Link &link, double value);
    bool resizes = false; // the size of a node may follow
};
std::span<const LookRow> LookRows(); // in the order of LookOf
const LookRow &LookRowOf(LookOf what);

struct LookState {
    bool fits = false;           // something selected has the property
    std::optional<double> value; // what all of these have; none where they differ
    friend bool operator==(const LookState &, const LookState &) = default;
};
// Of what is selected, in the order of the rows. Looks no further than until all are known to differ.
std::vector<LookState> StatesOf(const diagram::Surface &surface, std::span<const LookRow> rows);
LookState StateOf(const diagram::Surface &surface, const LookRow &row);

// Gives the value to whatever is selected and has the property, as one step of undo. False, and no step,
// where all have it already. Error 380 for a value out of range, which changes nothing.
bool GiveLook(diagram::Surface &surface, const LookRow &row, double value);

// Whether something is so nowhere, here and there, or everywhere in the selection.
enum class Shared { Nowhere, Partly, Everywhere };
Shared SharedFont(const diagram::Surface &surface, bool (diagram::Font::*is)() const);
// The same for a family of text placements of nodes (0 left, 3 right, 6 centre).
Shared SharedAlignment(const diagram::Surface &surface, int base);

} // namespace mainwindow
