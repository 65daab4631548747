#include "output/powerpoint/LinkShapes.h"

#include "diagram/geometry/Polyline.h"
#include "diagram/model/Surface.h"
#include "diagram/render/LinkPainter.h"
#include "diagram/render/Paint.h"
#include "diagram/scene/Bounds.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/Arrows.h"
#include "diagram/shapes/Measures.h"
#include "output/powerpoint/BentConnector.h"

namespace powerpoint {

namespace {

using diagram::Link;
using package::Xml;

// The arrow heads that PowerPoint has too; any other is drawn as a shape of its own.
struct OwnHead {
    int value; // in the table of arrow heads
    const char *kind;
};
constexpr OwnHead kOwnHeads[] = {{1, "oval"},    {3, "triangle"}, {5, "triangle"}, {7, "triangle"},
                                 {9, "stealth"}, {13, "diamond"}, {20, "arrow"},   {21, "arrow"},
                                 {22, "arrow"},  {23, "diamond"}, {24, "diamond"}};

const char *OwnKind(int value) {
    for (const OwnHead &head : kOwnHeads)
        if (head.value == value) return head.kind;
    return nullptr;
}

// Heads are 2, 3 or 5 times as long and as wide as the line, which counts as 2 points at least.
const char *SizeWord(double length, double lineWidth) {
    const double times = length / std::max(lineWidth, 2 * kEmuPerPoint);
    return times < 2.5 ? "sm" : times < 4 ? "med" : "lg";
}

LineEnd EndOf(const ShapeContext &context, const Link &link, int value, int size) {
    const char *kind = OwnKind(value);
    if (!kind) return {};
    const QRectF unit = diagram::FindArrow(value)->path().boundingRect();
    const double scale = context.frame.Length(diagram::ArrowScale(size, link.DrawWidth()));
    const double width = context.frame.LineWidth(link.DrawWidth());
    return {kind, SizeWord(unit.height() * scale, width), SizeWord(unit.width() * scale, width)};
}

LineLook LineOf(const ShapeContext &context, const Link &link) {
    const int style = link.DrawStyle() == diagram::kInsideLine ? 0 : link.DrawStyle();
    const QRgb paper = diagram::ToRgb(context.scene.Model().BackColor());
    return {diagram::ColourOfLine(paper, link), context.frame.LineWidth(link.DrawWidth()), style};
}

void WriteGlue(ShapeContext &context, const char *element, const diagram::Node &node, const QPointF &at) {
    const int site = SiteAt(context, node, at);
    if (site >= 0) context.xml.Empty(element, {{"id", context.nodes[&node].id}, {"idx", site}});
}

// The line of a link as one of PowerPoint's connectors, which go along with the shapes at their ends; none
// for curves and for routes that no connector has.
std::optional<BentConnector> ConnectorOf(const QPainterPath &path) {
    std::vector<QPointF> route;
    for (int i = 0; i < path.elementCount(); ++i) {
        if (path.elementAt(i).isCurveTo()) return std::nullopt;
        route.push_back(path.elementAt(i));
    }
    if (route.size() > 2) return FindBentConnector(route);
    if (route.size() < 2) return std::nullopt;
    const QPointF step = route[1] - route[0];
    return BentConnector{1, QRectF(route[0], route[1]).normalized(), step.x() < 0, step.y() < 0, false, {}};
}

QString NameOf(const Link &link) {
    constexpr qsizetype kLongest = 60;
    const QString text = link.Text().left(4 * kLongest).simplified().left(kLongest);
    return text.isEmpty() ? QStringLiteral("Link") : text;
}

void WriteConnectorHead(ShapeContext &context, const Link &link) {
    Xml &xml = context.xml;
    xml.Open("p:cxnSp").Open("p:nvCxnSpPr");
    WriteIdentity(context, "p:cNvPr", context.nextId++, NameOf(link));
    xml.Open("p:cNvCxnSpPr");
    WriteGlue(context, "a:stCxn", link.Source(), diagram::ToQPointF(link.Route().front()));
    WriteGlue(context, "a:endCxn", link.Destination(), diagram::ToQPointF(link.Route().back()));
    xml.Close().Empty("p:nvPr").Close();
}

void WriteFreeformHead(ShapeContext &context, const QString &name) {
    Xml &xml = context.xml;
    xml.Open("p:sp").Open("p:nvSpPr");
    WriteIdentity(context, "p:cNvPr", context.nextId++, name);
    xml.Empty("p:cNvSpPr").Empty("p:nvPr").Close();
}

void WriteRoute(ShapeContext &context, const Link &link) {
    Xml &xml = context.xml;
    const QPainterPath path = context.frame.Map(context.scene.LinkPath(link));
    if (const auto connector = ConnectorOf(path)) {
        WriteConnectorHead(context, link);
        xml.Open("p:spPr");
        WriteTransform(xml, connector->box, {connector->flipH, connector->flipV, connector->turned});
        const QString kind = connector->segments == 1
                                 ? QStringLiteral("straightConnector1")
                                 : QStringLiteral("bentConnector%1").arg(connector->segments);
        WritePreset(xml, kind, connector->adjusts);
    } else {
        const QRectF box = path.boundingRect();
        WriteFreeformHead(context, NameOf(link));
        xml.Open("p:spPr");
        WriteTransform(xml, box);
        WriteCustom(xml, {.box = box, .outline = path, .filled = false});
        WriteNoFill(xml);
    }
    WriteLine(xml, LineOf(context, link), EndOf(context, link, link.ArrowSource(), link.ArrowSizeSource()),
              EndOf(context, link, link.ArrowDest(), link.ArrowSizeDest()));
    xml.Close(2);
}

// An arrow head as a shape.
void WriteFreeform(ShapeContext &context, const QPainterPath &path, const LineLook &line,
                   diagram::ArrowFill fill, QRgb fillColour) {
    Xml &xml = context.xml;
    WriteFreeformHead(context, QStringLiteral("Arrow head"));
    xml.Open("p:spPr");
    const QRectF box = path.boundingRect();
    WriteTransform(xml, box);
    WriteCustom(xml, {.box = box, .outline = path, .filled = fill != diagram::ArrowFill::None});
    if (fill == diagram::ArrowFill::None)
        WriteNoFill(xml);
    else
        WriteFill(xml, fillColour);
    WriteLine(xml, line);
    xml.Close(2);
}

struct Head {
    int value, size;
    QPointF tip, direction; // twips
};

void WriteHead(ShapeContext &context, const Link &link, const Head &head) {
    const diagram::ArrowRow *row = diagram::FindArrow(head.value);
    if (!row || !row->path) return;
    const double scale = diagram::ArrowScale(head.size, link.DrawWidth());
    const QPointF along = head.direction * scale, across(-along.y(), along.x());
    const QTransform place(along.x(), along.y(), across.x(), across.y(), head.tip.x(), head.tip.y());
    LineLook line = LineOf(context, link);
    line.style = 0;
    line.width = std::min(line.width, context.frame.Length(scale) / 5);
    line.drawn = row->fill != diagram::ArrowFill::Line;
    const QRgb fill = row->fill == diagram::ArrowFill::Line
                          ? line.colour
                          : diagram::ToRgb(context.scene.Model().BackColor());
    WriteFreeform(context, context.frame.Map(place.map(row->path())), line, row->fill, fill);
}

// A head points as the last stretch of the route does.
Head HeadAt(const std::vector<QPointF> &route, double at, double before, int value, int size) {
    const QPointF tip = diagram::PlaceOnRoute(route, at).point,
                  inner = diagram::PlaceOnRoute(route, before).point;
    const double away = diagram::Distance(tip, inner);
    return {value, size, tip, away > 0 ? (tip - inner) / away : QPointF(1, 0)};
}

void WriteHeads(ShapeContext &context, const Link &link) {
    const std::vector<QPointF> route = diagram::RoutePieces(link);
    const double length = diagram::RouteLength(route), look = std::min(length / 3, 60.0);
    if (link.ArrowSource() && !OwnKind(link.ArrowSource()))
        WriteHead(context, link, HeadAt(route, 0, look, link.ArrowSource(), link.ArrowSizeSource()));
    if (link.ArrowDest() && !OwnKind(link.ArrowDest()))
        WriteHead(context, link,
                  HeadAt(route, length, length - look, link.ArrowDest(), link.ArrowSizeDest()));
    if (!link.ArrowMiddle()) return;
    const double middle = length / 2 + diagram::ArrowScale(link.ArrowSizeMiddle(), link.DrawWidth()) / 2;
    const diagram::RoutePlace place = diagram::PlaceOnRoute(route, middle);
    WriteHead(context, link, {link.ArrowMiddle(), link.ArrowSizeMiddle(), place.point, place.direction});
}

void WriteLabel(ShapeContext &context, const Link &link) {
    const QRectF bounds = context.scene.LabelBounds(link);
    if (link.Text().isEmpty() || bounds.isEmpty()) return;
    const diagram::TextBlock &block = context.texts.Find(link.Text(), link.Font(), 0, 0);
    const QSizeF size(block.width + 2 * diagram::kLabelPadding, block.height);
    const QRectF place(bounds.center() - QPointF(size.width(), size.height()) / 2, size);
    Xml &xml = context.xml;
    xml.Open("p:sp").Open("p:nvSpPr");
    WriteIdentity(context, "p:cNvPr", context.nextId++, QStringLiteral("Label"));
    xml.Empty("p:cNvSpPr", {{"txBox", 1}}).Empty("p:nvPr").Close().Open("p:spPr");
    WriteTransform(xml, context.frame.Map(place));
    WritePreset(xml, QStringLiteral("rect"));
    WriteFill(xml, diagram::ToRgb(context.scene.Model().BackColor()));
    xml.Close();
    TextLook look;
    look.font = link.Font();
    look.colour = diagram::ToRgb(link.ForeColor());
    look.scale = context.frame.FontScale();
    look.wraps = false;
    WriteTextBody(xml, link.Text(), look);
    xml.Close();
}

} // namespace

void WriteLink(ShapeContext &context, const Link &link) {
    if (link.DrawStyle() != diagram::kTransparentLine && link.Route().size() >= 2) {
        WriteRoute(context, link);
        WriteHeads(context, link);
    }
    WriteLabel(context, link);
}

} // namespace powerpoint
