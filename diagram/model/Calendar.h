// What the strip of days is divided into, for drawing beside it: years, quarters, weeks. The diagram itself
// knows of no dates; what it is told is in twips.
#pragma once

#include "diagram/model/Item.h"
#include "support/Colour.h"

#include <optional>
#include <QLineF>
#include <QRectF>
#include <QString>
#include <vector>

namespace diagram {

class Link;
class Node;
class Surface;

// Whether the link joins a node to its day and is drawn palely, until the user asks for it: marked and not
// selectable, one pixel wide, orthogonal with two bends at most.
bool IsQuietDateLink(const Link &link);

struct Calendar {
    // A piece along the strip.
    struct Span {
        double from = 0, to = 0;
        QString caption;
        bool folded = false; // to a sliver, all of it
        double Length() const { return to - from; }
        friend bool operator==(const Span &, const Span &) = default;
    };

    // Months that lie on each other as one sliver.
    struct Fold {
        QString name, count;        // of what is folded; of the nodes that belong there
        std::vector<ItemId> months; // the first stands for all of them
        friend bool operator==(const Fold &, const Fold &) = default;
    };

    // Rows of nodes beside the strip that have something in common: across it.
    struct Lane {
        double from = 0, to = 0;
        QString caption;
        friend bool operator==(const Lane &, const Lane &) = default;
    };

    bool rightwards = true; // runs from left to right; else downwards
    bool after = false;     // the bands lie below the strip, or to its right; else above, or to its left
    bool bands = true;      // are drawn at all
    bool todayEverywhere = false; // on paper and in pictures too
    QRectF strip;                 // the months in sight; empty without a strip
    QString fontName;
    support::Colour ink = 0; // in which the months are written
    double legible = 9;      // points, of the months' captions
    std::vector<Span> years, quarters, months;
    std::vector<double> weeks;  // where they begin
    std::vector<Span> weekends; // only where they are to be shaded
    std::optional<QLineF> today;
    std::vector<Fold> folds;
    std::vector<Lane> lanes;

    // Of which the node is a month; null for none.
    const Fold *FoldWith(ItemId node) const;
    bool IsEmpty() const { return strip.isEmpty(); }
    // From the strip outwards at zoom 100, quarters first.
    QRectF Bands() const;
    // Strip and bands.
    QRectF Bounds() const { return bands ? strip | Bands() : strip; }
    friend bool operator==(const Calendar &, const Calendar &) = default;
};

constexpr double kBandThickness = 270; // twips, of a band above or below the strip
constexpr double kBandWidth = 480;     // of a band to the left or right of it

// Who tells the calendar of a surface, and which nodes are bars; set once at the start. Without one no
// surface has a calendar, and none is a bar.
using CalendarSource = Calendar (*)(const Surface &);
using BarSource = bool (*)(const Node &);
void SetCalendarSource(CalendarSource source, BarSource bars = nullptr);
Calendar CalendarOf(const Surface &surface);
// Whether the node is as long, from left to right, as it lasts.
bool IsBarOfStrip(const Node &node);

} // namespace diagram
