#include "diagram/model/TextBeside.h"

#include "diagram/model/Calendar.h"
#include "diagram/model/Surface.h"
#include "diagram/shapes/Measures.h"
#include "diagram/shapes/Shapes.h"

#include <algorithm>
#include <QStringList>

namespace diagram {

namespace {

constexpr double kGap = 60;         // between the bar and its text
constexpr double kMostHigher = 150; // than the bar, half of that above it and below it

double LongestWord(const QString &text, const Font &font, TextMeasure &measure) {
    double longest = 0;
    for (const QString &word : text.simplified().split(u' '))
        longest = std::max(longest, measure.Measure(word, font, 0).width());
    return longest;
}

bool HasRoomInside(const NodeData &data, const QString &text, const QRectF &bar, TextMeasure &measure) {
    const double beside = 2 * kTwipsPerPixel * (double(data.drawWidth) + std::max(0, data.xTextMargin));
    const double room = std::max(TextArea(data.shape, data.shapeOrientation, bar).width() - beside,
                                 bar.width() - 2 * kTwipsPerPixel);
    return LongestWord(text, data.font, measure) <= room &&
           measure.Measure(text, data.font, room).height() <= bar.height();
}

} // namespace

QRectF TextBesideBar(const Node &node, const QRectF &bar, TextMeasure *measure) {
    const QString text = node.ShownText();
    const NodeData &data = node.Data();
    if (!measure || text.isEmpty() || !data.picture.IsNull()) return {};
    if (HasRoomInside(data, text, bar, *measure)) return {};
    const QSizeF size = measure->Measure(text, data.font, kWidestBeside);
    if (size.height() > bar.height() + kMostHigher) return {};
    return {QPointF(bar.right() + kGap, bar.center().y() - size.height() / 2), size};
}

QRectF TextBeside(const Node &node, TextMeasure *measure) {
    return IsBarOfStrip(node) ? TextBesideBar(node, node.ShownBounds(), measure) : QRectF();
}

} // namespace diagram
