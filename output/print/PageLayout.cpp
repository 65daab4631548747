#include "output/print/PageLayout.h"

#include <algorithm>

namespace print {

namespace {

constexpr double kLeastBody = 10; // millimetres that margins leave at least
constexpr double kSlack = 1e-6;   // share of a step that counts as rounding

// What the margins leave; where that is too little, margins that are wide are narrowed in proportion.
QRectF BodyOf(const PageRules &rules, const QSizeF &paper) {
    const auto shrink = [](double size, double taken) {
        return taken > size - kLeastBody ? std::max(0.0, size - kLeastBody) / taken : 1;
    };
    QMarginsF m = rules.margins;
    m.setTop(m.top() + (rules.header ? kLineOfText : 0));
    m.setBottom(m.bottom() + (rules.footer ? kLineOfText : 0));
    const double across = shrink(paper.width(), m.left() + m.right());
    const double down = shrink(paper.height(), m.top() + m.bottom());
    return QRectF(QPointF(), paper)
        .adjusted(m.left() * across, m.top() * down, -m.right() * across, -m.bottom() * down);
}

// Overlapping spans as one; those that only touch leave a place between them.
std::vector<Span> Merged(std::vector<Span> spans, double step) {
    std::erase_if(spans, [step](const Span &span) { return !(span.to - span.from <= step); });
    std::ranges::sort(spans, {}, &Span::from);
    std::vector<Span> merged;
    for (const Span &span : spans) {
        if (!merged.empty() && span.from < merged.back().to)
            merged.back().to = std::max(merged.back().to, span.to);
        else
            merged.push_back(span);
    }
    return merged;
}

// The start of the span that `at` would cut, or `at`.
double Before(double at, const std::vector<Span> &merged) {
    const auto next = std::ranges::upper_bound(merged, at, {}, &Span::from);
    if (next == merged.begin()) return at;
    const Span &span = *std::prev(next);
    return span.from < at && at < span.to ? span.from : at;
}

void Fit(PageLayout &layout, const QRectF &extent) {
    const double scale =
        std::min({layout.body.width() / extent.width(), layout.body.height() / extent.height(),
                  kLargestFit * diagram::kMillimetresPerTwip});
    layout.xScale = layout.yScale = scale;
    layout.columns = {extent.left(), extent.right()};
    layout.rows = {extent.top(), extent.bottom()};
    layout.shift = {(layout.body.width() - extent.width() * scale) / 2,
                    (layout.body.height() - extent.height() * scale) / 2};
}

struct Direction {
    double from, to; // of the extent, twips
    double body;     // millimetres
    double &scale;
    std::vector<Span> spans;
};

bool FitsOnePage(const Direction &d) { return (d.to - d.from) * d.scale <= d.body * (1 + kSlack); }

std::vector<double> Divide(Direction &d, bool overlaps) {
    if (FitsOnePage(d)) return {d.from, d.to};
    const double step = d.body - (overlaps ? std::min(kOverlap, d.body / 2) : 0);
    d.scale = std::min(d.scale, kMostPagesOfDirection * step / (d.to - d.from));
    return Breaks(d.from, d.to, step / d.scale, std::move(d.spans));
}

std::vector<Span> Across(std::span<const QRectF> boxes) {
    std::vector<Span> spans;
    for (const QRectF &box : boxes) spans.push_back({box.left(), box.right()});
    return spans;
}

std::vector<Span> Down(std::span<const QRectF> boxes) {
    std::vector<Span> spans;
    for (const QRectF &box : boxes) spans.push_back({box.top(), box.bottom()});
    return spans;
}

} // namespace

std::vector<double> Breaks(double from, double to, double step, std::vector<Span> spans) {
    const std::vector<Span> merged = Merged(std::move(spans), step);
    std::vector<double> breaks{from};
    while (breaks.back() + step * (1 + kSlack) < to) {
        const double at = breaks.back() + step;
        const double before = Before(at, merged);
        breaks.push_back(before >= at - step * kGiveWay ? before : at);
    }
    breaks.push_back(to);
    return breaks;
}

QRectF PageLayout::Tile(int page) const {
    const auto column = std::size_t(page % HorizontalPages()), row = std::size_t(page / HorizontalPages());
    return {QPointF(columns[column], rows[row]), QPointF(columns[column + 1], rows[row + 1])};
}

QRectF PageLayout::Shown(int page) const {
    const QRectF tile = Tile(page);
    const auto end = [&](double start, double breakAt, double last, double room, double scale) {
        if (breakAt >= last) return start + room / scale;
        return overlaps ? std::min(start + room / scale, breakAt + kOverlap / scale) : breakAt;
    };
    const double right = end(tile.left(), tile.right(), columns.back(), body.width() - shift.x(), xScale);
    const double bottom = end(tile.top(), tile.bottom(), rows.back(), body.height() - shift.y(), yScale);
    return {QPointF(tile.left() - shift.x() / xScale, tile.top() - shift.y() / yScale),
            QPointF(right, bottom)};
}

std::vector<QLineF> PageLayout::Lines() const {
    std::vector<QLineF> lines;
    for (std::size_t i = 1; i + 1 < columns.size(); ++i)
        lines.emplace_back(columns[i], rows.front(), columns[i], rows.back());
    for (std::size_t i = 1; i + 1 < rows.size(); ++i)
        lines.emplace_back(columns.front(), rows[i], columns.back(), rows[i]);
    return lines;
}

QRectF PageLayout::Place(int page) const {
    const QRectF tile = Tile(page);
    return {body.topLeft() + shift, QSizeF(tile.width() * xScale, tile.height() * yScale)};
}

PageLayout LayOutPages(const PageRules &rules, const QRectF &extent, std::span<const QRectF> boxes) {
    PageLayout layout;
    layout.paper = rules.orientation == kLandscape ? rules.paper.transposed() : rules.paper;
    layout.body = BodyOf(rules, layout.paper);
    if (extent.width() <= 0 || extent.height() <= 0) return layout;
    if (rules.fit || rules.xZoom == 0 || rules.yZoom == 0) return Fit(layout, extent), layout;
    constexpr double kPerCent = 0.01;
    layout.xScale *= rules.xZoom * kPerCent;
    layout.yScale *= rules.yZoom * kPerCent;
    Direction across{extent.left(), extent.right(), layout.body.width(), layout.xScale, {}};
    Direction down{extent.top(), extent.bottom(), layout.body.height(), layout.yScale, {}};
    if (rules.keepWhole) across.spans = Across(boxes), down.spans = Down(boxes);
    layout.overlaps = rules.marks && !(FitsOnePage(across) && FitsOnePage(down));
    layout.columns = Divide(across, layout.overlaps);
    layout.rows = Divide(down, layout.overlaps);
    return layout;
}

} // namespace print
