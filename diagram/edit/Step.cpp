#include "diagram/edit/Step.h"

#include "diagram/model/Actions.h"
#include "diagram/model/Routing.h"

#include <algorithm>

namespace diagram {

namespace {

// `current` with the changes made, as far as it still has the values that they start from.
template <typename Data>
Data Changed(const Data &current, const std::vector<PropertyChange> &changes, bool forward) {
    Data result = current;
    const auto rows = PropertiesOf(current);
    for (const PropertyChange &change : changes) {
        const auto &row = rows[change.row];
        if (row.holds(current, forward ? change.before : change.after))
            row.set(result, forward ? change.after : change.before);
    }
    return result;
}

// Whether the changes set the points, because the link still has those that they start from.
bool SetsPoints(const Link &link, const std::vector<PropertyChange> &changes, bool forward) {
    const auto sets = [&](const PropertyChange &change) {
        const auto *points = std::get_if<std::vector<Point>>(forward ? &change.before : &change.after);
        return points && *points == link.Data().points;
    };
    return std::ranges::any_of(changes, sets);
}

void ChangeLink(Surface &target, Link &link, const std::vector<PropertyChange> &changes, bool forward) {
    LinkData data = Changed(link.Data(), changes, forward);
    if (!SetsPoints(link, changes, forward)) data.points = link.Route();
    if (!target.FindNode(data.source)) data.source = link.Source().Id();
    if (!target.FindNode(data.destination)) data.destination = link.Destination().Id();
    target.Overwrite(link, std::move(data));
}

template <typename Data>
void PutPresences(const std::vector<Presence<Data>> &entries, Touched<Data> &before) {
    for (const auto &entry : entries)
        before[entry.id] = entry.added ? std::optional<Data>() : std::optional<Data>(entry.data);
}

} // namespace

bool Step::IsEmpty() const {
    return nodesPresent.empty() && linksPresent.empty() && nodes.empty() && links.empty() && surface.empty();
}

bool Step::ChangesContent() const {
    if (!nodesPresent.empty() || !linksPresent.empty() || !nodes.empty() || !links.empty()) return true;
    const auto rows = SurfaceProperties();
    return std::ranges::any_of(surface,
                               [&rows](const PropertyChange &change) { return IsContent(rows[change.row]); });
}

// Nodes are added before the links that end at them, and removed when no link that stays ends at them any
// more. Routes are set when the nodes are in place. Keys are set last, when those of removed nodes are free.
void Step::Apply(Surface &target, bool forward) {
    target.Routes().Recalculate();
    const Uncounted known(target.Actions()); // the history knows the revision that comes of it
    const RoutesAsTold told(target);
    KeepValues(target, forward);
    std::vector<KeyToSet> keys;
    ApplyToNodes(target, forward, keys);
    ApplyToLinks(target, forward);
    if (!surface.empty()) target.Overwrite(Changed(target.Data(), surface, forward));
    TakeAway(target, forward);
    for (KeyToSet &entry : keys) {
        Node *node = target.FindNode(entry.id);
        if (!node) continue;
        NodeData data = node->Data();
        data.key = std::move(entry.key);
        target.Overwrite(*node, std::move(data));
    }
}

void Step::PutBefore(const Surface &target, Touched<NodeData> &nodesBefore, Touched<LinkData> &linksBefore,
                     std::optional<SurfaceData> &before) const {
    PutPresences(nodesPresent, nodesBefore);
    PutPresences(linksPresent, linksBefore);
    for (const auto &entry : nodes)
        if (const Node *node = target.FindNode(entry.id))
            nodesBefore[entry.id].emplace(Changed(node->Data(), entry.changes, false));
    for (const auto &entry : links)
        if (const Link *link = target.FindLink(entry.id))
            linksBefore[entry.id].emplace(Changed(link->Data(), entry.changes, false));
    if (!surface.empty()) before.emplace(Changed(target.Data(), surface, false));
}

void Step::ApplyToNodes(Surface &target, bool forward, std::vector<KeyToSet> &keys) const {
    for (const auto &entry : nodesPresent) {
        if (entry.added != forward || target.FindNode(entry.id)) continue;
        NodeData data = entry.data;
        if (!data.key.isEmpty()) keys.push_back({entry.id, std::exchange(data.key, {})});
        target.Restore(entry.id, std::move(data));
    }
    for (const auto &entry : nodes) {
        Node *node = target.FindNode(entry.id);
        if (!node) continue;
        NodeData data = Changed(node->Data(), entry.changes, forward);
        if (data.key != node->Key()) keys.push_back({entry.id, std::exchange(data.key, {})});
        target.Overwrite(*node, std::move(data));
    }
}

void Step::ApplyToLinks(Surface &target, bool forward) const {
    for (const auto &entry : linksPresent) {
        const bool canStand = target.FindNode(entry.data.source) && target.FindNode(entry.data.destination);
        if (entry.added == forward && canStand && !target.FindLink(entry.id))
            target.Restore(entry.id, entry.data);
    }
    for (const auto &entry : links) {
        if (Link *link = target.FindLink(entry.id)) ChangeLink(target, *link, entry.changes, forward);
    }
}

// Keeps the values of the items that will be taken away. First of all, as whatever moves makes links be
// routed.
void Step::KeepValues(const Surface &target, bool forward) {
    for (auto &entry : nodesPresent) {
        const Node *node = entry.added != forward ? target.FindNode(entry.id) : nullptr;
        if (node) entry.data = node->Data();
    }
    for (auto &entry : linksPresent) {
        const Link *link = entry.added != forward ? target.FindLink(entry.id) : nullptr;
        if (!link) continue;
        link->OwnBends(); // brings its values up to date
        entry.data = link->Data();
    }
}

void Step::TakeAway(Surface &target, bool forward) const {
    std::vector<Node *> goneNodes;
    std::vector<Link *> goneLinks;
    for (const auto &entry : nodesPresent) {
        Node *node = entry.added != forward ? target.FindNode(entry.id) : nullptr;
        if (node) goneNodes.push_back(node);
    }
    for (const auto &entry : linksPresent) {
        Link *link = entry.added != forward ? target.FindLink(entry.id) : nullptr;
        if (link) goneLinks.push_back(link);
    }
    target.Remove(goneNodes, goneLinks);
}

} // namespace diagram
