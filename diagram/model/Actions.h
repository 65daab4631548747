// The groups of changes of a surface, each one step of undo, and the revision of its content.
#pragma once

#include "diagram/model/ChangeLog.h"
#include "diagram/model/Revision.h"
#include "diagram/model/SurfaceKey.h"
#include "diagram/model/SurfaceObserver.h"

#include <memory>
#include <vector>

namespace diagram {

class Routing;

class Actions {
public:
    Actions(SurfaceObserver &observer, Routing &routing);

    // One group is one step of undo. Groups nest; only the outermost counts.
    void Begin(std::int16_t code);
    // The same, but what is changed becomes part of the last step, as if both had been one group. False, and
    // no group is open, when there is no last step, or something was undone, or a group is open.
    bool Continue();
    void End();
    // Closes all open groups and takes back what was changed in them: a gesture that is given up.
    void Cancel();
    bool CanUndo() const;
    bool CanRedo() const;
    void Undo(); // nothing to undo: no effect; error 5 while a group is open
    void Redo();
    // Empties the history.
    void Forget();
    // What is written now is recorded: a group is open.
    bool AreRecorded() const { return log_ && log_->Depth() > 0; }

    // Zoom, grid, defaults and the selection are no content. What an open group has changed counts once it is
    // closed.
    diagram::Revision Revision() const;
    // Says that the content is that of this revision, which another surface had. Forgets the history.
    void SetRevision(const diagram::Revision &revision);

    void SetLog(std::unique_ptr<ChangeLog> log);
    ChangeLog *Log() const { return log_.get(); } // null: there is no undo

    // While one stands, writes outside of groups leave the revision as it is: what they write follows from
    // what was written before, or no map file keeps it.
    class Uncounted {
    public:
        explicit Uncounted(Actions &actions) : actions_(actions) { ++actions_.uncounted_; }
        ~Uncounted() { --actions_.uncounted_; }
        Uncounted(const Uncounted &) = delete;
        Uncounted &operator=(const Uncounted &) = delete;

    private:
        Actions &actions_;
    };

    // Told by the surface before and after its writes. A link is routed before it is recorded.
    void WillChange(SurfaceKey, const Node &node);
    void WillChange(SurfaceKey, Link &link);
    void WillChange(SurfaceKey, const SurfaceData &data);
    void Added(SurfaceKey, const Item &item);
    void WillRemove(SurfaceKey, const std::vector<Link *> &links, const std::vector<Node *> &nodes);
    void Reset(SurfaceKey); // all is gone

private:
    void CountWrite();

    SurfaceObserver &observer_;
    Routing &routing_;
    std::unique_ptr<ChangeLog> log_;
    std::uint64_t outside_;
    int uncounted_ = 0;
};

using Uncounted = Actions::Uncounted;

} // namespace diagram
