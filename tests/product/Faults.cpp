#include "tests/product/Faults.h"

#include "diagram/geometry/Units.h"
#include "diagram/model/AnyItem.h"
#include "diagram/model/Calendar.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Stacking.h"
#include "diagram/model/Surface.h"
#include "diagram/render/NodeContent.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Bounds.h"
#include "diagram/scene/Scene.h"
#include "timeline/AddTimelineLink.h"
#include "timeline/AtDates.h"

#include <cmath>

namespace tests {

namespace {

using diagram::Link;
using diagram::Node;

constexpr double kTwips = diagram::kTwipsPerPixel, kGrid = 10 * kTwips;
constexpr QSizeF kPage(1123 * kTwips, 794 * kTwips);

QRectF BoxOf(const Node &node) { return {node.Left(), node.Top(), node.Width(), node.Height()}; }
QRectF Inner(const QRectF &box) { return box.adjusted(kTwips, kTwips, -kTwips, -kTwips); }
QString Name(const Node &node) {
    return QStringLiteral("\"%1\"").arg(QString(node.Text()).replace("\r\n", " / "));
}

// Where the lines of the text stand.
QRectF TextBox(const Node &node, diagram::TextMeasure &measure) {
    const QRectF room = diagram::TextRoom(node);
    const QSizeF size = measure.Measure(node.Text(), node.Font(), room.width());
    const diagram::Place place = diagram::PlaceOf(node.Alignment());
    const double across[] = {0, room.width() - size.width(), (room.width() - size.width()) / 2};
    const double down[] = {0, (room.height() - size.height()) / 2, room.height() - size.height()};
    return {room.topLeft() + QPointF(across[place.across], down[place.down]), size};
}

bool Crosses(const std::vector<QPointF> &route, const QRectF &box) {
    for (std::size_t i = 1; i < route.size(); ++i) {
        const QPointF step = route[i] - route[i - 1];
        const int count = 1 + int(std::hypot(step.x(), step.y()) / kTwips);
        for (int at = 0; at <= count; ++at)
            if (box.contains(route[i - 1] + step * at / count)) return true;
    }
    return false;
}

class Inspector {
public:
    explicit Inspector(diagram::Surface &surface) : surface_(surface) {
        surface.Routes().Recalculate();
        for (diagram::Item *item : surface.Stacking().Order())
            if (Node *node = item->AsNode(); node && !node->Hidden()) nodes_.push_back(node);
    }

    QStringList Look() {
        for (const Node *node : nodes_) LookAt(*node);
        for (std::size_t i = 0; i < nodes_.size(); ++i)
            for (std::size_t j = i + 1; j < nodes_.size(); ++j) LookAt(*nodes_[i], *nodes_[j]);
        for (const auto &link : surface_.Links())
            if (!link->Hidden())
                for (const Node *node : nodes_) LookAt(*link, *node);
        const QRectF extent = surface_.Extent();
        if (extent.width() > kPage.width() || extent.height() > kPage.height())
            Tell(QStringLiteral("needs %1 x %2 pixels")
                     .arg(extent.width() / kTwips)
                     .arg(extent.height() / kTwips));
        return faults_;
    }

private:
    void Tell(const QString &fault) { faults_ << fault; }

    void LookAt(const Node &node) {
        if (!renderer_.TextFits(node)) Tell(QStringLiteral("the text of %1 is cut").arg(Name(node)));
        const QRectF box = BoxOf(node);
        for (const double value : {box.x(), box.y(), box.width(), box.height()})
            if (node.Selectable() && !StandsAtItsDate(node) && std::fmod(value, kGrid) != 0)
                Tell(QStringLiteral("%1 is off the grid").arg(Name(node)));
    }

    void LookAt(const Node &lower, const Node &upper) {
        const QRectF below = BoxOf(lower), above = BoxOf(upper);
        if (!Inner(below).intersects(Inner(above))) return;
        if (!below.contains(above))
            Tell(QStringLiteral("%1 lies over %2").arg(Name(upper), Name(lower)));
        else if (!lower.Text().isEmpty() && TextBox(lower, renderer_.Measure()).intersects(above))
            Tell(QStringLiteral("%1 covers the text of %2").arg(Name(upper), Name(lower)));
    }

    bool StandsAtItsDate(const Node &node) const {
        return timeline::KeepsNodesAtDates(surface_) && !timeline::DateOfNode(node).isEmpty();
    }

    bool IsFrame(const Node &node) const {
        for (const Node *other : nodes_)
            if (other != &node && BoxOf(node).contains(BoxOf(*other))) return true;
        return false;
    }

    void LookAt(const Link &link, const Node &node) {
        if (diagram::IsQuietDateLink(link) && diagram::LiesBelow(&link, &node)) return;
        const QRectF box = Inner(BoxOf(node));
        const auto tell = [&](const char *what) {
            Tell(QStringLiteral("%1 between %2 and %3 runs over %4")
                     .arg(QLatin1String(what), Name(link.Source()), Name(link.Destination()), Name(node)));
        };
        if (IsFrame(node)) {
            if (Crosses(diagram::RoutePieces(link), TextBox(node, renderer_.Measure()))) tell("the link");
            return;
        }
        if (BoxOf(node).contains(BoxOf(link.Destination()))) return;
        if (!link.Text().isEmpty() &&
            scene_.LabelPlace(link, diagram::LabelSize(link, &renderer_.Measure())).intersects(box))
            tell("the text");
        if (&link.Source() != &node && Crosses(diagram::RoutePieces(link), box)) tell("the link");
    }

    diagram::Surface &surface_;
    diagram::Renderer renderer_;
    diagram::Scene scene_{surface_};
    std::vector<Node *> nodes_; // in sight, from the lowest to the highest
    QStringList faults_;
};

} // namespace

QStringList FaultsOf(diagram::Surface &surface) { return Inspector(surface).Look(); }

} // namespace tests
