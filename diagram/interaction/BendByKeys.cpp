#include "diagram/interaction/BendByKeys.h"

#include "diagram/edit/History.h"
#include "diagram/interaction/BendEdit.h"
#include "diagram/interaction/MoveBend.h"
#include "diagram/interaction/Snap.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/shapes/LinkStyles.h"

namespace diagram {

namespace {

bool HasSegmentGrips(int style) {
    const LinkStyleRow *row = FindLinkStyle(style);
    return !row || row->form != LinkForm::Bezier;
}

} // namespace

BendByKeys::BendByKeys(Surface &surface, Stage &stage, Link &link)
    : surface_(surface), stage_(stage), held_(link), route_(link.Route()) {
    GoTo(Grips().size() / 2);
}

std::vector<BendByKeys::Grip> BendByKeys::Grips() const {
    const int last = int(route_.size()) - 1;
    const bool segments = HasSegmentGrips(Held().data.style) || last < 2;
    std::vector<Grip> grips;
    for (int i = 0; i < last; ++i) {
        if (i > 0) grips.push_back({true, i});
        if (segments) grips.push_back({false, i});
    }
    return grips;
}

QPointF BendByKeys::Place(const Grip &grip) const {
    const QPointF at = ToQPointF(route_[size_t(grip.index)]);
    return grip.isBend ? at : (at + ToQPointF(route_[size_t(grip.index) + 1])) / 2;
}

void BendByKeys::GoTo(size_t grip) {
    lit_ = grip;
    const QPointF at = Place(Lit());
    stage_.EnsureVisible(QRectF(at, at).adjusted(-kKeyStep, -kKeyStep, kKeyStep, kKeyStep));
}

void BendByKeys::Key(const KeyInput &input) {
    const size_t count = Grips().size();
    if (const int step = input.Tab()) return GoTo((lit_ + count + size_t(step)) % count);
    if (input.key == Qt::Key_Delete || input.key == Qt::Key_Backspace) return Remove();
    const QPointF arrow = input.Arrow();
    if (!arrow.isNull()) Drag(arrow * (input.Shift() ? double(surface_.Screen().GridSize()) : kKeyStep));
}

void BendByKeys::Drag(const QPointF &by) {
    const Grip grip = Lit();
    const QPointF to = Place(grip) + by;
    const QPointF kept(qMax(0.0, to.x()), qMax(0.0, to.y()));
    const int style = Held().data.style;
    std::vector<Point> route = grip.isBend ? BendDragged(route_, grip.index, kept, style)
                                           : SegmentDragged(route_, grip.index, kept, style);
    if (route == route_) return;
    const bool newBend = route.size() > route_.size();
    Write(std::move(route));
    GoTo(newBend ? lit_ + 1 : lit_); // a new bend stands behind what was the middle
}

void BendByKeys::Remove() {
    const Grip grip = Lit();
    if (!HasFreeBends(Held().data.style)) {
        Link *link = surface_.FindLink(Held().id);
        if (!link) return;
        GiveBendsToRouter(*link);
        route_ = link->Route();
        routed_ = true;
        return GoTo(qMin(lit_, Grips().size() - 1));
    }
    if (!grip.isBend) return;
    std::vector<Point> route = route_;
    route.erase(route.begin() + grip.index);
    Write(std::move(route));
    GoTo(lit_ - 1);
}

void BendByKeys::Write(std::vector<Point> route) {
    Link *link = surface_.FindLink(Held().id);
    if (!link) return;
    held_.RestoreLinks(surface_);
    link->Points().Assign(std::move(route));
    route_ = link->Route();
    routed_ = false;
}

void BendByKeys::Commit(const PointerInput &) {
    const bool givenBack = routed_ && Held().data.ownBends;
    held_.RestoreLinks(surface_);
    Link *link = surface_.FindLink(Held().id);
    if (!link || (route_ == Held().data.points && !givenBack)) return;
    const ActionGroup group(surface_);
    if (routed_)
        GiveBendsToRouter(*link);
    else
        link->Points().Assign(route_);
    surface_.Events().AfterStretch(surface_);
}

void BendByKeys::Show(Overlay &overlay) const { overlay.grip = Place(Lit()); }

} // namespace diagram
