#include "timeline/Following.h"

#include "diagram/model/Link.h"
#include "diagram/model/Node.h"
#include "timeline/DateText.h"

#include <deque>
#include <unordered_map>
#include <unordered_set>

namespace timeline {

namespace {

using diagram::Link;
using diagram::Node;

// A node's span before, and how many days it goes on.
struct Pushed {
    Span former;
    qint64 days = 0;
};

class Push {
public:
    explicit Push(const std::vector<NodeSpan> &changed) {
        for (const NodeSpan &each : changed) given_.insert(each.node);
        for (const NodeSpan &each : changed) {
            const std::optional<Span> former = SpanOfNode(*each.node);
            const qint64 days = former ? former->End().daysTo(each.span.End()) : 0;
            if (days > 0) PushBehind(*each.node, each.span, days);
        }
        while (!waiting_.empty()) {
            Node *node = waiting_.front();
            waiting_.pop_front();
            const Pushed &pushed = pushed_.at(node);
            PushBehind(*node, New(pushed), pushed.days);
        }
    }

    // In the order in which they were found.
    std::vector<NodeSpan> Take() const {
        std::vector<NodeSpan> following;
        for (Node *node : order_) {
            const Span span = New(pushed_.at(node));
            if (IsInYears(span.End())) following.push_back({node, span});
        }
        return following;
    }

private:
    static Span New(const Pushed &pushed) {
        return BegunOn(pushed.former, pushed.former.first.addDays(pushed.days));
    }

    // A bar takes its last day too; a node without an end leaves its day to the next.
    static bool BeginsBefore(const Span &next, const Span &end) {
        return end.last ? next.first <= *end.last : next.first < end.first;
    }

    void PushBehind(const Node &node, const Span &span, qint64 days) {
        for (const Link *link : node.Links()) {
            if (&link->Source() != &node || !link->Selectable()) continue;
            Node &next = link->Destination();
            if (given_.contains(&next) || !next.Selectable()) continue;
            const std::optional<Span> former = SpanOfNode(next);
            if (former && BeginsBefore(*former, span)) GoOn(next, *former, days);
        }
    }

    void GoOn(Node &node, const Span &former, qint64 days) {
        const auto [found, isNew] = pushed_.try_emplace(&node, Pushed{former, 0});
        if (days <= found->second.days) return;
        found->second.days = days;
        if (isNew) order_.push_back(&node);
        waiting_.push_back(&node);
    }

    std::unordered_set<const Node *> given_;
    std::unordered_map<Node *, Pushed> pushed_;
    std::vector<Node *> order_;
    std::deque<Node *> waiting_;
};

} // namespace

std::vector<NodeSpan> Following(const std::vector<NodeSpan> &changed) { return Push(changed).Take(); }

} // namespace timeline
