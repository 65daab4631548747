#include "diagram/render/Pencil.h"

#include <QPen>

namespace diagram {

namespace {

constexpr Qt::PenStyle kPenStyles[] = {Qt::SolidLine,      Qt::DashLine, Qt::DotLine,  Qt::DashDotLine,
                                       Qt::DashDotDotLine, Qt::NoPen,    Qt::SolidLine};

} // namespace

void Pencil::Line(QRgb colour, double width, int style, Qt::PenJoinStyle join) {
    if (style == kTransparentLine) return NoLine();
    if (style == style_ && width == width_ && colour == line_ && join == join_) return;
    const Qt::PenStyle penStyle = kPenStyles[style];
    QPen pen(QColor::fromRgba(colour), width, penStyle);
    // Thin lines have no corners to speak of, and flat ends make dots of them round.
    pen.setJoinStyle(width > 1.5 ? join : Qt::BevelJoin);
    pen.setCapStyle(Qt::FlatCap);
    painter_.setPen(pen);
    line_ = colour, width_ = width, style_ = style, join_ = join;
}

void Pencil::NoLine() {
    if (style_ == kTransparentLine) return;
    painter_.setPen(Qt::NoPen);
    style_ = kTransparentLine;
}

void Pencil::Ink(QRgb colour) {
    if (style_ < 0 || style_ == kTransparentLine || colour != line_) Line(colour, 1);
}

void Pencil::Fill(QRgb colour) {
    if (fillKnown_ && filled_ && fill_ == colour) return;
    painter_.setBrush(QColor::fromRgba(colour));
    fill_ = colour, filled_ = fillKnown_ = true;
}

void Pencil::NoFill() {
    if (fillKnown_ && !filled_) return;
    painter_.setBrush(Qt::NoBrush);
    filled_ = false, fillKnown_ = true;
}

void Pencil::Smooth(bool on) {
    if (smooth_ == int(on)) return;
    painter_.setRenderHint(QPainter::Antialiasing, on);
    smooth_ = int(on);
}

void Pencil::Forget() {
    style_ = -1;
    fillKnown_ = false;
    smooth_ = -1;
}

} // namespace diagram
