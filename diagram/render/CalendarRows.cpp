#include "diagram/render/CalendarRows.h"

#include <algorithm>

namespace diagram {

namespace {

constexpr double kNearPixels = 9;      // of a band that hasn't grown: with fewer, quarters aren't drawn
constexpr double kLeastBand = 14;      // pixels of a band that can be read
constexpr double kLeastBandAside = 28; // the same beside a strip that runs downwards

} // namespace

bool CalendarRows::Near() const { return kBandThickness * pixels_ >= kNearPixels; }

double CalendarRows::Thickness() const {
    const double own = (Near() ? 1 : 2) * (calendar_.rightwards ? kBandThickness : kBandWidth);
    const double least = calendar_.rightwards ? kLeastBand : kLeastBandAside;
    return own * std::max(1.0, least / std::max(own * pixels_, 1e-9));
}

CalendarRows::Row CalendarRows::Far() const {
    const QRectF &strip = calendar_.strip;
    const double own = 2 * (calendar_.rightwards ? kBandThickness : kBandWidth);
    const double breadth = calendar_.rightwards ? strip.height() : strip.width();
    const double over = std::clamp(Thickness() - own, 0.0, breadth);
    const Row row = At(0, Thickness());
    return calendar_.after ? Row{row.from - over, row.to - over} : Row{row.from + over, row.to + over};
}

CalendarRows::Row CalendarRows::At(int place, double thickness) const {
    const QRectF &strip = calendar_.strip;
    const double near = calendar_.rightwards ? (calendar_.after ? strip.bottom() : strip.top())
                                             : (calendar_.after ? strip.right() : strip.left());
    if (calendar_.after) return {near + place * thickness, near + (place + 1) * thickness};
    return {near - (place + 1) * thickness, near - place * thickness};
}

QRectF CalendarRows::PlaceOf(double from, double to, const Row &row) const {
    if (calendar_.rightwards) return {from, row.from, to - from, row.to - row.from};
    return {row.from, from, row.to - row.from, to - from};
}

bool CalendarRows::Lies(const QPointF &twips, const Row &row) const {
    const double across = calendar_.rightwards ? twips.y() : twips.x();
    const double along = calendar_.rightwards ? twips.x() : twips.y();
    const QRectF &strip = calendar_.strip;
    const bool within = calendar_.rightwards ? along >= strip.left() && along < strip.right()
                                             : along >= strip.top() && along < strip.bottom();
    return within && across >= row.from && across < row.to;
}

std::optional<StripPiece> CalendarRows::PieceAt(const QPointF &twips) const {
    if (calendar_.IsEmpty()) return std::nullopt;
    if (calendar_.bands && !Near() && Lies(twips, Years())) return StripPiece::Year;
    if (calendar_.strip.contains(twips)) return StripPiece::Month;
    if (!calendar_.bands) return std::nullopt;
    if (Lies(twips, Years())) return StripPiece::Year;
    if (Near() && Lies(twips, Quarters())) return StripPiece::Quarter;
    return std::nullopt;
}

} // namespace diagram
