#include "diagram/model/Actions.h"

#include "diagram/model/Routing.h"

#include <atomic>

namespace diagram {

std::uint64_t NextRevisionNumber() {
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

Actions::Actions(SurfaceObserver &observer, Routing &routing)
    : observer_(observer), routing_(routing), outside_(NextRevisionNumber()) {}

void Actions::SetLog(std::unique_ptr<ChangeLog> log) { log_ = std::move(log); }

void Actions::CountWrite() {
    if (uncounted_ == 0) outside_ = NextRevisionNumber();
}

Revision Actions::Revision() const { return {log_ ? log_->State() : 0, outside_}; }

void Actions::SetRevision(const diagram::Revision &revision) {
    if (log_) log_->Forget(), log_->SetState(revision.step);
    outside_ = revision.outside;
}

void Actions::WillChange(SurfaceKey, const Node &node) {
    AreRecorded() ? log_->WillChange(node) : CountWrite();
}

void Actions::WillChange(SurfaceKey, Link &link) {
    if (!AreRecorded()) return CountWrite();
    // The log has the link as it was before the group: what its route is between two writes doesn't matter.
    if (log_->Knows(link)) return;
    routing_.BringUpToDate(link);
    log_->WillChange(link);
}

void Actions::WillChange(SurfaceKey, const SurfaceData &data) {
    AreRecorded() ? log_->WillChangeSurface(data) : CountWrite();
}

void Actions::Added(SurfaceKey, const Item &item) { AreRecorded() ? log_->Added(item) : CountWrite(); }

void Actions::WillRemove(SurfaceKey, const std::vector<Link *> &links, const std::vector<Node *> &nodes) {
    if (!AreRecorded()) return CountWrite();
    for (Link *link : links) routing_.BringUpToDate(*link), log_->WillRemove(*link);
    for (const Node *node : nodes) log_->WillRemove(*node);
}

void Actions::Reset(SurfaceKey) {
    Forget();
    CountWrite();
}

// Links that must give way do so before a group opens or closes, so that they belong to the group, or to what
// was written outside of groups, that made them.
void Actions::Begin(std::int16_t code) {
    if (!log_) return;
    if (!AreRecorded()) routing_.Settle();
    log_->Begin(code);
}

bool Actions::Continue() {
    if (!log_ || AreRecorded()) return false;
    routing_.Settle();
    return log_->Continue();
}

void Actions::End() {
    if (!log_) return;
    if (AreRecorded()) routing_.Settle();
    if (log_->Depth() == 1) routing_.Tidy(log_->TouchedLinks());
    log_->End();
}

void Actions::Cancel() {
    if (!log_) return;
    if (AreRecorded()) routing_.Settle();
    routing_.ForgetUntidy();
    log_->Cancel();
}

bool Actions::CanUndo() const { return log_ && log_->CanUndo(); }
bool Actions::CanRedo() const { return log_ && log_->CanRedo(); }

void Actions::Undo() {
    if (!log_) return;
    if (!AreRecorded()) observer_.BeforeUndo(); // else it is an error
    log_->Undo();
    observer_.AfterUndo();
}

void Actions::Redo() {
    if (!log_) return;
    if (!AreRecorded()) observer_.BeforeUndo();
    log_->Redo();
    observer_.AfterUndo();
}

void Actions::Forget() {
    if (log_) log_->Forget();
}

} // namespace diagram
