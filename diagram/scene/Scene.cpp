#include "diagram/scene/Scene.h"

#include "diagram/model/AnyItem.h"
#include "diagram/model/Routing.h"
#include "diagram/model/Stacking.h"
#include "diagram/model/Surface.h"
#include "diagram/scene/Bounds.h"
#include "diagram/scene/Crossings.h"
#include "diagram/scene/ItemBoxes.h"
#include "diagram/scene/LabelPlaces.h"
#include "diagram/shapes/Measures.h"
#include "diagram/shapes/Shapes.h"

#include <algorithm>

namespace diagram {

namespace {

constexpr std::size_t kMostAreas = 256; // with more damage everything is painted
constexpr std::size_t kFewItems = 64;   // changed items that are always indexed one by one

// A mark is painted only while the item can be selected, so that a change of Selectable, which counts as
// Data, makes marked items look otherwise.
bool IsMarked(const Item &item) { return item.AsNode() ? item.AsNode()->Marked() : item.AsLink()->Marked(); }

} // namespace

struct Scene::State {
    ItemBoxes boxes;
    LabelPlaces labels;
    std::vector<ItemId> dirty; // changed since the last update
    std::vector<bool> isDirty; // by identity; an item that is removed stays in `dirty`
    bool built = false;
    Damage damage;
    Calendar calendar;
    bool calendarOutdated = true;

    void AddDamage(const QRectF &area) {
        if (damage.everything) return;
        if (damage.areas.size() >= kMostAreas) return DamageAll();
        damage.areas.push_back(area.adjusted(-kJumpRadius, -kJumpRadius, kJumpRadius, kJumpRadius));
    }

    void AddDamageOf(ItemId id) {
        if (const FloatBox *box = boxes.Find(id)) AddDamage(box->Rect());
    }

    void DamageAll() {
        damage.everything = true;
        damage.areas.clear();
    }

    bool IsDirty(ItemId id) const { return id < isDirty.size() && isDirty[id]; }

    void MarkDirty(ItemId id) {
        if (!built || IsDirty(id)) return;
        if (id >= isDirty.size()) isDirty.resize(id + 1);
        isDirty[id] = true;
        dirty.push_back(id);
        AddDamageOf(id);
    }

    void Forget() {
        boxes.Clear();
        labels.Clear();
        dirty.clear();
        isDirty.clear();
        built = false;
        DamageAll();
    }

    FloatBox BoxOf(const Item &item) const { return BoxAround(PaintBounds(item, labels.At(item.Id()))); }

    ItemsAround Around() const {
        return [this](const FloatBox &box, const std::function<void(const Item &)> &visit) {
            boxes.Query(box, visit);
        };
    }

    ItemsAround NodesAround() const {
        return [this](const FloatBox &box, const std::function<void(const Item &)> &visit) {
            boxes.QueryNodes(box, visit);
        };
    }

    void Put(Item &item, const FloatBox &box) {
        if (boxes.Put(item, box)) AddDamage(box.Rect());
    }

    void Build(Surface &surface);
    void Follow(Surface &surface);
    void BuildBoxes(const Surface &surface);
    void Reindex(Item &item);
    void Update(Surface &surface);
    void UpdateItems(Surface &surface);
};

void Scene::State::BuildBoxes(const Surface &surface) {
    isDirty.assign(surface.NextId(), false);
    boxes.Build(surface, [this](const Item &item) {
        const FloatBox box = BoxOf(item);
        isDirty[item.Id()] = false; // even if this question has changed it
        return box;
    });
}

// The labels come last, as they look for their places among everything else.
void Scene::State::Build(Surface &surface) {
    Forget();
    BuildBoxes(surface);
    for (const auto &link : surface.Links()) labels.LinkChanged(*link);
    bool any = false;
    labels.Update(surface, NodesAround(), LabelPlaces::Extent::All, [&any](Link &) { any = true; });
    if (any) BuildBoxes(surface);
    built = true;
}

// Builds everything anew but the places of labels.
void Scene::State::Follow(Surface &surface) {
    for (const ItemId id : std::exchange(dirty, {}))
        if (const Link *link = surface.FindLink(id)) labels.LinkChanged(*link);
    labels.Follow(surface);
    BuildBoxes(surface);
    DamageAll();
}

void Scene::State::Reindex(Item &item) {
    isDirty[item.Id()] = false;
    const FloatBox box = BoxOf(item);
    const FloatBox *before = boxes.Find(item.Id());
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
        if (!IsDirty(id)) continue; // removed since
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
    const bool many = dirty.size() > kFewItems && dirty.size() > boxes.Size() / 4;
    if (!built || (many && !surface.Routes().IsOnTrial())) return Build(surface);
    many ? Follow(surface) : UpdateItems(surface);
    const auto extent =
        surface.Routes().IsOnTrial() ? LabelPlaces::Extent::OfChangedLinks : LabelPlaces::Extent::All;
    if (!labels.IsUpToDate(extent)) {
        labels.Update(surface, NodesAround(), extent, [this](Link &link) {
            AddDamageOf(link.Id());
            Put(link, BoxOf(link));
        });
    }
    boxes.BindLoose();
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
        state_->AddDamageOf(item.Id());
    }
}

void Scene::ItemRemoved(Item &item) {
    NoteStrip(item, Change::All);
    if (!state_->built) return;
    if (const FloatBox *box = state_->boxes.Find(item.Id())) {
        state_->AddDamage(box->Rect());
        state_->labels.DisturbWhereFreed(*box);
    }
    state_->labels.LinkRemoved(item.Id());
    state_->boxes.Remove(item);
    if (state_->IsDirty(item.Id())) state_->isDirty[item.Id()] = false;
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
    const QRectF extent = state_->boxes.Extent();
    if (!extent.isNull() && query.Rect().contains(extent)) {
        std::ranges::copy_if(surface_.Stacking().Order(), std::back_inserter(items),
                             [](const Item *item) { return !IsHidden(*item); });
        return;
    }
    state_->boxes.Query(query, [&items](Item &item) { items.push_back(&item); });
    const auto found = items.size() - start;
    if (found < (std::size_t(surface_.Nodes().Count()) + surface_.Links().size()) / 8) {
        std::sort(items.begin() + std::ptrdiff_t(start), items.end(), LiesBelow);
        return;
    }
    // A large part of all items is picked from the order that is there already, without sorting.
    std::vector<bool> isFound(surface_.NextId());
    for (std::size_t i = start; i < items.size(); ++i) isFound[items[i]->Id()] = true;
    items.resize(start);
    std::ranges::copy_if(surface_.Stacking().Order(), std::back_inserter(items),
                         [&](const Item *item) { return bool(isFound[item->Id()]); });
}

QRectF Scene::Bounds(const Item &item) {
    state_->Update(surface_);
    if (const FloatBox *box = state_->boxes.Find(item.Id())) return box->Rect();
    return state_->BoxOf(item).Rect();
}

QRectF Scene::Extent() {
    state_->Update(surface_);
    const QRectF items = state_->boxes.Extent();
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
