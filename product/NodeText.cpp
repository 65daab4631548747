#include "product/NodeText.h"

#include "diagram/geometry/Units.h"
#include "diagram/shapes/Arrows.h"
#include "diagram/shapes/LinkStyles.h"
#include "diagram/shapes/Shapes.h"
#include "diagram/shapes/Tables.h"
#include "support/Error.h"

#include <functional>
#include <map>
#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QPainter>
#include <QSvgRenderer>

namespace product {

namespace {

// Of drawings that become pictures: twice the pixels on the same area are crisp on fine screens.
constexpr int kSharpness = 2;
constexpr int kDotsPerMetre = 3780; // 96 an inch

// The value of the row with that name.
template <typename Rows>
int ValueOf(Rows rows, const QString &name) {
    for (const auto &row : rows)
        if (name == QString::fromUtf8(row.name)) return row.value;
    Complain(QStringLiteral("\"%1\" is in no table of names").arg(name));
}

diagram::Picture PictureOf(const QString &path) {
    if (!path.endsWith(QStringLiteral(".svg"))) return diagram::Picture::FromFile(path);
    QSvgRenderer drawing(path);
    if (!drawing.isValid()) Complain(QStringLiteral("%1 is no drawing").arg(path));
    QImage image(drawing.defaultSize() * kSharpness, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    image.setDotsPerMeterX(kSharpness * kDotsPerMetre);
    image.setDotsPerMeterY(kSharpness * kDotsPerMetre);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    return diagram::Picture::FromImage(image);
}

std::vector<diagram::Point> PointsOf(const QJsonArray &pairs) {
    std::vector<diagram::Point> points;
    for (const QJsonValue pair : pairs) points.push_back({Twips(pair[0]), Twips(pair[1])});
    return points;
}

// What gives an item the value of one key. The functions below make one of a member of the item, by the form
// of the value: a name in a table, a colour, a number, true or false, a text, a font.
using NodeSetter = std::function<void(diagram::Node &, const QJsonValue &)>;
using LinkSetter = std::function<void(diagram::Link &, const QJsonValue &)>;

template <typename Setter, typename Item, typename Rows>
Setter Named(void (Item::*set)(int), Rows rows) {
    return [set, rows](Item &item, const QJsonValue &value) { (item.*set)(ValueOf(rows, value.toString())); };
}
template <typename Setter, typename Item>
Setter Coloured(void (Item::*set)(support::Colour)) {
    return [set](Item &item, const QJsonValue &value) { (item.*set)(ColourOf(value.toString())); };
}
template <typename Setter, typename Item, typename Number>
Setter Counted(void (Item::*set)(Number)) {
    return [set](Item &item, const QJsonValue &value) { (item.*set)(Number(value.toDouble())); };
}
template <typename Setter, typename Item>
Setter Switched(void (Item::*set)(bool)) {
    return [set](Item &item, const QJsonValue &value) { (item.*set)(value.toBool()); };
}
template <typename Setter, typename Item>
Setter Written(void (Item::*set)(const QString &)) {
    return [set](Item &item, const QJsonValue &value) { (item.*set)(value.toString()); };
}
template <typename Setter, typename Item>
Setter Lettered() {
    return [](Item &item, const QJsonValue &value) { item.SetFont(FontOf(value.toObject())); };
}

const std::map<QString, NodeSetter> &NodeSetters() {
    using N = diagram::Node;
    using S = NodeSetter;
    static const std::map<QString, NodeSetter> setters = {
        {"shape", Named<S>(&N::SetShape, diagram::ShapeTable())},
        {"shapeOrientation", Named<S>(&N::SetShapeOrientation, diagram::OrientationTable())},
        {"drawStyle", Named<S>(&N::SetDrawStyle, diagram::LineStyleTable())},
        {"drawWidth", Counted<S, N, float>(&N::SetDrawWidth)},
        {"border", Coloured<S>(&N::SetBorderColor)},
        {"fill", Coloured<S>(&N::SetFillColor)},
        {"colour", Coloured<S>(&N::SetForeColor)},
        {"shadow", Named<S>(&N::SetShadow, diagram::ShadowTable())},
        {"alignment", Named<S>(&N::SetAlignment, diagram::AlignmentTable())},
        {"picturePos", Named<S>(&N::SetPicturePos, diagram::PicturePosTable())},
        {"autoSize", Named<S>(&N::SetAutoSize, diagram::AutoSizeTable())},
        {"xTextMargin", Counted<S, N, int>(&N::SetxTextMargin)},
        {"yTextMargin", Counted<S, N, int>(&N::SetyTextMargin)},
        {"text", Written<S>(&N::SetText)},
        {"event", Written<S>(&N::SetEvent)},
        {"font", Lettered<S, N>()},
        {"transparent", Switched<S>(&N::SetTransparent)},
        {"hidden", Switched<S>(&N::SetHidden)},
        {"marked", Switched<S>(&N::SetMarked)},
    };
    return setters;
}

const std::map<QString, LinkSetter> &LinkSetters() {
    using L = diagram::Link;
    using S = LinkSetter;
    const auto arrows = diagram::ArrowTable();
    const auto sizes = diagram::ArrowSizeTable();
    static const std::map<QString, LinkSetter> setters = {
        {"style", Named<S>(&L::SetStyle, diagram::LinkStyleTable())},
        {"arrowSource", Named<S>(&L::SetArrowSource, arrows)},
        {"arrowDest", Named<S>(&L::SetArrowDest, arrows)},
        {"arrowMiddle", Named<S>(&L::SetArrowMiddle, arrows)},
        {"arrowSizeSource", Named<S>(&L::SetArrowSizeSource, sizes)},
        {"arrowSizeDest", Named<S>(&L::SetArrowSizeDest, sizes)},
        {"arrowSizeMiddle", Named<S>(&L::SetArrowSizeMiddle, sizes)},
        {"drawStyle", Named<S>(&L::SetDrawStyle, diagram::LineStyleTable())},
        {"drawWidth", Counted<S, L, float>(&L::SetDrawWidth)},
        {"jumpStyle", Named<S>(&L::SetJumpStyle, diagram::JumpStyleTable())},
        {"text", Written<S>(&L::SetText)},
        {"colour", Coloured<S>(&L::SetForeColor)},
        {"lineColour", Coloured<S>(&L::SetLineColor)},
        {"font", Lettered<S, L>()},
    };
    return setters;
}

// `others` are the keys that are read elsewhere; an unknown key is an error, for it would be a misspelt one.
template <typename Item, typename Setters>
void Apply(Item &item, const QJsonObject &text, const Setters &setters, const QStringList &others) {
    for (auto it = text.begin(); it != text.end(); ++it) {
        const auto setter = setters.find(it.key());
        if (setter != setters.end())
            setter->second(item, it.value());
        else if (!others.contains(it.key()))
            Complain(QStringLiteral("the key \"%1\" is unknown").arg(it.key()));
    }
}

} // namespace

void Complain(const QString &what) {
    throw support::Error(support::kErrInvalidProcedureCall, QStringLiteral("product"), what);
}

support::Colour ColourOf(const QString &text) {
    const QColor colour(text);
    if (!colour.isValid()) Complain(QStringLiteral("\"%1\" is no colour").arg(text));
    return support::FromQColor(colour);
}

float Twips(const QJsonValue &pixels) { return float(pixels.toDouble()) * float(diagram::kTwipsPerPixel); }

diagram::Font FontOf(const QJsonObject &text) {
    return diagram::Font(text["name"].toString(QStringLiteral("Arial")), text["size"].toDouble(9),
                         text["bold"].toBool(), text["italic"].toBool(), text["underline"].toBool(),
                         text["strike"].toBool());
}

void ApplyNode(diagram::Node &node, const QJsonObject &text, const QDir &folder) {
    static const QStringList others = {"id",          "x",      "y",     "w",       "h",
                                       "width",       "height", "level", "groups",  "hyperlink",
                                       "attachments", "tags",   "back",  "picture", "date"};
    Apply(node, text, NodeSetters(), others);
    if (text.contains("picture")) node.SetPicture(PictureOf(folder.filePath(text["picture"].toString())));
}

void ApplyLink(diagram::Link &link, const QJsonObject &text) {
    Apply(link, text, LinkSetters(), {"from", "to", "bends", "way"});
    if (text.contains("way")) {
        link.Points().Assign(PointsOf(text["way"].toArray()));
    } else if (text.contains("bends")) {
        int position = 1;
        for (const diagram::Point &bend : PointsOf(text["bends"].toArray()))
            link.Points().Insert(position++, bend);
    }
}

} // namespace product
