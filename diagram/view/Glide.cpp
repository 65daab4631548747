#include "diagram/view/Glide.h"

#include "diagram/format/SurfaceFile.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/SurfaceView.h"

#include <algorithm>
#include <cmath>
#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace diagram {

// Of a node with its corners, or of a link with its routes.
struct GlidingCopy::Move {
    Node *node = nullptr;
    Link *link = nullptr;
    QPointF fromCorner, toCorner;
    std::vector<Point> fromRoute, toRoute;
};

namespace {

Point Mix(const Point &from, const Point &to, double share) {
    return {float(from.x + (to.x - from.x) * share), float(from.y + (to.y - from.y) * share)};
}

// How far along the route, as a share of its length, each point lies.
std::vector<double> SharesOf(const std::vector<Point> &route) {
    std::vector<double> shares(route.size(), 0);
    for (std::size_t i = 1; i < route.size(); ++i)
        shares[i] = shares[i - 1] + std::hypot(route[i].x - route[i - 1].x, route[i].y - route[i - 1].y);
    const double length = shares.back();
    for (std::size_t i = 0; i < shares.size(); ++i)
        shares[i] = length > 0 ? shares[i] / length : double(i) / double(shares.size() - 1);
    return shares;
}

// The route with a point at each of the shares; those of its own points must be among them.
std::vector<Point> Divided(const std::vector<Point> &route, const std::vector<double> &shares) {
    const std::vector<double> own = SharesOf(route);
    std::vector<Point> divided;
    std::size_t segment = 0;
    for (const double share : shares) {
        while (segment + 2 < route.size() && own[segment + 1] < share) ++segment;
        const double length = own[segment + 1] - own[segment];
        const double along = length > 0 ? (share - own[segment]) / length : 0;
        divided.push_back(Mix(route[segment], route[segment + 1], std::clamp(along, 0.0, 1.0)));
    }
    return divided;
}

QPointF CornerBefore(const ItemPlaces &before, const Node &node) {
    return before.nodes.value(node.Id(), node.Bounds()).topLeft();
}

} // namespace

ItemPlaces PlacesOf(const Surface &surface) {
    ItemPlaces places;
    for (const Node &node : surface.Nodes()) places.nodes.insert(node.Id(), node.Bounds());
    for (const auto &link : surface.Links()) places.routes.insert(link->Id(), link->Route());
    return places;
}

std::vector<Point> Between(const std::vector<Point> &from, const std::vector<Point> &to, double share) {
    std::vector<Point> route;
    if (from.size() == to.size()) {
        for (std::size_t i = 0; i < to.size(); ++i) route.push_back(Mix(from[i], to[i], share));
        return route;
    }
    std::vector<double> shares = SharesOf(from);
    const std::vector<double> others = SharesOf(to);
    shares.insert(shares.end(), others.begin() + 1, others.end() - 1);
    std::ranges::sort(shares);
    const std::vector<Point> start = Divided(from, shares), end = Divided(to, shares);
    for (std::size_t i = 0; i < start.size(); ++i) route.push_back(Mix(start[i], end[i], share));
    return route;
}

GlidingCopy::GlidingCopy(Surface &surface, const ItemPlaces &before) : copy_(std::make_unique<Surface>()) {
    surface.Routes().Recalculate();
    LoadBytes(*copy_, SaveBytes(surface));
    told_ = std::make_unique<RoutesAsTold>(*copy_);
    auto node = copy_->Nodes().begin();
    for (const Node &original : surface.Nodes()) {
        moves_.push_back(
            {&*node, nullptr, CornerBefore(before, original), original.Bounds().topLeft(), {}, {}});
        ++node;
    }
    std::size_t at = 0;
    for (const auto &original : surface.Links()) {
        Link &link = *copy_->Links()[at++];
        link.SetMovePointsMode(true); // the points are told, not routed
        moves_.push_back({nullptr,
                          &link,
                          {},
                          {},
                          before.routes.value(original->Id(), original->Route()),
                          original->Route()});
    }
    scene_ = std::make_unique<Scene>(*copy_);
}

GlidingCopy::~GlidingCopy() = default;

const Surface &GlidingCopy::At(double share) {
    for (Move &move : moves_) {
        if (move.link) {
            move.link->Points().Assign(Between(move.fromRoute, move.toRoute, share));
            continue;
        }
        const QPointF corner = move.fromCorner + (move.toCorner - move.fromCorner) * share;
        move.node->SetLeft(float(corner.x()));
        move.node->SetTop(float(corner.y()));
    }
    return *copy_;
}

namespace {

Glide *GlideOf(const SurfaceView &view) {
    for (QObject *child : view.viewport()->children())
        if (auto *glide = dynamic_cast<Glide *>(child); glide && glide->isVisible()) return glide;
    return nullptr;
}

bool IsInput(QEvent::Type type) {
    constexpr QEvent::Type kInput[] = {QEvent::MouseButtonPress,
                                       QEvent::MouseButtonDblClick,
                                       QEvent::Wheel,
                                       QEvent::TouchBegin,
                                       QEvent::NativeGesture,
                                       QEvent::Gesture,
                                       QEvent::KeyPress,
                                       QEvent::ShortcutOverride,
                                       QEvent::InputMethod,
                                       QEvent::Resize,
                                       QEvent::Hide};
    return std::ranges::find(kInput, type) != std::end(kInput);
}

bool AnyMoved(const ItemPlaces &before, const Surface &surface) {
    return std::ranges::any_of(
               surface.Links(),
               [&](const auto &link) { return before.routes.value(link->Id()) != link->Route(); }) ||
           PlacesOf(surface).nodes != before.nodes;
}

} // namespace

void Glide::Begin(SurfaceView &view, const ItemPlaces &before) {
    if (Glide *former = GlideOf(view)) former->Finish();
    const int milliseconds = view.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &view);
    if (milliseconds <= 0 || !view.isVisible() || before.nodes.size() + before.routes.size() > kMostItems)
        return;
    constexpr int kLongest = 200; // milliseconds
    if (AnyMoved(before, view.Model())) new Glide(view, before, std::min(milliseconds, kLongest));
}

bool Glide::GoesOnIn(const SurfaceView &view) { return GlideOf(view) != nullptr; }

Glide::Glide(SurfaceView &view, const ItemPlaces &before, int milliseconds)
    : QWidget(view.viewport()), view_(view), surface_(view.Model()), copy_(surface_, before) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::NoFocus);
    setGeometry(view.viewport()->rect());
    view.installEventFilter(this);
    view.viewport()->installEventFilter(this);
    surface_.Observers().Add(*this);
    animation_.setStartValue(0.0);
    animation_.setEndValue(1.0);
    animation_.setDuration(milliseconds);
    animation_.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&animation_, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(&animation_, &QVariantAnimation::finished, this, [this] { Finish(); });
    show();
    animation_.start();
}

Glide::~Glide() { surface_.Observers().Remove(*this); }

void Glide::Finish() {
    animation_.stop();
    hide();
    deleteLater();
}

bool Glide::eventFilter(QObject *, QEvent *event) {
    if (IsInput(event->type())) Finish();
    return false;
}

void Glide::paintEvent(QPaintEvent *) {
    copy_.At(animation_.currentValue().toDouble());
    const double ratio = devicePixelRatioF();
    const QPointF origin = view_.FromSurface({0, 0}), unit = view_.FromSurface({1000, 1000});
    RenderOptions options;
    options.xScale = (unit.x() - origin.x()) / 1000 * ratio;
    options.yScale = (unit.y() - origin.y()) / 1000 * ratio;
    options.grid = options.marks = true;
    QPainter painter(this);
    painter.scale(1 / ratio, 1 / ratio);
    view_.TheRenderer().Paint(painter, copy_.TheScene(),
                              {view_.ToSurface({0, 0}), view_.ToSurface(QPointF(width(), height()))},
                              options);
}

} // namespace diagram
