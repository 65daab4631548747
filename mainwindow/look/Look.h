// The look of nodes and links as the look bar shows and changes it: a row for each property, and plain
// routines on the selection.
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

// The value of LookOf::Fill for a node without a fill.
constexpr double kNoFill = support::kNoColour;

// Values are those of the model's properties, colours included.
struct LookRow {
    LookOf what;
    const char *key;                             // the name of its button
    const char *caption;                         // with placeholders of the product terms
    const char *image;                           // what the button shows while there is no one value
    double (*ofNode)(const diagram::Node &node); // null, as toNode, where nodes have no such property
    void (*toNode)(diagram::Node &node, double value);
    double (*ofLink)(const diagram::Link &link); // the same for links
    void (*toLink)(diagram::Link &link, double value);
    bool resizes = false; // whether a change can resize a node
};
std::span<const LookRow> LookRows(); // in the order of LookOf
const LookRow &LookRowOf(LookOf what);

struct LookState {
    bool fits = false;           // whether something selected has the property
    std::optional<double> value; // the value of all that have it; none where they differ
    friend bool operator==(const LookState &, const LookState &) = default;
};
// The states of the selection, in the order of the rows. Stops reading once all are known to differ.
std::vector<LookState> StatesOf(const diagram::Surface &surface, std::span<const LookRow> rows);
LookState StateOf(const diagram::Surface &surface, const LookRow &row);

// Gives the value to all that is selected and has the property, as one step of undo. False, and no step,
// where all have it already. Error 380 for a value out of range, which changes nothing.
bool GiveLook(diagram::Surface &surface, const LookRow &row, double value);

// How much of the selection has a property: nothing, a part, or all of it.
enum class Shared { Nowhere, Partly, Everywhere };
// The style of font that `is` asks for.
Shared SharedFont(const diagram::Surface &surface, bool (diagram::Font::*is)() const);
// A family of alignments of node texts (TextAlignment.h).
Shared SharedAlignment(const diagram::Surface &surface, int family);

} // namespace mainwindow
