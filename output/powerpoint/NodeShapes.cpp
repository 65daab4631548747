#include "output/powerpoint/NodeShapes.h"

#include "diagram/model/Surface.h"
#include "diagram/render/NodeContent.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/Measures.h"
#include "diagram/shapes/Shapes.h"

namespace powerpoint {

namespace {

using diagram::Node;
using diagram::NodeData;
using diagram::ShapeRow;
using package::Xml;

constexpr QRgb kShadowColour = qRgba(0, 0, 0, 70);
constexpr double kNear = 8; // twips, between a link's end and the site that it is glued to

// A shape that PowerPoint has by name.
struct Preset {
    int shape; // in the table of shapes
    const char *name;
    std::vector<QPointF> sites; // fractions of the box, in the order of the preset's sites
    double textEdge;            // between its edge and its text: a fraction of width and height
};

const std::vector<QPointF> kMiddles{{.5, 0}, {0, .5}, {.5, 1}, {1, .5}};
// How far from the edges of its box, as a fraction, a diagonal meets an ellipse: (1 - sqrt(1/2)) / 2.
constexpr double kSlant = .14644660940672627;
const std::vector<QPointF> kAroundEllipse{{.5, 0}, {kSlant, kSlant},         {0, .5}, {kSlant, 1 - kSlant},
                                          {.5, 1}, {1 - kSlant, 1 - kSlant}, {1, .5}, {1 - kSlant, kSlant}};

const Preset *FindPreset(int shape) {
    static const Preset presets[] = {{0, "ellipse", kAroundEllipse, kSlant},
                                     {1, "rect", kMiddles, 0},
                                     {9, "rect", kMiddles, 0},
                                     {10, "rect", kMiddles, 0},
                                     {11, "rect", kMiddles, 0},
                                     {12, "rect", kMiddles, 0},
                                     {50, "rect", kMiddles, 0},
                                     {62, "ellipse", kAroundEllipse, kSlant}};
    for (const Preset &preset : presets)
        if (preset.shape == shape) return &preset;
    return nullptr;
}

const ShapeRow &RowOf(const Node &node) {
    const ShapeRow *row = diagram::FindShape(node.Shape());
    return row ? *row : *diagram::FindShape(1);
}

bool IsNear(const QPointF &a, const QPointF &b) {
    return std::abs(a.x() - b.x()) < kNear && std::abs(a.y() - b.y()) < kNear;
}

bool Holds(const std::vector<QPointF> &sites, const QPointF &at) {
    return std::any_of(sites.begin(), sites.end(), [&](const QPointF &site) { return IsNear(site, at); });
}

std::vector<QPointF> SitesOf(const Preset &preset, const QRectF &box) {
    std::vector<QPointF> sites;
    for (const QPointF &part : preset.sites)
        sites.push_back(box.topLeft() + QPointF(part.x() * box.width(), part.y() * box.height()));
    return sites;
}

// The sites of a custom form: where lines from its middle to its four sides leave it, and wherever links end.
std::vector<QPointF> OwnSites(const Node &node, const std::vector<QPointF> &ends) {
    const QRectF box = node.Bounds();
    const QPointF far[] = {{box.center().x(), box.top() - 1},
                           {box.left() - 1, box.center().y()},
                           {box.center().x(), box.bottom() + 1},
                           {box.right() + 1, box.center().y()}};
    std::vector<QPointF> sites;
    for (const QPointF &from : far)
        sites.push_back(diagram::OutlineCrossing(node.Shape(), node.ShapeOrientation(), box, from));
    for (const QPointF &end : ends)
        if (!Holds(sites, end)) sites.push_back(end);
    return sites;
}

const std::vector<QPointF> &EndsAt(const ShapeContext &context, const Node &node) {
    static const std::vector<QPointF> none;
    const auto found = context.ends.find(&node);
    return found == context.ends.end() ? none : found->second;
}

QRectF PresetText(const NodePlan &plan, const QRectF &box) {
    const double x = plan.presetTextEdge * box.width(), y = plan.presetTextEdge * box.height();
    return box.adjusted(x, y, -x, -y);
}

} // namespace

NodePlan PlanNode(ShapeContext &context, const Node &node) {
    NodePlan plan;
    plan.id = context.nextId++;
    const std::vector<QPointF> &ends = EndsAt(context, node);
    const Preset *preset = FindPreset(RowOf(node).value);
    const QRectF box = node.ShownBounds();
    if (preset) {
        plan.sites = SitesOf(*preset, box);
        const auto isSite = [&](const QPointF &end) { return Holds(plan.sites, end); };
        if (std::all_of(ends.begin(), ends.end(), isSite)) {
            plan.preset = preset->name;
            plan.presetTextEdge = preset->textEdge;
            return plan;
        }
    }
    plan.sites = OwnSites(node, ends);
    return plan;
}

int SiteAt(const ShapeContext &context, const Node &node, const QPointF &at) {
    const auto plan = context.nodes.find(&node);
    if (plan == context.nodes.end()) return -1;
    const std::vector<QPointF> &sites = plan->second.sites;
    const auto site =
        std::find_if(sites.begin(), sites.end(), [&](const QPointF &place) { return IsNear(place, at); });
    return site == sites.end() ? -1 : int(site - sites.begin());
}

void WriteIdentity(ShapeContext &context, const char *element, int id, const QString &name,
                   const QString &description) {
    if (description.isEmpty())
        context.xml.Empty(element, {{"id", id}, {"name", name}});
    else
        context.xml.Empty(element, {{"id", id}, {"name", name}, {"descr", description}});
}

namespace {

QString NameOf(const Node &node) {
    constexpr qsizetype kLongest = 60;
    const QString text = node.ShownText().left(4 * kLongest).simplified().left(kLongest);
    return text.isEmpty() ? QLatin1String(RowOf(node).name) : text;
}

LineLook BorderOf(const ShapeContext &context, const Node &node) {
    const NodeData &data = node.Data();
    LineLook line{diagram::ToRgb(data.borderColor), context.frame.LineWidth(data.drawWidth), data.drawStyle};
    if (data.drawStyle == diagram::kInsideLine) line.style = 0;
    if (RowOf(node).edge != diagram::ShapeEdge::None) {
        constexpr double kTone = 0.45; // of the light and the dark lines together
        line = {diagram::Mix(diagram::ToRgb(data.fillColor), line.colour, kTone), 2 * line.width, 0};
    }
    return line;
}

// The box of the shape on the slide. A border inside the outline is written as one around a smaller shape.
QRectF FormBox(const ShapeContext &context, const Node &node) {
    const NodeData &data = node.Data();
    QRectF box = context.frame.Map(node.ShownBounds());
    const bool isInside =
        data.drawStyle == diagram::kInsideLine || RowOf(node).edge != diagram::ShapeEdge::None;
    if (!isInside) return box;
    const double half = std::min({BorderOf(context, node).width / 2, box.width() / 2, box.height() / 2});
    return box.adjusted(half, half, -half, -half);
}

// Room for the text on the slide: what it takes here, with a little to spare on the free sides, as other
// programs measure texts a little wider. A text that is higher than the shape begins at the shape's top.
struct TextRoom {
    QRectF box; // EMU
    int down;
    double shrink = 1; // of the font, for a text that is too high
};

// How much wider the room may be on a side; 0 where that would break the text into other lines.
double SpareWidth(ShapeContext &context, const Node &node, double width) {
    constexpr double kSpare = 0.04;
    const QString text = node.ShownText();
    const auto lines = [&](double at) { return context.texts.Find(text, node.Font(), at, 0).lines.size(); };
    const double spare = kSpare * width;
    return lines(width) == lines(width + 2 * spare) ? spare : 0;
}

TextRoom RoomOf(ShapeContext &context, const Node &node) {
    constexpr int kBesideText = 9;
    constexpr double kLeastShrink = 0.25;
    const diagram::Place place = diagram::PlaceOf(node.Alignment());
    const QRectF text = diagram::TextPlace(context.texts, node);
    const bool beside = !node.Picture().IsNull() && node.PicturePos() == kBesideText;
    QRectF room = beside ? text : diagram::TextRoom(node);
    room.setLeft(std::min(room.left(), text.left()));
    room.setRight(std::max(room.right(), text.right()));
    const double spare = SpareWidth(context, node, room.width());
    if (place.across != 0) room.setLeft(room.left() - spare);
    if (place.across != 1) room.setRight(room.right() + spare);
    const QRectF box = node.ShownBounds();
    const bool sticksOut = text.top() < box.top() - kNear || text.bottom() > box.bottom() + kNear;
    if (text.height() <= room.height() && !sticksOut) return {context.frame.Map(room), place.down};
    room.setTop(std::max(text.top(), box.top()));
    room.setBottom(std::max(room.top(), std::min(text.bottom(), box.bottom())));
    const double shrink = std::max(std::sqrt(room.height() / text.height()), kLeastShrink);
    return {context.frame.Map(room), 0, shrink};
}

TextLook LookOf(const ShapeContext &context, const Node &node, const TextRoom &room) {
    TextLook look;
    look.font = node.Font();
    look.colour = diagram::ToRgb(node.ForeColor());
    look.scale = context.frame.FontScale();
    look.across = diagram::PlaceOf(node.Alignment()).across;
    look.down = room.down;
    look.shrink = room.shrink;
    return look;
}

QMarginsF Insets(const QRectF &outer, const QRectF &inner) {
    return {inner.left() - outer.left(), inner.top() - outer.top(), outer.right() - inner.right(),
            outer.bottom() - inner.bottom()};
}

void WriteForm(ShapeContext &context, const Node &node, const NodePlan &plan, const QRectF &box,
               const QRectF &text, bool filled) {
    if (plan.preset) return WritePreset(context.xml, QLatin1String(plan.preset));
    CustomForm form;
    form.box = box;
    form.outline = diagram::Outline(RowOf(node).value, node.ShapeOrientation(), box);
    form.lines = diagram::Detail(RowOf(node).value, node.ShapeOrientation(), box);
    form.text = text;
    form.filled = filled;
    for (const QPointF &site : plan.sites) form.sites.push_back(context.frame.Map(site));
    WriteCustom(context.xml, form);
}

// Which parts of a node one shape shows.
struct Part {
    bool fill = true, line = true, text = true;
};

void WriteShape(ShapeContext &context, const Node &node, int id, const Part &part) {
    const NodePlan &plan = context.nodes[&node];
    const NodeData &data = node.Data();
    const bool withText = part.text && !node.ShownText().isEmpty();
    const QRectF box = FormBox(context, node);
    const TextRoom room = withText ? RoomOf(context, node) : TextRoom{box, 1};
    Xml &xml = context.xml;
    xml.Open("p:sp").Open("p:nvSpPr");
    WriteIdentity(context, "p:cNvPr", id, NameOf(node));
    xml.Empty("p:cNvSpPr").Empty("p:nvPr").Close();
    xml.Open("p:spPr");
    WriteTransform(xml, box);
    WriteForm(context, node, plan, box, room.box, part.fill && !data.transparent);
    if (part.fill && !data.transparent)
        WriteFill(xml, diagram::ToRgb(data.fillColor));
    else
        WriteNoFill(xml);
    LineLook line = BorderOf(context, node);
    line.drawn = part.line;
    WriteLine(xml, line);
    if (part.fill && data.shadow && !data.transparent)
        WriteShadow(xml, kShadowColour,
                    diagram::kShadowWays[data.shadow] * context.frame.Length(diagram::kShadowOffset));
    xml.Close();
    TextLook look = LookOf(context, node, room);
    if (plan.preset) look.insets = Insets(PresetText(plan, box), room.box);
    WriteTextBody(xml, withText ? node.ShownText() : QString(), look);
    xml.Close();
}

// The part of a picture that is seen through `seen`; the whole one would fill `whole`.
void WriteSeenPicture(ShapeContext &context, const PictureIds &ids, const QRectF &whole,
                      const QPainterPath &seen, const QString &description) {
    const QRectF part = seen.boundingRect();
    if (part.isEmpty() || whole.isEmpty()) return;
    Xml &xml = context.xml;
    xml.Open("p:pic").Open("p:nvPicPr");
    WriteIdentity(context, "p:cNvPr", context.nextId++, QStringLiteral("Picture"), description);
    xml.Empty("p:cNvPicPr").Empty("p:nvPr").Close();
    xml.Open("p:blipFill");
    WriteBlip(xml, ids);
    const auto share = [](double length, double of) { return qRound64(length / of * 100000); };
    xml.Empty("a:srcRect", {{"l", share(part.left() - whole.left(), whole.width())},
                            {"t", share(part.top() - whole.top(), whole.height())},
                            {"r", share(whole.right() - part.right(), whole.width())},
                            {"b", share(whole.bottom() - part.bottom(), whole.height())}});
    xml.Open("a:stretch").Empty("a:fillRect").Close(2);
    xml.Open("p:spPr");
    WriteTransform(xml, part);
    WriteCustom(xml, {.box = part, .outline = seen});
    xml.Close(2);
}

QPainterPath PathOf(const QRectF &box) {
    QPainterPath path;
    path.addRect(box);
    return path;
}

// Cut off at the outline where it sticks out of the form.
void WritePicture(ShapeContext &context, const Node &node, const QRectF &place, const PictureIds &ids) {
    const QRectF box = context.frame.Map(node.ShownBounds()), whole = context.frame.Map(place);
    const QPainterPath outline = diagram::Outline(RowOf(node).value, node.ShapeOrientation(), box);
    const bool fills = RowOf(node).form == diagram::ShapeForm::Rectangle;
    const QRectF inside =
        fills ? node.ShownBounds()
              : diagram::TextArea(RowOf(node).value, node.ShapeOrientation(), node.ShownBounds());
    const QPainterPath all = PathOf(whole);
    WriteSeenPicture(context, ids, whole, inside.contains(place) ? all : all.intersected(outline),
                     NameOf(node));
}

// A picture lies between the fill and the border: three shapes, which stay together as a group.
void WriteGroup(ShapeContext &context, const Node &node, const NodePlan &plan) {
    const QRectF place = diagram::PicturePlace(context.texts, node);
    const PictureIds ids = place.isEmpty() ? PictureIds() : context.addPicture(node.Picture());
    if (ids.picture.isEmpty()) return WriteShape(context, node, plan.id, {});
    Xml &xml = context.xml;
    const QRectF box = context.frame.Map(node.ShownBounds());
    xml.Open("p:grpSp").Open("p:nvGrpSpPr");
    WriteIdentity(context, "p:cNvPr", context.nextId++, NameOf(node));
    xml.Empty("p:cNvGrpSpPr").Empty("p:nvPr").Close();
    xml.Open("p:grpSpPr").Open("a:xfrm");
    for (const auto &[offset, extent] : {std::pair("a:off", "a:ext"), std::pair("a:chOff", "a:chExt")}) {
        xml.Empty(offset, {{"x", Emu(box.left())}, {"y", Emu(box.top())}});
        xml.Empty(extent, {{"cx", Emu(box.width())}, {"cy", Emu(box.height())}});
    }
    xml.Close(2);
    WriteShape(context, node, context.nextId++, {true, false, false});
    WritePicture(context, node, place, ids);
    WriteShape(context, node, plan.id, {false, true, true});
    xml.Close();
}

} // namespace

void WriteNode(ShapeContext &context, const Node &node) {
    const NodePlan &plan = context.nodes[&node];
    if (node.Picture().IsNull()) return WriteShape(context, node, plan.id, {});
    WriteGroup(context, node, plan);
}

namespace {

void WritePaper(ShapeContext &context, const QRectF &area, QRgb colour) {
    Xml &xml = context.xml;
    xml.Open("p:sp").Open("p:nvSpPr");
    WriteIdentity(context, "p:cNvPr", context.nextId++, QStringLiteral("Background"));
    xml.Empty("p:cNvSpPr").Empty("p:nvPr").Close();
    xml.Open("p:spPr");
    WriteTransform(xml, context.frame.Map(area));
    WritePreset(xml, QStringLiteral("rect"));
    WriteFill(xml, colour);
    xml.Open("a:ln").Empty("a:noFill").Close(2);
    WriteTextBody(xml, QString(), {});
    xml.Close();
}

} // namespace

void WriteBackground(ShapeContext &context, const QRectF &area) {
    const diagram::Surface &surface = context.scene.Model();
    const QRgb paper = diagram::ToRgb(surface.BackColor());
    if (paper != qRgb(255, 255, 255)) WritePaper(context, area, paper);
    const QRectF picture(QPointF(), surface.Picture().SizeInTwips());
    if (surface.Picture().IsNull() || !picture.intersects(area)) return;
    const PictureIds ids = context.addPicture(surface.Picture());
    if (!ids.picture.isEmpty())
        WriteSeenPicture(context, ids, context.frame.Map(picture), PathOf(context.frame.Map(picture & area)),
                         QString());
}

} // namespace powerpoint
