// Where the writes of a surface meet its routing.
#include "diagram/model/LinkDraft.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"

namespace diagram {

// The ways of a node's links are known, and recorded, before it moves.
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
    if (link.stale_) routing_->Route(link);
}

std::vector<Point> Surface::WayOf(const LinkDraft &link) {
    routing_->Settle();
    const bool kept = link.data->addPointsMode || link.data->movePointsMode;
    return kept && link.data->points.size() > 1 ? link.data->points : routing_->WayOf(link);
}

std::shared_ptr<HeldWays> Surface::HoldWays() {
    SettleWays();
    auto held = std::make_shared<HeldWays>();
    routing_->Hold(held);
    return held;
}

bool Surface::HoldsWays() const { return routing_->IsHolding(); }
void Surface::SettleWays() { routing_->Settle(); }
void Surface::TidyWays() { routing_->TidyAll(); }
void Surface::KeepWays() { routing_->Keep(); }
void Surface::MakeWayFor(Node &node) { routing_->NodeChanged(node); }
void Surface::CheckWay(Link &link) { routing_->Check(link); }
void Surface::SetReplaying(bool on) { routing_->SetReplaying(on); }

void Surface::Recalculate() {
    for (const auto &link : links_) link->Way();
}

} // namespace diagram
