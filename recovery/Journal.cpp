#include "recovery/Journal.h"

#include "diagram/model/Actions.h"
#include "document/MapWindow.h"
#include "document/SurfaceArray.h"
#include "recovery/JournalFile.h"
#include "support/Error.h"

#include <algorithm>
#include <QElapsedTimer>

namespace recovery {

namespace {

// Times in milliseconds.
constexpr int kPoll = 1000;                  // changes of pools and of texts being typed are found by looking
constexpr int kSoon = 300, kAtLatest = 1200; // from a write until it is gathered
constexpr int kShareOfTime = 50;             // that time is so many times what gathering took last
constexpr int kRest = 6;                     // between two turns, for everything else
constexpr qint64 kRetry = 15000;             // after a failed write, and until an idle writer's thread ends
constexpr int kRounds = 3;            // so often a step takes along what was written while it was gathered
constexpr std::size_t kFew = 256;     // items, as long as they are no more than these
constexpr int kItemsBetweenLooks = 8; // at the clock
constexpr int kMostWaiting = 2;       // steps; while so many are not written no other begins

} // namespace

Journal::Journal(JournalSource &source, const QString &root)
    : source_(source), file_(std::make_shared<JournalFile>(root)) {
    writer_.setMaxThreadCount(1);
    writer_.setExpiryTimeout(kRetry);
    soon_.setSingleShot(true);
    soon_.setInterval(kSoon);
    rest_.setSingleShot(true);
    rest_.setInterval(kRest);
    connect(&poll_, &QTimer::timeout, this, [this] { Look(); });
    connect(&soon_, &QTimer::timeout, this, [this] { Look(); });
    connect(&rest_, &QTimer::timeout, this, [this] { Gather(); });
    poll_.start(kPoll);
}

Journal::~Journal() { writer_.waitForDone(); }

void Journal::Watch(diagram::Surface &surface) {
    watches_.push_back(std::make_unique<SliceWatch>(surface, nextSlice_++, [this] { NoteWrite(); }));
}

void Journal::Unwatch(diagram::Surface &surface) {
    Abandon();
    std::erase_if(watches_, [&surface](const auto &watch) { return &watch->Surface() == &surface; });
    NoteWrite();
}

void Journal::NoteWrite() {
    pendingWrite_ = true;
    if (!soon_.isActive()) soon_.start();
}

void Journal::Drop() {
    Abandon();
    running_ = pendingWrite_ = false;
    changes_ = 0;
    frame_ = {};
    typed_.reset();
    soon_.stop();
    retryAt_ = 0;
    writer_.start([file = file_] { file->Remove(); });
}

void Journal::Supersede(HeldFolder folder) {
    auto held = std::make_shared<HeldFolder>(std::move(folder));
    writer_.start([file = file_, held] { file->Supersede(std::move(*held)); });
}

SliceWatch *Journal::WatchOf(int index) const {
    const auto found = std::ranges::find_if(
        watches_, [index](const auto &watch) { return watch->Surface().Index() == index; });
    return found == watches_.end() ? nullptr : found->get();
}

bool Journal::IsInGroup() const {
    return std::ranges::any_of(watches_, [](const auto &watch) {
        const diagram::ChangeLog *log = watch->Surface().Actions().Log();
        return log && log->Depth() > 0;
    });
}

void Journal::NoteTyped(const std::optional<TypedText> &typed) {
    if (typed == typed_) return;
    for (const auto &each : {typed_, typed}) {
        if (!each) continue;
        if (SliceWatch *watch = WatchOf(each->index)) watch->Note(each->item);
    }
    typed_ = typed;
}

void Journal::Look() {
    if (step_) return;
    const std::optional<TypedText> typed = source_.Typed();
    const bool waitsToRetry = retryAt_ != 0 && QDateTime::currentMSecsSinceEpoch() < retryAt_;
    if (source_.IsBusy() || waitsToRetry || *waiting_ >= kMostWaiting) return; // the poll comes again
    if (!typed && !source_.HasUnsavedWork()) {
        if (running_) Drop();
        return;
    }
    NoteTyped(typed);
    if (!running_) {
        step_.emplace().first = true;
        for (const auto &watch : watches_) watch->NoteAll();
    }
    CountChange();
    rounds_ = 0;
    gathered_ = 0;
    BeginGathering();
    Gather();
}

// An edit whose group is still open is counted once that has closed.
void Journal::CountChange() {
    if (pendingWrite_ && !IsInGroup()) {
        ++changes_;
        pendingWrite_ = false;
    }
}

void Journal::BeginGathering() {
    if (!step_) step_.emplace();
    gathering_.clear();
    for (const auto &watch : watches_) {
        watch->BeginGathering();
        SlicePart &part = step_->parts.emplace_back();
        part.slice = watch->Id();
        watch->GatherSurface(part);
        gathering_.emplace_back(watch.get(), step_->parts.size() - 1);
    }
}

bool Journal::GatherTurn() {
    QElapsedTimer timer;
    timer.start();
    const auto elapsed = [&timer] { return double(timer.nsecsElapsed()) / 1e6; };
    int untilLook = kItemsBetweenLooks;
    bool inTime = true;
    while (!gathering_.empty() && inTime) {
        const auto &[watch, part] = gathering_.back();
        if (!watch->GatherOne(step_->parts[part], typed_)) {
            gathering_.pop_back();
        } else if (--untilLook == 0) {
            inTime = elapsed() < kTurn;
            untilLook = kItemsBetweenLooks;
        }
    }
    gathered_ += elapsed();
    longestTurn_ = std::max(longestTurn_, elapsed());
    return gathering_.empty();
}

void Journal::Gather() {
    if (!step_) return;
    if (source_.IsBusy() || !GatherTurn()) return rest_.start();
    // Take along what was written meanwhile, unless that is much or never ends.
    std::size_t noted = 0;
    for (const auto &watch : watches_) noted += watch->Noted();
    if (noted > 0 && noted <= kFew && rounds_++ < kRounds) {
        BeginGathering();
        return Gather();
    }
    EndStep();
    soon_.setInterval(std::clamp(int(gathered_ * kShareOfTime), kSoon, kAtLatest));
    if (noted > 0) soon_.start();
}

MapFrame Journal::Frame() {
    document::MapWindow &window = source_.Window();
    std::vector<SlicePlace> places;
    const std::vector<int> slots = window.AddFlow1().Indices();
    document::Tabs &tabs = window.TabStrip();
    for (std::size_t i = 0; i < slots.size() && int(i) < tabs.TabCount(); ++i)
        if (const SliceWatch *watch = WatchOf(slots[i]))
            places.push_back({watch->Id(), slots[i], tabs.TabCaption(int(i)), tabs.TabKey(int(i))});
    return FrameOf(window, source_.Caption(), std::move(places));
}

void Journal::EndStep() {
    Step step = std::move(*step_);
    step_.reset();
    std::erase_if(step.parts, [](const SlicePart &part) { return part.IsEmpty(); });
    running_ = true;
    MapFrame frame = Frame();
    const bool framed = step.first || frame != frame_;
    if (!framed && step.parts.empty()) return;
    if (framed && !step.first && step.parts.empty()) ++changes_;
    step.commit.time = QDateTime::currentDateTime();
    step.commit.changes = std::max(changes_, 1);
    if (framed) step.commit.frame = frame_ = std::move(frame);
    Post(std::move(step));
}

void Journal::Post(Step step) {
    ++*waiting_;
    retryAt_ = 0;
    auto values = std::make_shared<Step>(std::move(step));
    writer_.start([this, values, file = file_, waiting = waiting_] {
        try {
            file->Write(*values);
        } catch (...) {
            const QString why = support::CurrentError(QStringLiteral("Journal")).Description();
            QMetaObject::invokeMethod(
                this, [this, why] { WriterFailed(why); }, Qt::QueuedConnection);
        }
        --*waiting;
    });
}

void Journal::Abandon() {
    if (!step_) return;
    step_.reset();
    gathering_.clear();
    rest_.stop();
    for (const auto &watch : watches_) watch->NoteAll(); // what was gathered already is lost with the step
}

void Journal::WriterFailed(const QString &why) {
    if (!running_) return;
    Abandon();
    running_ = false; // so that the next step is a first one
    retryAt_ = QDateTime::currentMSecsSinceEpoch() + kRetry;
    if (!std::exchange(told_, true)) source_.JournalFailed(why);
}

void Journal::Finish() {
    Look();
    while (step_) Gather();
    writer_.waitForDone();
}

} // namespace recovery
