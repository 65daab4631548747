// The journal of one window: notices what is written to its map, gathers it in the event loop a few
// milliseconds at a time, and hands it as values to a thread that writes it.
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

// What the journal asks of its window beside what saving asks.
class JournalSource {
public:
    virtual ~JournalSource() = default;
    virtual document::MapWindow &Window() = 0;
    virtual QString Caption() = 0;
    // Whether a save would write anything else than the file holds. Without any there is no journal.
    virtual bool HasUnsavedWork() = 0;
    // What is being typed in place, unless it is the text that the item has.
    virtual std::optional<TypedText> Typed() = 0;
    // Whether a routine that lets events run is loading, saving or rebuilding.
    virtual bool IsBusy() = 0;
    // The journal can't be written, for the reason told. Editing isn't touched by it.
    virtual void JournalFailed(const QString &why) = 0;
};

class Journal : public QObject {
public:
    // Writes into a folder of its own in `root`. The source must outlive the journal. Surfaces must be
    // watched from the time when they come until they go.
    Journal(JournalSource &source, const QString &root);
    // Waits for the writer. A journal that wasn't dropped stays, to be offered at the next start.
    ~Journal() override;

    void Watch(diagram::Surface &surface);
    void Unwatch(diagram::Surface &surface);
    // Nothing differs from the file any more, or what does isn't wanted: the journal goes. Gathering begins
    // anew at the next write.
    void Drop();
    // The window holds the work of that journal, which goes once it is in this one too.
    void Supersede(HeldFolder folder);

    // Looks for changes at once instead of a little later.
    void Look();
    // Looks, gathers to the end and waits until all is on the disk.
    void Finish();

    // How long a slice of gathering may take, and what it took at most so far, in milliseconds.
    static constexpr double kSlice = 3;
    double LongestSlice() const { return longestSlice_; }
    // How many edits the journal holds.
    int Changes() const { return changes_; }

private:
    void NoteWrite();
    void CountChange();
    void NoteTyped(const std::optional<TypedText> &typed);
    SliceWatch *WatchOf(int index) const;
    bool IsInGroup() const;
    void SetOut();
    void Gather();
    // False when the time is over before all is gathered.
    bool GatherSlice();
    void EndStep();
    MapFrame Frame();
    void Post(Step step);
    void Abandon();
    void WriterFailed(const QString &why);

    JournalSource &source_;
    std::vector<std::unique_ptr<SliceWatch>> watches_;
    SliceId nextSlice_ = 1;
    std::shared_ptr<JournalFile> file_; // belongs to the writer's thread
    std::shared_ptr<std::atomic<int>> waiting_ =
        std::make_shared<std::atomic<int>>(0); // steps not written yet
    QTimer poll_, soon_, rest_;
    std::optional<Step> step_;                                    // while it is being gathered
    std::vector<std::pair<SliceWatch *, std::size_t>> gathering_; // with the number of its part
    int rounds_ = 0;
    double gathered_ = 0; // milliseconds for this step
    double longestSlice_ = 0;
    MapFrame frame_; // as written last
    std::optional<TypedText> typed_;
    bool running_ = false, pendingWrite_ = false, told_ = false;
    int changes_ = 0;
    qint64 retryAt_ = 0; // milliseconds since the epoch; 0 when writing works
    QThreadPool writer_; // of one thread; goes first
};

} // namespace recovery
