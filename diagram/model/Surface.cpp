#include "diagram/model/Surface.h"

#include "diagram/model/PropertyTable.h"
#include "diagram/model/Routing.h"

#include <algorithm>
#include <atomic>

namespace diagram {

namespace {

SurfaceEvents &NobodyListens() {
    static SurfaceEvents events;
    return events;
}

} // namespace

std::uint64_t NextRevisionNumber() {
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

Surface::Surface()
    : events_(&NobodyListens()), outside_(NextRevisionNumber()), routing_(std::make_unique<Routing>(*this)) {}

Surface::~Surface() = default;

void Surface::SetEvents(SurfaceEvents *events) { events_ = events ? events : &NobodyListens(); }
void Surface::SetLog(std::unique_ptr<ChangeLog> log) { log_ = std::move(log); }

void Surface::AddObserver(SurfaceObserver &observer) { observers_.push_back(&observer); }
void Surface::RemoveObserver(SurfaceObserver &observer) { std::erase(observers_, &observer); }

void Surface::SetMeasure(TextMeasure *measure) {
    if (measure == measure_) return;
    measure_ = measure;
    NotifySurface(Change::Text);
}

bool Surface::Recording() const { return log_ && log_->Depth() > 0; }

void Surface::CountWrite() {
    if (uncounted_ == 0) outside_ = NextRevisionNumber();
}

Revision Surface::Revision() const { return {log_ ? log_->State() : 0, outside_}; }

void Surface::SetRevision(const diagram::Revision &revision) {
    if (log_) log_->Forget(), log_->SetState(revision.step);
    outside_ = revision.outside;
}

void Surface::Record(const Node &node) {
    if (!Recording()) return CountWrite();
    log_->WillChange(node);
}

void Surface::Record(Link &link) {
    if (!Recording()) return CountWrite();
    // A route that has become out of date within the group needn't be known between two writes.
    if (log_->Knows(link)) return;
    BringUpToDate(link);
    log_->WillChange(link);
}

void Surface::RecordSurface() {
    if (!Recording()) return CountWrite();
    log_->WillChangeSurface(data_);
}

void Surface::Notify(Item &item, Change what) {
    for (SurfaceObserver *observer : observers_) observer->ItemChanged(item, what);
}

void Surface::NotifySurface(Change what) {
    for (SurfaceObserver *observer : observers_) observer->SurfaceChanged(what);
}

template <auto Member, typename T>
void Surface::Write(const T &value) {
    const auto &fitting = Fitting<Member>(value, "Surface");
    if (data_.*Member == fitting) return;
    RecordSurface();
    data_.*Member = fitting;
    NotifySurface(PropertyOf<Member>().what);
}

void Surface::SetTag(const QString &tag) { Write<&SurfaceData::tag>(tag); }
void Surface::SetPicture(const diagram::Picture &picture) { Write<&SurfaceData::picture>(picture); }
void Surface::SetBackColor(support::Colour colour) { Write<&SurfaceData::backColor>(colour); }
void Surface::SetxZoom(int percent) {
    const Uncounted sight(*this);
    Write<&SurfaceData::xZoom>(percent);
}
void Surface::SetyZoom(int percent) {
    const Uncounted sight(*this);
    Write<&SurfaceData::yZoom>(percent);
}
void Surface::SetGridLines(bool on) {
    const Uncounted sight(*this);
    Write<&SurfaceData::gridLines>(on);
}

void Surface::SetGridSize(float twips) {
    if (!(twips > 0 && twips <= kLargestCoordinate)) RaiseInvalidValue("Surface");
    gridSize_ = twips;
    NotifySurface(Change::Look);
}

void Surface::SetGridColor(support::Colour colour) {
    gridColor_ = colour;
    NotifySurface(Change::Look);
}

void Surface::SetGridStyle(int style) {
    gridStyle_ = Checked(IsGridStyle, style, "Surface");
    NotifySurface(Change::Look);
}

void Surface::SetShowsBothTexts(bool on) {
    if (on == showsBothTexts_) return;
    showsBothTexts_ = on;
    NotifySurface(Change::Text | Change::Look);
}

// What gives way belongs to the group in which it was made to.
void Surface::BeginAction(std::int16_t code) {
    if (!log_) return;
    if (!Recording()) SettleRoutes();
    log_->Begin(code);
}
bool Surface::ContinueAction() {
    if (!log_ || Recording()) return false;
    SettleRoutes();
    return log_->Continue();
}
void Surface::EndAction() {
    if (!log_) return;
    if (Recording()) SettleRoutes();
    if (log_->Depth() == 1) routing_->Tidy(log_->TouchedLinks());
    log_->End();
}
void Surface::CancelAction() {
    if (!log_) return;
    if (Recording()) SettleRoutes();
    routing_->ForgetUntidy();
    log_->Cancel();
}
bool Surface::CanUndo() const { return log_ && log_->CanUndo(); }
bool Surface::CanRedo() const { return log_ && log_->CanRedo(); }
void Surface::PrepareUndo() {
    if (log_->Depth() > 0) return; // an error then
    for (SurfaceObserver *observer : observers_) observer->BeforeUndo();
}

void Surface::FinishUndo() {
    for (SurfaceObserver *observer : observers_) observer->AfterUndo();
}

void Surface::Undo() {
    if (!log_) return;
    PrepareUndo();
    log_->Undo();
    FinishUndo();
}

void Surface::Redo() {
    if (!log_) return;
    PrepareUndo();
    log_->Redo();
    FinishUndo();
}

QRectF Surface::Extent() const {
    QRectF extent;
    const auto include = [&extent](const QRectF &rect) {
        if (extent.isNull()) {
            extent = rect;
        } else {
            extent.setCoords(std::min(extent.left(), rect.left()), std::min(extent.top(), rect.top()),
                             std::max(extent.right(), rect.right()),
                             std::max(extent.bottom(), rect.bottom()));
        }
    };
    for (const auto &node : nodes_) {
        if (!node->Hidden()) include(node->Bounds());
    }
    for (const auto &link : links_) {
        if (link->Hidden()) continue;
        for (const Point &point : link->Route()) include(QRectF(ToQPointF(point), QSizeF()));
    }
    return extent;
}

} // namespace diagram
