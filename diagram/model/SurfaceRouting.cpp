// Where the writes of a surface meet its routing.
#include "diagram/model/LinkDraft.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"

namespace diagram {

// The routes of a node's links are known, and recorded, before it moves.
void Surface::BeforeWrite(Node &node, Change what) {
    if (!Has(what, Change::Geometry | Change::Visibility)) return;
    if (Has(what, Change::Geometry)) {
        for (Link *link : node.links_) {
            routing_->Judge(*link);
            if (!link->KeepsPoints()) Record(*link);
        }
    }
    routing_->NodeChanges(node);
}

void Surface::AfterWrite(Node &node, Change what) {
    if (!Has(what, Change::Geometry | Change::Visibility)) return;
    if (Has(what, Change::Geometry)) {
        for (Link *link : node.links_) {
            if (link->KeepsPoints()) continue;
            link->stale_ = true;
            Notify(*link, Change::Geometry);
        }
    }
    routing_->NodeChanged(node);
}

void Surface::BringUpToDate(Link &link) {
    routing_->Judge(link);
    if (link.stale_) routing_->FindRoute(link);
}

std::vector<Point> Surface::RouteOf(const LinkDraft &link) {
    routing_->Settle();
    const bool kept = link.data->addPointsMode || link.data->movePointsMode;
    return kept && link.data->points.size() > 1 ? link.data->points : routing_->RouteOf(link);
}

std::shared_ptr<HeldRoutes> Surface::HoldRoutes() {
    SettleRoutes();
    auto held = std::make_shared<HeldRoutes>();
    routing_->Hold(held);
    return held;
}

bool Surface::HoldsRoutes() const { return routing_->IsHolding(); }
void Surface::SettleRoutes() { routing_->Settle(); }
void Surface::TidyRoutes() { routing_->TidyAll(); }
void Surface::KeepRoutes() { routing_->Keep(); }
void Surface::MakeWayFor(Node &node) { routing_->NodeChanged(node); }
void Surface::CheckRoute(Link &link) { routing_->Check(link); }
void Surface::SetReplaying(bool on) { routing_->SetReplaying(on); }

void Surface::Recalculate() {
    for (const auto &link : links_) link->Route();
}

} // namespace diagram
