#include "diagram/scene/Scene.h"

#include "diagram/model/AnyItem.h"
#include "diagram/model/BoxIndex.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Stacking.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Bounds.h"
#include "diagram/scene/Crossings.h"
#include "diagram/scene/LabelPlaces.h"
#include "diagram/shapes/Measures.h"
#include "diagram/shapes/Shapes.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <QPolygonF>

namespace diagram {

namespace {

constexpr std::size_t kMostAreas = 256; // with more damage everything is painted
constexpr std::size_t kFewItems = 64;   // changed items that are always indexed one by one
constexpr std::size_t kMostLoose = 1024;

// A mark is painted only while the item can be selected, so that a change of Selectable, which counts as
// Data, makes marked items look otherwise.
bool IsMarked(const Item &item) { return item.AsNode() ? item.AsNode()->Marked() : item.AsLink()->Marked(); }

} // namespace

// What is known of each item stands at its identity in vectors: identities are dense enough. An item that
// moves leaves its tree for a list of loose items, which is searched item by item: what has moved once will
// move again with the next step of the drag, and the list is changed faster.
struct Scene::State {
    enum Flag : std::uint8_t { kIndexed = 1, kDirty = 2, kLoose = 4 };

    BoxIndex nodes, links;
    LabelPlaces labels;
    std::vector<Item *> loose;
    std::vector<Item *> items;   // in a tree, or loose
    std::vector<FloatBox> boxes; // as indexed
    std::vector<std::uint8_t> flags;
    std::vector<ItemId> dirty;
    bool built = false;
    Damage damage;
    Calendar calendar;
    bool calendarOutdated = true;

    BoxIndex &TreeOf(const Item &item) { return item.AsNode() ? nodes : links; }
    bool Is(ItemId id, Flag flag) const { return id < flags.size() && (flags[id] & flag); }

    void Reserve(ItemId id) {
        if (id < flags.size()) return;
        flags.resize(std::max<std::size_t>(id + 1, flags.size() + flags.size() / 2));
        boxes.resize(flags.size());
        items.resize(flags.size());
    }

    void AddDamage(const QRectF &area) {
        if (damage.everything) return;
        if (damage.areas.size() >= kMostAreas) return DamageAll();
        damage.areas.push_back(area.adjusted(-kJumpRadius, -kJumpRadius, kJumpRadius, kJumpRadius));
    }

    void DamageAll() {
        damage.everything = true;
        damage.areas.clear();
    }

    void MarkDirty(ItemId id) {
        if (!built) return;
        Reserve(id);
        if (flags[id] & kDirty) return;
        flags[id] |= kDirty;
        dirty.push_back(id);
        if (flags[id] & kIndexed) AddDamage(boxes[id].Rect());
    }

    void Unindex(Item &item) {
        if (!Is(item.Id(), kIndexed)) return;
        if (Is(item.Id(), kLoose)) {
            std::erase(loose, &item);
        } else {
            TreeOf(item).Remove(boxes[item.Id()], item.Id());
        }
        flags[item.Id()] &= std::uint8_t(~(kIndexed | kLoose));
    }

    void MakeLoose(Item &item) {
        if (Is(item.Id(), kLoose)) return;
        TreeOf(item).Remove(boxes[item.Id()], item.Id());
        flags[item.Id()] |= kLoose;
        loose.push_back(&item);
    }

    void BindLoose() {
        for (Item *item : loose) {
            flags[item->Id()] &= std::uint8_t(~kLoose);
            TreeOf(*item).Insert(boxes[item->Id()], item->Id());
        }
        loose.clear();
    }

    // Calls `visit` with each indexed item whose bounds touch the box.
    template <typename Visit>
    void Query(const FloatBox &box, Visit visit) const {
        QueryNodes(box, visit);
        links.Visit(box, [&](const BoxIndex::Entry &entry) { visit(*items[entry.second]); });
        for (Item *item : loose)
            if (item->AsLink() && boxes[item->Id()].Touches(box)) visit(*item);
    }
    template <typename Visit>
    void QueryNodes(const FloatBox &box, Visit visit) const {
        nodes.Visit(box, [&](const BoxIndex::Entry &entry) { visit(*items[entry.second]); });
        for (Item *item : loose)
            if (item->AsNode() && boxes[item->Id()].Touches(box)) visit(*item);
    }

    QRectF Extent() const {
        std::optional<FloatBox> all;
        const auto add = [&](const FloatBox &box) { all ? all->Unite(box) : void(all = box); };
        for (const BoxIndex *tree : {&nodes, &links})
            if (tree->Size() != 0) add(tree->Bounds());
        for (const Item *item : loose) add(boxes[item->Id()]);
        return all ? all->Rect() : QRectF();
    }

    void Forget() {
        nodes.Clear(), links.Clear();
        labels.Clear();
        loose.clear();
        flags.clear();
        boxes.clear();
        items.clear();
        dirty.clear();
        built = false;
        DamageAll();
    }

    FloatBox BoxOf(const Item &item) const { return BoxAround(PaintBounds(item, labels.At(item.Id()))); }
    ItemsAround Around() const {
        return [this](const FloatBox &box, const std::function<void(const Item &)> &visit) {
            Query(box, visit);
        };
    }

    ItemsAround NodesAround() const {
        return [this](const FloatBox &box, const std::function<void(const Item &)> &visit) {
            QueryNodes(box, visit);
        };
    }

    void Build(Surface &surface);
    void Follow(Surface &surface);
    void BuildTree(const Surface &surface);
    void Put(Item &item, const FloatBox &box);
    void Reindex(Item &item);
    void Update(Surface &surface);
    void UpdateItems(Surface &surface);
};

void Scene::State::BuildTree(const Surface &surface) {
    flags.assign(surface.NextId(), 0);
    boxes.resize(surface.NextId());
    items.resize(surface.NextId());
    loose.clear();
    std::vector<BoxIndex::Entry> ofNodes, ofLinks;
    ofNodes.reserve(std::size_t(surface.Nodes().Count())), ofLinks.reserve(surface.Links().size());
    const auto add = [&](Item &item, std::vector<BoxIndex::Entry> &entries) {
        if (IsHidden(item)) return;
        const FloatBox box = BoxOf(item);
        boxes[item.Id()] = box;
        items[item.Id()] = &item;
        flags[item.Id()] = kIndexed;
        entries.emplace_back(box, item.Id());
    };
    for (Node &node : surface.Nodes()) add(node, ofNodes);
    for (const auto &link : surface.Links()) add(*link, ofLinks);
    nodes.Build(ofNodes), links.Build(ofLinks);
}

// The labels come last, as they look for their places among everything else.
void Scene::State::Build(Surface &surface) {
    Forget();
    BuildTree(surface);
    for (const auto &link : surface.Links()) labels.LinkChanged(*link);
    bool any = false;
    labels.Update(surface, NodesAround(), LabelPlaces::Extent::All, [&any](Link &) { any = true; });
    if (any) BuildTree(surface);
    built = true;
}

// Builds everything anew but the places of labels.
void Scene::State::Follow(Surface &surface) {
    for (const ItemId id : std::exchange(dirty, {}))
        if (const Link *link = surface.FindLink(id)) labels.LinkChanged(*link);
    labels.Follow(surface);
    BuildTree(surface);
    DamageAll();
}

void Scene::State::Put(Item &item, const FloatBox &box) {
    const ItemId id = item.Id();
    if (Is(id, kIndexed) && !IsHidden(item) && boxes[id] == box) return;
    if (IsHidden(item)) return Unindex(item);
    if (Is(id, kIndexed)) {
        MakeLoose(item);
    } else {
        TreeOf(item).Insert(box, id);
    }
    boxes[id] = box;
    items[id] = &item;
    flags[id] |= kIndexed;
    AddDamage(box.Rect());
}

void Scene::State::Reindex(Item &item) {
    flags[item.Id()] &= std::uint8_t(~kDirty);
    const FloatBox box = BoxOf(item);
    const FloatBox *before = Is(item.Id(), kIndexed) ? &boxes[item.Id()] : nullptr;
    if (const Link *link = item.AsLink()) {
        labels.RouteChanged(*link, before);
        labels.LinkChanged(*link);
    } else {
        labels.NodeMoved(item.Id(), before, IsHidden(item) ? nullptr : &box);
    }
    Put(item, box);
}

void Scene::State::UpdateItems(Surface &surface) {
    // By position: looking at an item may route links, which adds to the list.
    for (std::size_t i = 0; i < dirty.size(); ++i) {
        const ItemId id = dirty[i];
        if (!Is(id, kDirty)) continue; // removed since
        if (Node *node = surface.FindNode(id)) {
            Reindex(*node);
        } else if (Link *link = surface.FindLink(id)) {
            Reindex(*link);
        }
    }
    dirty.clear();
}

// Many changed items are cheaper to index anew with all the others.
void Scene::State::Update(Surface &surface) {
    surface.Routes().Settle();
    const bool many =
        dirty.size() > kFewItems && dirty.size() > (nodes.Size() + links.Size() + loose.size()) / 4;
    if (!built || (many && !surface.Routes().IsOnTrial())) return Build(surface);
    many ? Follow(surface) : UpdateItems(surface);
    const auto extent =
        surface.Routes().IsOnTrial() ? LabelPlaces::Extent::OfChangedLinks : LabelPlaces::Extent::All;
    if (!labels.IsUpToDate(extent)) {
        labels.Update(surface, NodesAround(), extent, [this](Link &link) {
            if (Is(link.Id(), kIndexed)) AddDamage(boxes[link.Id()].Rect());
            Put(link, BoxOf(link));
        });
    }
    if (loose.size() > kMostLoose) BindLoose();
}

Scene::Scene(Surface &surface) : surface_(surface), state_(std::make_unique<State>()) {
    state_->DamageAll();
    surface_.Observers().Add(*this);
}

Scene::~Scene() { surface_.Observers().Remove(*this); }

// Only what can't be selected is part of the strip. How many nodes belong to a fold, and which lanes there
// are, changes with what comes, goes and is hidden.
void Scene::NoteStrip(const Item &item, Change what) {
    const Node *node = item.AsNode();
    const bool counts =
        Has(what, Change::Visibility) && !(state_->calendar.folds.empty() && state_->calendar.lanes.empty());
    if ((node && !node->Selectable()) || counts) state_->calendarOutdated = true;
}

const Calendar &Scene::TheCalendar() {
    if (std::exchange(state_->calendarOutdated, false)) {
        Calendar now = CalendarOf(surface_);
        if (now != state_->calendar) state_->DamageAll();
        state_->calendar = std::move(now);
    }
    return state_->calendar;
}

void Scene::ItemAdded(Item &item) {
    NoteStrip(item, Change::All);
    state_->MarkDirty(item.Id());
}

void Scene::ItemChanged(Item &item, Change what) {
    NoteStrip(item, what);
    constexpr Change kMoves = Change::Geometry | Change::Look | Change::Text | Change::Visibility;
    if ((std::uint32_t(what) & std::uint32_t(kMoves)) != 0 || (Has(what, Change::Data) && IsMarked(item))) {
        state_->MarkDirty(item.Id());
    } else if (Has(what, Change::Stacking)) {
        if (const Link *link = item.AsLink()) state_->labels.LinkChanged(*link);
        if (state_->Is(item.Id(), State::kIndexed)) state_->AddDamage(state_->boxes[item.Id()].Rect());
    }
}

void Scene::ItemRemoved(Item &item) {
    NoteStrip(item, Change::All);
    if (!state_->built) return;
    if (state_->Is(item.Id(), State::kIndexed)) state_->AddDamage(state_->boxes[item.Id()].Rect());
    if (state_->Is(item.Id(), State::kIndexed)) state_->labels.DisturbWhereFreed(state_->boxes[item.Id()]);
    state_->labels.LinkRemoved(item.Id());
    state_->Unindex(item);
    if (item.Id() < state_->flags.size()) state_->flags[item.Id()] = 0;
}

void Scene::SurfaceChanged(Change what) {
    state_->calendarOutdated = true;
    if (Has(what, Change::Text)) state_->Forget(); // labels are measured otherwise now
    if (what != Change::Data) state_->DamageAll();
}

void Scene::Cleared() {
    state_->calendarOutdated = true;
    state_->Forget();
}

void Scene::ItemsIn(const QRectF &area, std::vector<Item *> &items) {
    state_->Update(surface_);
    const auto start = items.size();
    const FloatBox query = BoxAround(area.normalized());
    const QRectF extent = state_->Extent();
    if (!extent.isNull() && query.Rect().contains(extent)) {
        std::ranges::copy_if(surface_.Stacking().Order(), std::back_inserter(items),
                             [](const Item *item) { return !IsHidden(*item); });
        return;
    }
    state_->Query(query, [&items](Item &item) { items.push_back(&item); });
    const auto found = items.size() - start;
    if (found < (std::size_t(surface_.Nodes().Count()) + surface_.Links().size()) / 8) {
        std::sort(items.begin() + std::ptrdiff_t(start), items.end(), LiesBelow);
        return;
    }
    // A large part of all items is picked from the order that is there already, without sorting.
    std::vector<bool> isFound(state_->flags.size());
    for (std::size_t i = start; i < items.size(); ++i) isFound[items[i]->Id()] = true;
    items.resize(start);
    std::ranges::copy_if(surface_.Stacking().Order(), std::back_inserter(items),
                         [&](const Item *item) { return bool(isFound[item->Id()]); });
}

QRectF Scene::Bounds(const Item &item) {
    state_->Update(surface_);
    if (state_->Is(item.Id(), State::kIndexed)) return state_->boxes[item.Id()].Rect();
    return state_->BoxOf(item).Rect();
}

QRectF Scene::Extent() {
    state_->Update(surface_);
    const QRectF items = state_->Extent();
    return items.isEmpty() ? items : items | TheCalendar().Bounds();
}

QPainterPath Scene::NodeOutline(const Node &node) {
    return Outline(node.Shape(), node.ShapeOrientation(), node.ShownBounds());
}
QPainterPath Scene::LinkPath(const Link &link) { return RoutePath(link); }

QRectF Scene::LabelBounds(const Link &link) {
    if (link.Text().isEmpty()) return {};
    state_->Update(surface_);
    const QRectF box = state_->labels.At(link.Id());
    return box.isEmpty() ? LabelPlace(link, LabelSize(link, surface_.Measure())) : box;
}

QRectF Scene::LabelPlace(const Link &link, const QSizeF &size) {
    state_->Update(surface_);
    return state_->labels.PlaceFor(link, size, state_->NodesAround());
}

std::vector<Crossing> Scene::Crossings(const Link &link) {
    if (link.JumpStyle() == 0 || link.Hidden()) return {};
    state_->Update(surface_);
    return CrossingsOf(link, state_->Around());
}

Scene::Damage Scene::TakeDamage() {
    state_->Update(surface_);
    TheCalendar();
    return std::exchange(state_->damage, {});
}

} // namespace diagram
