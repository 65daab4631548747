#include "diagram/edit/History.h"

#include "diagram/edit/Step.h"
#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "support/Error.h"

#include <algorithm>
#include <unordered_set>

namespace diagram {

namespace {

// Adds to the step what differs between an item before the group, empty for one that the group added, and
// now, null for one that isn't there any more.
template <typename Data>
void Reduce(ItemId id, std::optional<Data> &before, const Data *current, std::vector<Presence<Data>> &present,
            std::vector<ItemChange<Data>> &changed) {
    if (before && current) {
        auto changes = ChangesBetween(*before, *current);
        if (!changes.empty()) changed.push_back({id, std::move(changes)});
    } else if (before) {
        present.push_back({id, false, std::move(*before)});
    } else if (current) {
        present.push_back({id, true, *current});
    }
}

class History : public ChangeLog {
public:
    explicit History(Surface &surface) : surface_(surface) {}

    void Begin(std::int16_t) override { ++depth_; }

    bool Continue() override {
        if (depth_ > 0 || done_ == 0 || done_ < steps_.size()) return false;
        --done_;
        steps_[done_].PutBefore(surface_, nodes_, links_, data_);
        steps_.resize(done_);
        states_.resize(done_ + 1);
        depth_ = 1;
        return true;
    }

    void End() override {
        if (depth_ == 0 || --depth_ > 0) return;
        Step step = TakeStep();
        if (step.IsEmpty()) return;
        steps_.resize(done_);
        states_.resize(done_ + 1);
        states_.push_back(step.ChangesContent() ? NextRevisionNumber() : states_.back());
        steps_.push_back(std::move(step));
        done_ = steps_.size();
    }

    void Cancel() override {
        if (depth_ == 0) return;
        depth_ = 0;
        TakeStep().Apply(surface_, false);
    }

    int Depth() const override { return depth_; }
    bool CanUndo() const override { return depth_ == 0 && done_ > 0; }
    bool CanRedo() const override { return depth_ == 0 && done_ < steps_.size(); }

    void Undo() override {
        RequireClosed();
        if (CanUndo()) steps_[--done_].Apply(surface_, false);
    }

    void Redo() override {
        RequireClosed();
        if (CanRedo()) steps_[done_++].Apply(surface_, true);
    }

    void Forget() override {
        steps_.clear();
        states_.assign(1, State());
        done_ = 0;
        nodes_.clear();
        links_.clear();
        data_.reset();
    }

    std::uint64_t State() const override { return states_[done_]; }
    void SetState(std::uint64_t state) override { states_[done_] = state; }

    void WillChange(const Node &node) override { Touch(nodes_, node.Id(), node.Data()); }
    void WillChange(const Link &link) override { Touch(links_, link.Id(), link.Data()); }
    bool Knows(const Link &link) const override { return links_.contains(link.Id()); }
    std::vector<ItemId> TouchedLinks() const override {
        std::vector<ItemId> ids;
        for (const auto &[id, before] : links_) ids.push_back(id);
        return ids;
    }
    void WillChangeSurface(const SurfaceData &data) override {
        if (depth_ > 0 && !data_) data_ = data;
    }
    void Added(const Item &item) override {
        if (depth_ == 0) return;
        if (item.AsNode()) {
            nodes_.try_emplace(item.Id());
        } else {
            links_.try_emplace(item.Id());
        }
    }
    void WillRemove(const Item &item) override {
        if (const Node *node = item.AsNode()) WillChange(*node);
        if (const Link *link = item.AsLink()) WillChange(*link);
    }

private:
    template <typename Data>
    void Touch(Touched<Data> &touched, ItemId id, const Data &data) {
        if (depth_ == 0) return;
        const auto [at, isNew] = touched.try_emplace(id);
        if (isNew) at->second = data;
    }

    void RequireClosed() const {
        if (depth_ == 0) return;
        support::Raise(support::kErrInvalidProcedureCall, QStringLiteral("History"));
    }

    Step TakeStep() {
        Step step;
        for (auto &[id, before] : nodes_) {
            const Node *node = surface_.FindNode(id);
            Reduce(id, before, node ? &node->Data() : nullptr, step.nodesPresent, step.nodes);
        }
        std::unordered_set<ItemId> changed;
        for (const auto &entry : step.nodes) changed.insert(entry.id);
        const auto endsAtChanged = [&changed](const LinkData &link) {
            return changed.contains(link.source) || changed.contains(link.destination);
        };
        for (auto &[id, before] : links_) {
            const Link *link = surface_.FindLink(id);
            if (link) link->OwnBends(), link->Route(); // brings its values up to date
            const bool stays = before && link;
            const std::size_t count = step.links.size();
            Reduce(id, before, link ? &link->Data() : nullptr, step.linksPresent, step.links);
            if (stays && step.links.size() == count && endsAtChanged(link->Data()))
                step.links.push_back({id, {}}); // gets its route below
        }
        for (auto &entry : step.links) KeepRoute(entry);
        if (data_) step.surface = ChangesBetween(*data_, surface_.Data());
        nodes_.clear();
        links_.clear();
        data_.reset();
        return step;
    }

    // When one of its nodes moves with the step, a link would be routed anew: it must be told its route even
    // if that is the same before and after.
    void KeepRoute(ItemChange<LinkData> &entry) const {
        const LinkData &data = surface_.FindLink(entry.id)->Data();
        if (!nodes_.contains(data.source) && !nodes_.contains(data.destination)) return;
        const auto isOfPoints = [](const PropertyChange &change) {
            return std::holds_alternative<std::vector<Point>>(change.before);
        };
        if (std::ranges::any_of(entry.changes, isOfPoints)) return;
        const auto rows = LinkProperties();
        const auto row = std::ranges::find_if(rows, [&data](const auto &each) {
            return std::holds_alternative<std::vector<Point>>(each.get(data));
        });
        entry.changes.push_back({std::size_t(row - rows.begin()), data.points, data.points});
    }

    Surface &surface_;
    std::vector<Step> steps_;
    std::vector<std::uint64_t> states_{NextRevisionNumber()}; // before the first step and after each
    std::size_t done_ = 0; // steps that are done; those behind can be repeated
    int depth_ = 0;        // of open groups
    // What was there before the open group, as far as it has been touched.
    Touched<NodeData> nodes_;
    Touched<LinkData> links_;
    std::optional<SurfaceData> data_;
};

} // namespace

void AttachHistory(Surface &surface) { surface.Actions().SetLog(std::make_unique<History>(surface)); }

ActionGroup::ActionGroup(Surface &surface, bool goesOn) : surface_(surface) {
    if (!goesOn || !surface_.Actions().Continue()) surface_.BeginAction(0);
}
ActionGroup::~ActionGroup() { surface_.EndAction(); }

} // namespace diagram
