// The small pictures in the lists of properties.
#include "diagram/model/AutomaticStyle.h"
#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Measures.h"
#include "support/MixColours.h"
#include "widgets/PaintedIconEngine.h"
#include "widgets/PropertyLists.h"

#include <QGuiApplication>
#include <QPalette>

namespace widgets {

namespace {

using diagram::kTwipsPerPixel;
using diagram::Node;
using diagram::Surface;

constexpr float kWide = float(kPictureSize.width() * kTwipsPerPixel);
constexpr float kHigh = float(kPictureSize.height() * kTwipsPerPixel);
constexpr float kEdge = float(2 * kTwipsPerPixel); // left free around what is drawn

// Values of the tables in diagram/shapes.
constexpr int kUnseen = 5;       // the line style that draws nothing
constexpr int kTurnable = 4;     // a shape that looks different at each angle
constexpr int kPlainHead = 5;    // the arrow head on which sizes are shown
constexpr int kFiveSegments = 9; // the orthogonal link style of five segments

struct Inks {
    QColor line, fill, paper;
};

Inks InksOf(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    if (mode == QIcon::Selected) {
        const QColor ground = palette.color(QPalette::Highlight),
                     ink = palette.color(QPalette::HighlightedText);
        return {ink, support::Mix(ground, ink, 0.25), ground};
    }
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const QColor paper = palette.color(group, QPalette::Base);
    return {palette.color(group, QPalette::Text),
            support::Mix(paper, palette.color(QPalette::Highlight), 0.3), paper};
}

Node &Box(Surface &surface, const Inks &inks, const QRectF &box) {
    Node &node =
        surface.Nodes().Add(float(box.left()), float(box.top()), float(box.width()), float(box.height()));
    node.SetBorderColor(support::FromQColor(inks.line));
    node.SetFillColor(support::FromQColor(inks.fill));
    return node;
}

Node &MiddleBox(Surface &surface, const Inks &inks, float inset = 0) {
    return Box(
        surface, inks,
        QRectF(kEdge, kEdge, kWide - 2 * kEdge, kHigh - 2 * kEdge).adjusted(inset, inset, -inset, -inset));
}

// An end of a line that isn't drawn itself.
Node &End(Surface &surface, const Inks &inks, const QPointF &at) {
    Node &end = Box(surface, inks, QRectF(at, QSizeF(0, 0)));
    end.SetDrawStyle(kUnseen);
    end.SetTransparent(true);
    return end;
}

diagram::Link &Joined(Node &from, Node &to, const Inks &inks) {
    diagram::Link &link = from.Links().Add(to);
    link.SetLineColor(support::FromQColor(inks.line));
    link.SetArrowDest(0);
    return link;
}

diagram::Link &Line(Surface &surface, const Inks &inks, const QPointF &from, const QPointF &to) {
    return Joined(End(surface, inks, from), End(surface, inks, to), inks);
}

diagram::Link &LevelLine(Surface &surface, const Inks &inks) {
    return Line(surface, inks, {kEdge, kHigh / 2}, {kWide - kEdge, kHigh / 2});
}

void SketchShape(Surface &surface, const Inks &inks, int value) { MiddleBox(surface, inks).SetShape(value); }

void SketchOrientation(Surface &surface, const Inks &inks, int value) {
    Node &node = MiddleBox(surface, inks);
    node.SetShape(kTurnable);
    node.SetShapeOrientation(value);
}

// A shadow is darker than what it falls on: on a dark theme it falls on a light ground, to be seen at all.
void SketchShadow(Surface &surface, const Inks &inks, int value) {
    if (inks.paper.lightness() < inks.line.lightness()) {
        const QColor ground = support::Mix(inks.paper, inks.line, 0.6);
        Box(surface, {ground, ground, ground}, QRectF(0, 0, kWide, kHigh));
    }
    MiddleBox(surface, inks, float(diagram::kShadowOffset - kEdge / 2)).SetShadow(value);
}

void SketchDrawStyle(Surface &surface, const Inks &inks, int value) {
    LevelLine(surface, inks).SetDrawStyle(value);
}

void SketchDrawWidth(Surface &surface, const Inks &inks, int value) {
    LevelLine(surface, inks).SetDrawWidth(float(value));
}

void SketchArrow(Surface &surface, const Inks &inks, int value) {
    LevelLine(surface, inks).SetArrowDest(value);
}

void SketchArrowSize(Surface &surface, const Inks &inks, int value) {
    diagram::Link &link = LevelLine(surface, inks);
    link.SetArrowDest(kPlainHead);
    link.SetArrowSizeDest(value);
}

// Styles that the user bends have one bend, to tell them apart.
void SketchLinkStyle(Surface &surface, const Inks &inks, int value) {
    const QSizeF end(kWide / 6, kHigh / 5);
    Node &from = Box(surface, inks, QRectF(QPointF(kEdge, kEdge), end));
    Node &to =
        Box(surface, inks, QRectF(QPointF(kWide - kEdge - end.width(), kHigh - kEdge - end.height()), end));
    diagram::Link &link = Joined(from, to, inks);
    link.SetStyle(value);
    if (diagram::RoutedPointCount(value) == 2) link.Points().Insert(1, {kWide * 0.75F, kHigh * 0.15F});
}

// What finds its way is seen going round something.
void SketchRouting(Surface &surface, const Inks &inks, int value) {
    if (value != diagram::kAutomaticStyle) return SketchLinkStyle(surface, inks, value);
    const QSizeF end(kWide / 6, kHigh / 5);
    const float middle = kHigh * 0.62F, top = kHigh * 0.12F, left = kWide * 0.32F, right = kWide - left;
    Node &from = Box(surface, inks, QRectF(QPointF(kEdge, middle - end.height() / 2), end));
    Node &to =
        Box(surface, inks, QRectF(QPointF(kWide - kEdge - end.width(), middle - end.height() / 2), end));
    Box(surface, inks, QRectF(kWide * 0.42F, middle - kHigh * 0.3F, kWide * 0.16F, kHigh * 0.6F));
    diagram::Link &link = Joined(from, to, inks);
    link.SetStyle(kFiveSegments);
    link.SetAddPointsMode(true);
    link.Points().Assign({{kEdge + float(end.width()), middle},
                          {left, middle},
                          {left, top},
                          {right, top},
                          {right, middle},
                          {kWide - kEdge - float(end.width()), middle}});
}

void SketchJump(Surface &surface, const Inks &inks, int value) {
    Line(surface, inks, {kWide / 2, 0}, {kWide / 2, kHigh});
    LevelLine(surface, inks).SetJumpStyle(value);
}

struct SketchRow {
    ListOf what;
    void (*sketch)(Surface &surface, const Inks &inks, int value);
};
constexpr SketchRow kSketches[] = {
    {ListOf::Shapes, SketchShape},         {ListOf::Orientations, SketchOrientation},
    {ListOf::DrawStyles, SketchDrawStyle}, {ListOf::DrawWidths, SketchDrawWidth},
    {ListOf::Shadows, SketchShadow},       {ListOf::Arrows, SketchArrow},
    {ListOf::ArrowSizes, SketchArrowSize}, {ListOf::LinkStyles, SketchLinkStyle},
    {ListOf::Routings, SketchRouting},     {ListOf::JumpStyles, SketchJump},
};

class PictureEngine : public PaintedIconEngine {
public:
    PictureEngine(const SketchRow &row, int value) : row_(row), value_(value) {}
    QIconEngine *clone() const override { return new PictureEngine(*this); }

protected:
    void Paint(QPainter &painter, const QSize &size, QIcon::Mode mode) override {
        const Inks inks = InksOf(mode);
        Surface surface;
        surface.SetBackColor(support::FromQColor(inks.paper));
        row_.sketch(surface, inks, value_);
        diagram::Scene scene(surface);
        diagram::RenderOptions options;
        options.xScale = options.yScale = qMin(size.width() / double(kWide), size.height() / double(kHigh));
        options.background = false;
        diagram::Renderer().Paint(painter, scene, QRectF(0, 0, kWide, kHigh), options);
    }

private:
    const SketchRow &row_;
    int value_;
};

} // namespace

QIcon PictureOf(ListOf what, int value) {
    for (const SketchRow &row : kSketches)
        if (row.what == what) return QIcon(new PictureEngine(row, value));
    return {};
}

} // namespace widgets
