#include "vector/player/ObjectMaking.h"

#include "vector/player/MetafileValues.h"

#include <cmath>
#include <iterator>

namespace vector {

QPen PenOf(std::uint32_t style, double width, std::uint32_t colour) {
    constexpr Qt::PenStyle kLines[] = {Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                                       Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen};
    const std::uint32_t line = style & 0xF;
    QPen pen(QColor(metafile::FromColorRef(colour)), std::abs(width),
             line < std::size(kLines) ? kLines[line] : Qt::SolidLine);
    pen.setCapStyle(style & metafile::kFlatEnds     ? Qt::FlatCap
                    : style & metafile::kSquareEnds ? Qt::SquareCap
                                                    : Qt::RoundCap);
    pen.setJoinStyle(style & metafile::kBevelJoin   ? Qt::BevelJoin
                     : style & metafile::kMiterJoin ? Qt::SvgMiterJoin
                                                    : Qt::RoundJoin);
    if (pen.style() > Qt::SolidLine) pen.setCapStyle(Qt::FlatCap);
    return pen;
}

QBrush BrushOf(std::uint32_t style, std::uint32_t colour, std::uint32_t hatch) {
    constexpr Qt::BrushStyle kHatches[] = {Qt::HorPattern,   Qt::VerPattern,   Qt::FDiagPattern,
                                           Qt::BDiagPattern, Qt::CrossPattern, Qt::DiagCrossPattern};
    if (style == metafile::kNullBrush) return Qt::NoBrush;
    const bool hatched = style == metafile::kHatchedBrush && hatch < std::size(kHatches);
    return QBrush(QColor(metafile::FromColorRef(colour)), hatched ? kHatches[hatch] : Qt::SolidPattern);
}

MetafileFont FontOf(int height, int tenthsOfDegree, int weight) {
    constexpr int kBoldFrom = 600;
    MetafileFont font;
    font.height = height == 0 ? -12 : height;
    font.angle = tenthsOfDegree / 10.0;
    font.bold = weight >= kBoldFrom;
    return font;
}

} // namespace vector
