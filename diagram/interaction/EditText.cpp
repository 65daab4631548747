#include "diagram/interaction/EditText.h"

#include "diagram/edit/History.h"
#include "diagram/geometry/Units.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/Shapes.h"

namespace diagram {

namespace {

constexpr QSizeF kEmptyLabel{900, 300}; // where a label is typed that has no text yet

QString SingleLineFeeds(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

TextPlace NodePlace(const Node &node) {
    TextPlace place;
    const double x = node.xTextMargin() * kTwipsPerPixel;
    const double y = node.yTextMargin() * kTwipsPerPixel;
    place.area = TextArea(node.Shape(), node.ShapeOrientation(), node.ShownBounds()).adjusted(x, y, -x, -y);
    if (!place.area.isValid()) place.area = node.ShownBounds();
    place.painted = SingleLineFeeds(node.ShownText());
    place.font = node.Font();
    place.foreColor = node.ForeColor();
    if (!node.Transparent()) place.fillColor = node.FillColor();
    place.alignment = node.Alignment();
    return place;
}

TextPlace LinkPlace(Scene &scene, const Link &link) {
    TextPlace place;
    place.area = scene.LabelBounds(link);
    if (place.area.isEmpty()) place.area = scene.LabelPlace(link, kEmptyLabel);
    place.painted = SingleLineFeeds(link.Text());
    place.wraps = false;
    place.font = link.Font();
    place.foreColor = link.ForeColor();
    return place;
}

} // namespace

EditText::EditText(Surface &surface, const diagram::Item &item)
    : surface_(surface),
      id_(item.Id()),
      kind_(item.Kind()),
      text_(SingleLineFeeds(item.AsNode() ? item.AsNode()->Text() : item.AsLink()->Text())) {}

std::optional<TextPlace> EditText::Place(Scene &scene) const {
    if (kind_ == ItemKind::Node) {
        const Node *node = surface_.FindNode(id_);
        return node ? std::optional(NodePlace(*node)) : std::nullopt;
    }
    const Link *link = surface_.FindLink(id_);
    return link ? std::optional(LinkPlace(scene, *link)) : std::nullopt;
}

std::optional<QString> EditText::Changed(const QString &text) const {
    const QString plain = SingleLineFeeds(text);
    if (plain == text_) return std::nullopt;
    return QString(plain).replace(QLatin1String("\n"), QLatin1String("\r\n"));
}

void EditText::Commit(const QString &text) {
    const std::optional<QString> stored = Changed(text);
    if (!stored) return;
    Node *node = kind_ == ItemKind::Node ? surface_.FindNode(id_) : nullptr;
    Link *link = kind_ == ItemKind::Link ? surface_.FindLink(id_) : nullptr;
    if (!node && !link) return;
    const ActionGroup group(surface_);
    if (node) node->SetText(*stored);
    if (link) link->SetText(*stored);
    text_ = SingleLineFeeds(text);
    surface_.Events().AfterEdit(surface_);
}

Item *EditableItem(const Surface &surface) {
    if (Node *node = surface.SelectedNode()) return node;
    return surface.SelectedLink();
}

} // namespace diagram
