#include "recovery/SliceWatch.h"

namespace recovery {

using diagram::Change;
using diagram::ItemId;

SliceWatch::SliceWatch(diagram::Surface &surface, SliceId id, std::function<void()> written)
    : surface_(surface), id_(id), written_(std::move(written)) {
    surface_.Observers().Add(*this);
}

SliceWatch::~SliceWatch() { surface_.Observers().Remove(*this); }

void SliceWatch::NoteAll() {
    whole_ = true;
    surfaceNoted_ = true;
    isNoted_.clear();
    noted_.clear();
}

void SliceWatch::Note(ItemId id) {
    if (id >= isNoted_.size()) isNoted_.resize(std::size_t(id) * 2 + 1);
    if (isNoted_[id]) return;
    isNoted_[id] = true;
    noted_.push_back(id);
}

void SliceWatch::Write(ItemId id) {
    Note(id);
    written_();
}

void SliceWatch::ItemChanged(diagram::Item &item, Change what) {
    if (what != Change::Selection) Write(item.Id());
}

// Zooms and the grid are stored with the map, but a change of them alone is no edit.
void SliceWatch::SurfaceChanged(Change what) {
    surfaceNoted_ = true;
    if (what != Change::Geometry) written_();
}

void SliceWatch::Cleared() {
    NoteAll();
    written_();
}

void SliceWatch::BeginGathering() {
    gathersSurface_ = gathersSurface_ || std::exchange(surfaceNoted_, false);
    for (const ItemId id : noted_) isNoted_[id] = false;
    if (std::exchange(whole_, false)) {
        gathersWhole_ = true;
        toGather_.clear();
        toGather_.reserve(std::size_t(surface_.Nodes().Count()) + surface_.Links().size());
        // GatherOne takes from the back: nodes first.
        for (const auto &link : surface_.Links()) toGather_.push_back(link->Id());
        for (const diagram::Node &node : surface_.Nodes()) toGather_.push_back(node.Id());
        noted_.clear();
    } else {
        toGather_.insert(toGather_.end(), noted_.begin(), noted_.end());
        noted_.clear();
    }
}

void SliceWatch::GatherSurface(SlicePart &part) {
    part.whole = std::exchange(gathersWhole_, false);
    if (std::exchange(gathersSurface_, false)) {
        part.surface = surface_.Data();
        part.surface->grownLeft = part.surface->grownTop = 0; // only the view of this run has to follow those
    }
}

bool SliceWatch::GatherOne(SlicePart &part, const std::optional<TypedText> &typed) {
    if (toGather_.empty()) return false;
    const ItemId id = toGather_.back();
    toGather_.pop_back();
    const bool isTyped = typed && typed->index == surface_.Index() && typed->item == id;
    if (const diagram::Node *node = surface_.FindNode(id)) {
        part.nodes.push_back({id, node->Data()});
        if (isTyped) part.nodes.back().data.text = typed->text;
    } else if (const diagram::Link *link = surface_.FindLink(id)) {
        link->Route(); // routes the link if it is out of date, so that its data has the points
        part.links.push_back({id, link->Data()});
        if (isTyped) part.links.back().data.text = typed->text;
    } else {
        part.gone.push_back(id);
    }
    return true;
}

} // namespace recovery
