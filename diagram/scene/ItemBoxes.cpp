#include "diagram/scene/ItemBoxes.h"

#include "diagram/model/AnyItem.h"
#include "diagram/model/Surface.h"

#include <optional>

namespace diagram {

namespace {

constexpr std::size_t kMostLoose = 1024;

} // namespace

void ItemBoxes::Clear() {
    nodes_.Clear(), links_.Clear();
    loose_.clear();
    flags_.clear();
    boxes_.clear();
    items_.clear();
}

void ItemBoxes::Build(const Surface &surface, const std::function<FloatBox(const Item &)> &boxOf) {
    flags_.assign(surface.NextId(), 0);
    boxes_.resize(surface.NextId());
    items_.resize(surface.NextId());
    loose_.clear();
    std::vector<BoxIndex::Entry> ofNodes, ofLinks;
    ofNodes.reserve(std::size_t(surface.Nodes().Count())), ofLinks.reserve(surface.Links().size());
    const auto add = [&](Item &item, std::vector<BoxIndex::Entry> &entries) {
        if (IsHidden(item)) return;
        const FloatBox box = boxOf(item);
        boxes_[item.Id()] = box;
        items_[item.Id()] = &item;
        flags_[item.Id()] = kIndexed;
        entries.emplace_back(box, item.Id());
    };
    for (Node &node : surface.Nodes()) add(node, ofNodes);
    for (const auto &link : surface.Links()) add(*link, ofLinks);
    nodes_.Build(ofNodes), links_.Build(ofLinks);
}

void ItemBoxes::Reserve(ItemId id) {
    if (id < flags_.size()) return;
    flags_.resize(std::max<std::size_t>(id + 1, flags_.size() + flags_.size() / 2));
    boxes_.resize(flags_.size());
    items_.resize(flags_.size());
}

bool ItemBoxes::Put(Item &item, const FloatBox &box) {
    if (IsHidden(item)) {
        Remove(item);
        return false;
    }
    const ItemId id = item.Id();
    const FloatBox *before = Find(id);
    if (before && *before == box) return false;
    if (before) {
        MakeLoose(item);
    } else {
        TreeOf(item).Insert(box, id);
    }
    Reserve(id);
    boxes_[id] = box;
    items_[id] = &item;
    flags_[id] |= kIndexed;
    return true;
}

void ItemBoxes::Remove(Item &item) {
    const ItemId id = item.Id();
    if (!Find(id)) return;
    if (Is(id, kLoose)) {
        std::erase(loose_, &item);
    } else {
        TreeOf(item).Remove(boxes_[id], id);
    }
    flags_[id] = 0;
}

void ItemBoxes::MakeLoose(Item &item) {
    if (Is(item.Id(), kLoose)) return;
    TreeOf(item).Remove(boxes_[item.Id()], item.Id());
    flags_[item.Id()] |= kLoose;
    loose_.push_back(&item);
}

void ItemBoxes::BindLoose() {
    if (loose_.size() <= kMostLoose) return;
    for (Item *item : loose_) {
        flags_[item->Id()] &= std::uint8_t(~kLoose);
        TreeOf(*item).Insert(boxes_[item->Id()], item->Id());
    }
    loose_.clear();
}

QRectF ItemBoxes::Extent() const {
    std::optional<FloatBox> all;
    const auto add = [&](const FloatBox &box) { all ? all->Unite(box) : void(all = box); };
    for (const BoxIndex *tree : {&nodes_, &links_})
        if (tree->Size() != 0) add(tree->Bounds());
    for (const Item *item : loose_) add(boxes_[item->Id()]);
    return all ? all->Rect() : QRectF();
}

} // namespace diagram
