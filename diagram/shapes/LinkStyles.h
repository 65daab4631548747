// The styles of links: one row each, with the sequence of directions that the style fixes.
#pragma once

#include <span>
#include <string_view>

namespace diagram {

enum class LinkForm : unsigned char { Polyline, Bezier, Orthogonal, Spline };

struct LinkStyleRow {
    int value;        // stored value
    const char *name; // as the user reads it
    LinkForm form;
    std::string_view directions; // "VHV" and the like for orthogonal ones, empty for the others
};

std::span<const LinkStyleRow> LinkStyleTable(); // the position in it is the value
int LastLinkStyle();
const LinkStyleRow *FindLinkStyle(int value);

// Whether there is such a style, and it has that form.
bool HasForm(int style, LinkForm form);
// Whether single bends can be added to links of that style and taken away.
bool HasFreeBends(int style);

// Number of points, ends included, that the router gives a link of that style: directions + 1, 4 for Bezier,
// 2 for the others with nothing in their way (a spline bends where the user bends it).
int RoutedPointCount(int style);

} // namespace diagram
