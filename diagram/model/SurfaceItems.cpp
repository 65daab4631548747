// The collections of a surface: adding, removing, finding, replacing, selecting.
#include "diagram/model/Properties.h"
#include "diagram/model/Ranges.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Surface.h"

#include <algorithm>
#include <optional>

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

void Surface::NoteAdded(const Item &item) {
    if (!Recording()) return CountWrite();
    log_->Added(item);
}

Node &Surface::Insert(std::unique_ptr<Node> node) {
    Node &added = InsertById(nodes_, std::move(node));
    NoteId(added);
    if (!added.Key().isEmpty()) byKey_.insert(added.Key(), &added);
    NoteStacked(added);
    NoteAdded(added);
    routing_->NodeAdded(added);
    for (SurfaceObserver *observer : observers_) observer->ItemAdded(added);
    return added;
}

Link &Surface::Insert(std::unique_ptr<Link> link) {
    Link &added = InsertById(links_, std::move(link));
    NoteId(added);
    added.source_->Attach(added);
    added.destination_->Attach(added);
    NoteStacked(added);
    NoteAdded(added);
    routing_->LinkAdded(added);
    routing_->RespaceBeside(added);
    for (SurfaceObserver *observer : observers_) observer->ItemAdded(added);
    return added;
}

Link &Surface::AddLink(Node &source, Node &destination) {
    if (&source.Owner() != this || &destination.Owner() != this) RaiseInvalidCall();
    LinkData data;
    data.source = source.Id();
    data.destination = destination.Id();
    data.stack = topStack_ + kStackGap;
    return Insert(std::unique_ptr<Link>(new Link(*this, nextId_, std::move(data), source, destination)));
}

Node &Surface::Restore(ItemId id, NodeData data) {
    if (id == kNoItem || FindItem(id)) RaiseInvalidCall();
    if (Nodes().Find(data.key)) data.key.clear();
    return Insert(std::unique_ptr<Node>(new Node(*this, id, std::move(data))));
}

Link &Surface::Restore(ItemId id, LinkData data) {
    Node *source = FindNode(data.source);
    Node *destination = FindNode(data.destination);
    if (id == kNoItem || !source || !destination || FindItem(id)) RaiseInvalidCall();
    std::unique_ptr<Link> link(new Link(*this, id, std::move(data), *source, *destination));
    link->stale_ = link->data_.points.size() < 2;
    return Insert(std::move(link));
}

void Surface::ReplaceKey(Node &node, const QString &key) {
    if (!node.data_.key.isEmpty()) byKey_.remove(node.data_.key);
    node.data_.key = key;
    if (!key.isEmpty()) byKey_.insert(key, &node);
}

void Surface::Overwrite(Node &node, NodeData data) {
    const bool renamed = data.key != node.data_.key;
    if (renamed && Nodes().Find(data.key)) data.key = node.data_.key;
    const Change what = Difference(node.data_, data);
    if (what == Change::None) return;
    BeforeWrite(node, what);
    Record(node);
    if (data.key != node.data_.key) ReplaceKey(node, data.key);
    node.data_ = std::move(data);
    if (Has(what, Change::Stacking)) NoteRestacked(node);
    Notify(node, what);
    AfterWrite(node, what);
    if (!node.Selectable()) Select(node, false);
}

void Surface::Overwrite(Link &link, LinkData data) {
    Node *source = FindNode(data.source);
    Node *destination = FindNode(data.destination);
    if (!source || !destination) RaiseInvalidCall();
    const Change what = Difference(link.data_, data);
    if (what == Change::None && !link.stale_ && !link.unjudged_) return;
    Record(link);
    routing_->RouteChanges(link);
    link.data_ = std::move(data);
    EndAt(link, *source, *destination);
    link.stale_ = link.data_.points.size() < 2;
    link.unjudged_ = false;
    if (Has(what, Change::Stacking)) NoteRestacked(link);
    Notify(link, what);
    if (!link.Selectable()) Select(link, false);
}

void Surface::EndAt(Link &link, Node &source, Node &destination) {
    if (link.source_ == &source && link.destination_ == &destination) return;
    link.source_->Detach(link);
    link.destination_->Detach(link);
    link.source_ = &source;
    link.destination_ = &destination;
    source.Attach(link);
    destination.Attach(link);
}

void Surface::Overwrite(SurfaceData data) {
    const Change what = Difference(data_, data);
    if (what == Change::None) return;
    std::optional<Uncounted> sight;
    if (!IsOtherWork(data_, data)) sight.emplace(*this);
    RecordSurface();
    data_ = std::move(data);
    NotifySurface(what);
}

void Surface::SetDefaults(const NodeLook &defaults) {
    if (!IsValid(defaults)) RaiseInvalidValue("Surface");
    SurfaceData data = data_;
    data.defaults = defaults;
    Overwrite(std::move(data));
}

void Surface::PageGrown(float right, float down) {
    SurfaceData data = data_;
    data.grownLeft += right;
    data.grownTop += down;
    Overwrite(std::move(data));
}

void Surface::Remove(Node &node) { Remove({&node}, {}); }
void Surface::Remove(Link &link) { Remove({}, {&link}); }

void Surface::Remove(const std::vector<Node *> &nodes, const std::vector<Link *> &links) {
    std::vector<Node *> goneNodes;
    std::vector<Link *> goneLinks;
    const auto doom = [this](auto *item, auto &list) {
        if (&item->Owner() != this) RaiseInvalidCall();
        if (!std::exchange(item->doomed_, true)) list.push_back(item);
    };
    for (Link *link : links) doom(link, goneLinks);
    for (Node *node : nodes) {
        doom(node, goneNodes);
        for (Link *link : node->links_) doom(link, goneLinks);
    }
    Take(goneLinks, goneNodes);
}

// Takes the items, all of them doomed, out of every collection and ends them.
void Surface::Take(const std::vector<Link *> &links, const std::vector<Node *> &nodes) {
    if (links.empty() && nodes.empty()) return;
    if (Recording()) {
        for (Link *link : links) BringUpToDate(*link), log_->WillRemove(*link);
        for (const Node *node : nodes) log_->WillRemove(*node);
    } else {
        CountWrite();
    }
    for (Link *link : links) {
        routing_->RouteChanges(*link);
        if (!link->source_->doomed_ && !link->destination_->doomed_) routing_->RespaceBeside(*link);
    }
    for (Node *node : nodes) routing_->NodeChanges(*node);
    const auto isDoomed = [](const auto *item) { return item->doomed_; };
    for (Link *link : links) {
        if (!link->source_->doomed_) std::erase_if(link->source_->links_, isDoomed);
        if (!link->destination_->doomed_) std::erase_if(link->destination_->links_, isDoomed);
    }
    for (Node *node : nodes) {
        if (!node->Key().isEmpty()) byKey_.remove(node->Key());
    }
    std::erase_if(selectedNodes_, isDoomed);
    std::erase_if(selectedLinks_, isDoomed);
    std::erase_if(stacking_, isDoomed);
    std::erase_if(restacked_, isDoomed);
    for (const Link *link : links) byId_[link->Id()] = nullptr;
    for (const Node *node : nodes) byId_[node->Id()] = nullptr;

    const auto takeFrom = [](auto &items) {
        std::remove_reference_t<decltype(items)> gone;
        const auto stays = [](const auto &item) { return !item->doomed_; };
        const auto first = std::stable_partition(items.begin(), items.end(), stays);
        std::move(first, items.end(), std::back_inserter(gone));
        items.erase(first, items.end());
        return gone;
    };
    const auto goneLinks = takeFrom(links_);
    const auto goneNodes = takeFrom(nodes_);
    const bool nothingLeft = nodes_.empty();
    if (nothingLeft) routing_->Clear();
    for (SurfaceObserver *observer : observers_) {
        if (nothingLeft) {
            observer->Cleared();
            continue;
        }
        for (const auto &link : goneLinks) observer->ItemRemoved(*link);
        for (const auto &node : goneNodes) observer->ItemRemoved(*node);
    }
}

void Surface::DeleteSelection() {
    if (selectedNodes_.empty() && selectedLinks_.empty()) return;
    BeginAction(0);
    Remove(std::vector<Node *>(selectedNodes_), std::vector<Link *>(selectedLinks_));
    EndAction();
}

void Surface::Reset() {
    selectedNodes_.clear();
    selectedLinks_.clear();
    stacking_.clear();
    restacked_.clear();
    byKey_.clear();
    byId_.clear();
    // Observers must not be left with items that are gone, nor be told while items still stand.
    const auto links = std::exchange(links_, {});
    const auto nodes = std::exchange(nodes_, {});
    routing_->Clear();
    if (log_) log_->Forget();
    CountWrite();
    for (SurfaceObserver *observer : observers_) observer->Cleared();
}

Node *Surface::SelectedNode() const { return selectedNodes_.empty() ? nullptr : selectedNodes_.back(); }
Link *Surface::SelectedLink() const { return selectedLinks_.empty() ? nullptr : selectedLinks_.back(); }

void Surface::Select(Item &item, bool on) {
    const auto select = [on](auto &selected, auto &list) {
        if (selected.selected_ == on || (on && !selected.Selectable())) return false;
        selected.selected_ = on;
        if (on) {
            list.push_back(&selected);
        } else {
            list.erase(std::ranges::find(list, &selected));
        }
        return true;
    };
    const bool changed =
        item.AsNode() ? select(*item.AsNode(), selectedNodes_) : select(*item.AsLink(), selectedLinks_);
    if (changed) Notify(item, Change::Selection);
}

void Surface::UnselectAll() {
    const auto nodes = std::exchange(selectedNodes_, {});
    const auto links = std::exchange(selectedLinks_, {});
    for (Node *node : nodes) node->selected_ = false;
    for (Link *link : links) link->selected_ = false;
    for (Node *node : nodes) Notify(*node, Change::Selection);
    for (Link *link : links) Notify(*link, Change::Selection);
}

} // namespace diagram
