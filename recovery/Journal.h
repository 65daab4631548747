// The journal of one window: notices what is written to its map, gathers it in the event loop in turns of a
// few milliseconds, and hands it as values to a thread that writes it.
#pragma once

#include "recovery/Folders.h"
#include "recovery/Parts.h"
#include "recovery/SliceWatch.h"

#include <atomic>
#include <QObject>
#include <QThreadPool>
#include <QTimer>

namespace document {
class MapWindow;
}

namespace recovery {

class JournalFile;

// What the journal needs of its window besides MapWindow.
class JournalSource {
public:
    virtual ~JournalSource() = default;
    virtual document::MapWindow &Window() = 0;
    virtual QString Caption() = 0;
    // Whether the map differs from its file. As long as it doesn't there is no journal.
    virtual bool HasUnsavedWork() = 0;
    // The text that is being typed in place, unless it is the one that the item has already.
    virtual std::optional<TypedText> Typed() = 0;
    // Whether the map is being loaded, saved or rebuilt by a routine that lets events run meanwhile.
    virtual bool IsBusy() = 0;
    // The journal can't be written, for the reason given. Editing goes on.
    virtual void JournalFailed(const QString &why) = 0;
};

class Journal : public QObject {
public:
    // Writes into a folder of its own in `root`. The source must outlive the journal. Each surface must be
    // watched from its making until it goes.
    Journal(JournalSource &source, const QString &root);
    // Waits for the writer. A journal that wasn't dropped stays, to be offered at the next start.
    ~Journal() override;

    void Watch(diagram::Surface &surface);
    void Unwatch(diagram::Surface &surface);
    // The journal is deleted: the map no longer differs from its file, or the differences aren't wanted. A
    // new one begins with the next write.
    void Drop();
    // This window now holds the work of the journal in `folder`, which is deleted once this journal has it
    // too.
    void Supersede(HeldFolder folder);

    // Looks for changes now instead of waiting for the timers, and takes the first turn of gathering them.
    void Look();
    // Looks, gathers to the end and waits until all is on the disk.
    void Finish();

    // After so many milliseconds a turn of gathering leaves the rest to the next one.
    static constexpr double kTurn = 3;
    // The longest turn so far, in milliseconds.
    double LongestTurn() const { return longestTurn_; }
    // How many edits the journal holds.
    int Changes() const { return changes_; }

private:
    void NoteWrite();
    void CountChange();
    void NoteTyped(const std::optional<TypedText> &typed);
    SliceWatch *WatchOf(int index) const;
    bool IsInGroup() const;
    void BeginGathering();
    void Gather();
    // Gathers for at most a turn; false when something is left.
    bool GatherTurn();
    void EndStep();
    MapFrame Frame();
    void Post(Step step);
    void Abandon();
    void WriterFailed(const QString &why);

    JournalSource &source_;
    std::vector<std::unique_ptr<SliceWatch>> watches_;
    SliceId nextSlice_ = 1;
    std::shared_ptr<JournalFile> file_; // belongs to the writer's thread
    // Steps that were posted and are not written yet.
    std::shared_ptr<std::atomic<int>> waiting_ = std::make_shared<std::atomic<int>>(0);
    QTimer poll_;              // looks for what no observer hears of
    QTimer soon_;              // from a write until it is looked at
    QTimer rest_;              // between two turns
    std::optional<Step> step_; // while it is being gathered
    // The slices that have something left to gather, each with the position of its part in step_.
    std::vector<std::pair<SliceWatch *, std::size_t>> gathering_;
    int rounds_ = 0;      // of this step that began anew because of writes meanwhile
    double gathered_ = 0; // milliseconds for this step
    double longestTurn_ = 0;
    MapFrame frame_; // as written last
    std::optional<TypedText> typed_;
    bool running_ = false;      // a first step was posted, so that further ones can follow it
    bool pendingWrite_ = false; // a write that doesn't count as an edit yet
    bool told_ = false;         // the user knows that writing fails
    int changes_ = 0;
    qint64 retryAt_ = 0; // milliseconds since the epoch; 0 when writing works
    QThreadPool writer_; // one thread; the last member, so that the writer ends before the others go
};

} // namespace recovery
