// The collections of a surface: adding, removing, finding, replacing.
#include "diagram/model/Actions.h"
#include "diagram/model/Properties.h"
#include "diagram/model/Ranges.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Selection.h"
#include "diagram/model/Stacking.h"
#include "diagram/model/Surface.h"

#include <algorithm>
#include <iterator>

namespace diagram {

namespace {

[[noreturn]] void RaiseInvalidCall() {
    support::Raise(support::kErrInvalidProcedureCall, QStringLiteral("Surface"));
}

template <typename T>
auto PlaceOf(const std::vector<std::unique_ptr<T>> &items, ItemId id) {
    return std::ranges::lower_bound(items, id, {}, [](const auto &item) { return item->Id(); });
}

// Puts an item where its identity belongs: at the end, unless undo brings it back.
template <typename T>
T &InsertById(std::vector<std::unique_ptr<T>> &items, std::unique_ptr<T> item) {
    T &result = *item;
    if (items.empty() || items.back()->Id() < item->Id()) {
        items.push_back(std::move(item));
    } else {
        items.insert(PlaceOf(items, item->Id()), std::move(item));
    }
    return result;
}

// Takes out those that are going, in their order.
template <typename T>
std::vector<std::unique_ptr<T>> TakeFrom(std::vector<std::unique_ptr<T>> &items, const ItemSet &going) {
    std::vector<std::unique_ptr<T>> gone;
    const auto stays = [&](const auto &item) { return !going.Has(item->Id()); };
    const auto first = std::stable_partition(items.begin(), items.end(), stays);
    std::move(first, items.end(), std::back_inserter(gone));
    items.erase(first, items.end());
    return gone;
}

} // namespace

Item *Surface::FindItem(ItemId id) const { return id < byId_.size() ? byId_[id] : nullptr; }

Node *Surface::FindNode(ItemId id) const {
    Item *item = FindItem(id);
    return item ? item->AsNode() : nullptr;
}

Link *Surface::FindLink(ItemId id) const {
    Item *item = FindItem(id);
    return item ? item->AsLink() : nullptr;
}

void Surface::NoteId(Item &item) {
    nextId_ = std::max(nextId_, item.Id() + 1);
    if (byId_.size() <= item.Id()) byId_.resize(item.Id() + 1);
    byId_[item.Id()] = &item;
}

Node &Surface::Insert(std::unique_ptr<Node> node) {
    Node &added = InsertById(nodes_, std::move(node));
    NoteId(added);
    if (!added.Key().isEmpty()) byKey_.insert(added.Key(), &added);
    stacking_->Added(SurfaceKey(), added);
    actions_->Added(SurfaceKey(), added);
    routing_->NodeAdded(SurfaceKey(), added);
    observers_.ItemAdded(added);
    return added;
}

Link &Surface::Insert(std::unique_ptr<Link> link) {
    Link &added = InsertById(links_, std::move(link));
    NoteId(added);
    Attach(added);
    stacking_->Added(SurfaceKey(), added);
    actions_->Added(SurfaceKey(), added);
    routing_->LinkAdded(SurfaceKey(), added);
    observers_.ItemAdded(added);
    return added;
}

Node &Surface::AddNode(NodeData data) {
    data.stack = stacking_->KeyOnTop();
    return Insert(std::make_unique<Node>(SurfaceKey(), *this, nextId_, std::move(data)));
}

Link &Surface::AddLink(Node &source, Node &destination) {
    if (&source.Owner() != this || &destination.Owner() != this) RaiseInvalidCall();
    LinkData data;
    data.source = source.Id();
    data.destination = destination.Id();
    data.stack = stacking_->KeyOnTop();
    return Insert(std::make_unique<Link>(SurfaceKey(), *this, nextId_, std::move(data), source, destination));
}

Node &Surface::Restore(ItemId id, NodeData data) {
    if (id == kNoItem || FindItem(id)) RaiseInvalidCall();
    if (FindNode(data.key)) data.key.clear();
    return Insert(std::make_unique<Node>(SurfaceKey(), *this, id, std::move(data)));
}

Link &Surface::Restore(ItemId id, LinkData data) {
    Node *source = FindNode(data.source);
    Node *destination = FindNode(data.destination);
    if (id == kNoItem || !source || !destination || FindItem(id)) RaiseInvalidCall();
    return Insert(std::make_unique<Link>(SurfaceKey(), *this, id, std::move(data), *source, *destination));
}

void Surface::ReplaceKey(Node &node, const QString &key) {
    if (!node.Key().isEmpty()) byKey_.remove(node.Key());
    node.Data(SurfaceKey()).key = key;
    if (!key.isEmpty()) byKey_.insert(key, &node);
}

void Surface::Rename(Node &node, const QString &key) {
    if (key == node.Key()) return;
    if (!key.isEmpty() && FindNode(key)) support::Raise(support::kErrKeyInUse, QStringLiteral("Node"));
    WriteTo(node, Change::Data, [&] { ReplaceKey(node, key); });
}

void Surface::Overwrite(Node &node, NodeData data) {
    const bool renamed = data.key != node.Key();
    if (renamed && FindNode(data.key)) data.key = node.Key();
    const Change what = Difference(node.Data(), data);
    if (what == Change::None) return;
    WriteTo(node, what, [&] {
        if (data.key != node.Key()) ReplaceKey(node, data.key);
        node.Data(SurfaceKey()) = std::move(data);
        if (Has(what, Change::Stacking)) stacking_->Restacked(SurfaceKey(), node);
    });
    if (!node.Selectable()) selection_->Select(node, false);
}

void Surface::Overwrite(Link &link, LinkData data) {
    Node *source = FindNode(data.source);
    Node *destination = FindNode(data.destination);
    if (!source || !destination) RaiseInvalidCall();
    const Change what = Difference(link.Data(), data);
    if (what == Change::None && routing_->IsKnown(link)) return;
    WriteTo(link, what, [&] {
        routing_->BeforeOverwrite(SurfaceKey(), link);
        link.Data(SurfaceKey()) = std::move(data);
        Reattach(link, *source, *destination);
        routing_->AfterOverwrite(SurfaceKey(), link);
        if (Has(what, Change::Stacking)) stacking_->Restacked(SurfaceKey(), link);
    });
    if (!link.Selectable()) selection_->Select(link, false);
}

void Surface::Attach(Link &link) {
    link.Source().Attach(SurfaceKey(), link);
    link.Destination().Attach(SurfaceKey(), link);
}

void Surface::Reattach(Link &link, Node &source, Node &destination) {
    if (&link.Source() == &source && &link.Destination() == &destination) return;
    link.Source().Detach(SurfaceKey(), link);
    link.Destination().Detach(SurfaceKey(), link);
    link.EndAt(SurfaceKey(), source, destination);
    Attach(link);
}

void Surface::EndAt(Link &link, Node &source, Node &destination) {
    if (&link.Source() == &source && &link.Destination() == &destination) return;
    if (&source.Owner() != this || &destination.Owner() != this)
        support::Raise(support::kErrInvalidProcedureCall, QStringLiteral("Link"));
    routing_->Judge(link);
    WriteTo(link, Change::Geometry, [&] {
        routing_->RespaceBeside(SurfaceKey(), link);
        Reattach(link, source, destination);
        routing_->Reroute(link);
        routing_->RespaceBeside(SurfaceKey(), link);
    });
}

void Surface::Remove(Node &node) { Remove({&node}, {}); }
void Surface::Remove(Link &link) { Remove({}, {&link}); }

void Surface::Remove(const std::vector<Node *> &nodes, const std::vector<Link *> &links) {
    ItemSet going;
    std::vector<Node *> goingNodes;
    std::vector<Link *> goingLinks;
    const auto take = [&](auto *item, auto &list) {
        if (&item->Owner() != this) RaiseInvalidCall();
        if (going.Add(item->Id())) list.push_back(item);
    };
    for (Link *link : links) take(link, goingLinks);
    for (Node *node : nodes) {
        take(node, goingNodes);
        for (Link *link : node->Links()) take(link, goingLinks);
    }
    if (!goingNodes.empty() || !goingLinks.empty()) Take(goingLinks, goingNodes, going);
}

// Takes the items out of every collection, tells the observers and destroys them.
void Surface::Take(const std::vector<Link *> &links, const std::vector<Node *> &nodes, const ItemSet &going) {
    actions_->WillRemove(SurfaceKey(), links, nodes);
    routing_->BeforeRemoval(SurfaceKey(), links, nodes, going);
    for (Link *link : links) {
        for (Node *end : {&link->Source(), &link->Destination()})
            if (!going.Has(end->Id())) end->Detach(SurfaceKey(), going);
        byId_[link->Id()] = nullptr;
    }
    for (const Node *node : nodes) {
        if (!node->Key().isEmpty()) byKey_.remove(node->Key());
        byId_[node->Id()] = nullptr;
    }
    selection_->Forget(SurfaceKey(), going);
    stacking_->Forget(SurfaceKey(), going);
    const auto goneLinks = TakeFrom(links_, going);
    TellTaken(goneLinks, TakeFrom(nodes_, going));
}

void Surface::TellTaken(const std::vector<std::unique_ptr<Link>> &links,
                        const std::vector<std::unique_ptr<Node>> &nodes) {
    if (nodes_.empty()) {
        routing_->Clear(SurfaceKey());
        observers_.Cleared();
        return;
    }
    for (const auto &link : links) observers_.ItemRemoved(*link);
    for (const auto &node : nodes) observers_.ItemRemoved(*node);
}

void Surface::DeleteSelection() {
    if (selection_->IsEmpty()) return;
    actions_->Begin(0);
    Remove(std::vector<Node *>(selection_->Nodes()), std::vector<Link *>(selection_->Links()));
    actions_->End();
}

void Surface::Reset() {
    selection_->ForgetAll(SurfaceKey());
    stacking_->ForgetAll(SurfaceKey());
    byKey_.clear();
    byId_.clear();
    // Observers are told while the items are out of the collections, but still exist.
    const auto links = std::exchange(links_, {});
    const auto nodes = std::exchange(nodes_, {});
    routing_->Clear(SurfaceKey());
    actions_->Reset(SurfaceKey());
    observers_.Cleared();
}

} // namespace diagram
