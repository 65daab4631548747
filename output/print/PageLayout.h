// How a surface is spread over sheets of paper: numbers alone, nothing is painted for it.
#pragma once

#include "diagram/geometry/Units.h"
#include "output/print/PageSetup.h"

#include <QLineF>
#include <QRectF>
#include <span>
#include <vector>

namespace print {

constexpr double kMillimetresPerInch = 25.4;

constexpr double kOverlap = 8;             // millimetres that a page with marks shows of the next one
constexpr double kLineOfText = 8;          // millimetres that a header or a footer takes
constexpr double kLargestFit = 2;          // by which a surface is enlarged at most to fill its page
constexpr double kGiveWay = 0.1;           // share of a page that a break gives way by, at most
constexpr int kMostPagesOfDirection = 500; // across, and down: for more the surface is scaled down

struct PageRules {
    QSizeF paper{210, 297}; // upright, millimetres; A4
    QMarginsF margins;      // millimetres of the sheet as it is held
    int orientation = kPortrait;
    bool fit = false;
    int xZoom = 100, yZoom = 100; // per cent, unless it fits; 0 makes it fit too
    bool header = false, footer = false, marks = false, keepWhole = false;
};

struct PageLayout {
    QSizeF paper;                                 // as it is held, millimetres
    QRectF body;                                  // where the surface stands on each sheet, millimetres
    double xScale = diagram::kMillimetresPerTwip; // millimetres on paper of a twip
    double yScale = diagram::kMillimetresPerTwip;
    QPointF shift; // of the surface within the body, millimetres
    bool overlaps = false;
    // The breaks with both ends, ascending, twips: one more than pages.
    std::vector<double> columns{0, 0}, rows{0, 0};

    int HorizontalPages() const { return int(columns.size()) - 1; }
    int VerticalPages() const { return int(rows.size()) - 1; }
    int Pages() const { return HorizontalPages() * VerticalPages(); }
    // The part of the surface that the page stands for, without overlap. Pages count from 0, across first.
    QRectF Tile(int page) const;
    // The part that the page shows: what fits its body, up to the overlap.
    QRectF Shown(int page) const;
    // The lines on the surface between two pages.
    std::vector<QLineF> Lines() const;
    // Where on the sheet the part is that the page stands for, in millimetres.
    QRectF Place(int page) const;
};

// `extent` is all that is on the surface, in twips; without any it makes one empty page. `boxes` are the
// nodes that breaks give way to.
PageLayout LayOutPages(const PageRules &rules, const QRectF &extent, std::span<const QRectF> boxes = {});

struct Span {
    double from = 0, to = 0;
};
// `from`, the places of the breaks, and `to`. A break that would cut one of `spans` stands before it, where
// that takes no more than a tenth of a step (kGiveWay); spans longer than a step are cut anyway.
std::vector<double> Breaks(double from, double to, double step, std::vector<Span> spans);

} // namespace print
