// Text on the canvas.
#include "vector/player/MetafileCanvas.h"
#include "vector/player/MetafileValues.h"

#include <algorithm>
#include <cmath>
#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>

namespace vector {

namespace {

constexpr double kWorkOfALetter = 20000;
constexpr double kHighest = 2000; // pixels of letters; larger ones are left out
constexpr double kLowest = 0.5;
constexpr double kMostStretch = 5; // of letters to the width that the writer measured, and of squeezing them

// A font of whole pixels, and by how much it has to be enlarged.
struct Sized {
    QFont font;
    double scale;
};

Sized FontFor(const MetafileFont &font, double pixels) {
    QFont made(font.face);
    made.setBold(font.bold);
    made.setItalic(font.italic);
    made.setUnderline(font.underline);
    made.setStrikeOut(font.strikeOut);
    made.setHintingPreference(QFont::PreferNoHinting);
    made.setPixelSize(std::max(1, int(std::lround(pixels))));
    if (font.height > 0) { // with the space around letters
        const QFontMetricsF metrics(made);
        pixels *= made.pixelSize() / std::max(1.0, metrics.ascent() + metrics.descent());
        made.setPixelSize(std::max(1, int(std::lround(pixels))));
    }
    return {made, pixels / made.pixelSize()};
}

double LeftOf(std::uint32_t align, double width) {
    const std::uint32_t side = align & metafile::kAlignMiddle;
    return side == metafile::kAlignMiddle ? -width / 2 : side == metafile::kAlignRight ? -width : 0;
}

double BaseLineOf(std::uint32_t align, const QFontMetricsF &metrics) {
    if ((align & metafile::kAlignBaseLine) == metafile::kAlignBaseLine) return 0;
    return align & metafile::kAlignBottom ? -metrics.descent() : metrics.ascent();
}

bool IsShown(const TextRecord &text, double pixels) {
    return !text.text.isEmpty() && !(text.options & metafile::kGlyphNumbers) && pixels >= kLowest &&
           pixels <= kHighest && qGuiApp;
}

double WorkOfText(const TextRecord &text, double pixels) {
    return kWorkOfALetter + double(text.text.size()) * (kWorkOfALetter / 20 + pixels * pixels);
}

} // namespace

void MetafileCanvas::Text(const TextRecord &text) {
    if (text.options & metafile::kOpaqueBox) {
        QPainterPath box;
        box.addRect(text.box.normalized());
        FillWith(box, state_.backColour);
    }
    const QTransform t = ToPixels();
    const double xScale = std::hypot(t.m11(), t.m12()), yScale = std::hypot(t.m21(), t.m22());
    const double pixels = std::abs(state_.font.height) * yScale;
    if (!IsShown(text, pixels) || !Paints() || !Spend(WorkOfText(text, pixels))) return;
    const Sized sized = FontFor(state_.font, pixels);
    const QFontMetricsF metrics(sized.font);
    const double natural = std::max(metrics.horizontalAdvance(text.text), 0.01);
    const double stretch = text.width > 0 ? std::clamp(text.width * xScale / natural,
                                                       sized.scale / kMostStretch, sized.scale * kMostStretch)
                                          : sized.scale;
    const bool fromPosition = state_.align & metafile::kFromPosition;
    const QPointF at = t.map(fromPosition ? state_.position : text.at);
    const QTransform &world = state_.mapping.world;
    painter_.save();
    if (text.options & metafile::kClippedToBox) ClipTo(text.box);
    painter_.translate(at);
    painter_.rotate(std::atan2(world.m12(), world.m11()) * 180 / M_PI - state_.font.angle);
    painter_.scale(stretch, sized.scale);
    painter_.setLayoutDirection(text.options & metafile::kReadFromRight ? Qt::RightToLeft : Qt::LeftToRight);
    painter_.setFont(sized.font);
    const QPointF start(LeftOf(state_.align, natural), BaseLineOf(state_.align, metrics));
    if (state_.opaque)
        painter_.fillRect(
            QRectF(start.x(), start.y() - metrics.ascent(), natural, metrics.ascent() + metrics.descent()),
            state_.backColour);
    painter_.setPen(state_.textColour);
    painter_.drawText(start, text.text);
    painter_.restore();
    if (fromPosition && xScale > 0) state_.position.rx() += natural * stretch / xScale;
}

} // namespace vector
