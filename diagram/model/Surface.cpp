#include "diagram/model/Surface.h"

#include "diagram/model/Actions.h"
#include "diagram/model/Properties.h"
#include "diagram/model/PropertyTable.h"
#include "diagram/model/Routing.h"
#include "diagram/model/ScreenValues.h"
#include "diagram/model/Selection.h"
#include "diagram/model/Stacking.h"

#include <algorithm>
#include <optional>

namespace diagram {

namespace {

SurfaceEvents &NobodyListens() {
    static SurfaceEvents events;
    return events;
}

} // namespace

Surface::Surface()
    : events_(&NobodyListens()),
      selection_(std::make_unique<diagram::Selection>(observers_)),
      stacking_(
          std::make_unique<diagram::Stacking>([this](Item &item, StackKey key) { WriteStack(item, key); })),
      screen_(std::make_unique<ScreenValues>(observers_)),
      routing_(std::make_unique<Routing>(*this, SurfaceKey())),
      actions_(std::make_unique<diagram::Actions>(observers_, *routing_)) {}

Surface::~Surface() = default;

void Surface::SetEvents(SurfaceEvents *events) { events_ = events ? events : &NobodyListens(); }

void Surface::SetMeasure(TextMeasure *measure) {
    if (measure == measure_) return;
    measure_ = measure;
    observers_.SurfaceChanged(Change::Text);
}

Node *Surface::SelectedNode() const { return selection_->LastNode(); }
Link *Surface::SelectedLink() const { return selection_->LastLink(); }
const std::vector<Node *> &Surface::SelectedNodes() const { return selection_->Nodes(); }
const std::vector<Link *> &Surface::SelectedLinks() const { return selection_->Links(); }
void Surface::UnselectAll() { selection_->Clear(); }

void Surface::BeginAction(std::int16_t code) { actions_->Begin(code); }
void Surface::EndAction() { actions_->End(); }
bool Surface::CanUndo() const { return actions_->CanUndo(); }
bool Surface::CanRedo() const { return actions_->CanRedo(); }
void Surface::Undo() { actions_->Undo(); }
void Surface::Redo() { actions_->Redo(); }

void Surface::BeforeWrite(Node &node, Change what) {
    routing_->BeforeWrite(SurfaceKey(), node, what);
    actions_->WillChange(SurfaceKey(), node);
}

void Surface::AfterWrite(Node &node, Change what) {
    observers_.ItemChanged(node, what);
    routing_->AfterWrite(SurfaceKey(), node, what);
}

void Surface::BeforeWrite(Link &link) { actions_->WillChange(SurfaceKey(), link); }

void Surface::WriteStack(Item &item, StackKey key) {
    const auto write = [&](auto &stacked) {
        WriteTo(stacked, Change::Stacking, [&] {
            stacked.Data(SurfaceKey()).stack = key;
            stacking_->Restacked(SurfaceKey(), stacked);
        });
    };
    item.AsNode() ? write(*item.AsNode()) : write(*item.AsLink());
}

template <auto Member, typename T>
void Surface::Write(const T &value) {
    const auto &fitting = Fitting<Member>(value, "Surface");
    if (data_.*Member == fitting) return;
    actions_->WillChange(SurfaceKey(), data_);
    data_.*Member = fitting;
    observers_.SurfaceChanged(PropertyOf<Member>().what);
}

void Surface::SetTag(const QString &tag) { Write<&SurfaceData::tag>(tag); }
void Surface::SetPicture(const diagram::Picture &picture) { Write<&SurfaceData::picture>(picture); }
void Surface::SetBackColor(support::Colour colour) { Write<&SurfaceData::backColor>(colour); }
void Surface::SetxZoom(int percent) {
    const Uncounted sight(*actions_);
    Write<&SurfaceData::xZoom>(percent);
}
void Surface::SetyZoom(int percent) {
    const Uncounted sight(*actions_);
    Write<&SurfaceData::yZoom>(percent);
}
void Surface::SetGridLines(bool on) {
    const Uncounted sight(*actions_);
    Write<&SurfaceData::gridLines>(on);
}

void Surface::Overwrite(SurfaceData data) {
    const Change what = Difference(data_, data);
    if (what == Change::None) return;
    std::optional<Uncounted> sight;
    if (!DifferInContent(data_, data)) sight.emplace(*actions_);
    actions_->WillChange(SurfaceKey(), data_);
    data_ = std::move(data);
    observers_.SurfaceChanged(what);
}

void Surface::SetDefaults(const NodeLook &defaults) {
    if (!IsValid(defaults)) RaiseInvalidValue("Surface");
    SurfaceData data = data_;
    data.defaults = defaults;
    Overwrite(std::move(data));
}

void Surface::PageGrown(float right, float down) {
    SurfaceData data = data_;
    data.grownLeft += right;
    data.grownTop += down;
    Overwrite(std::move(data));
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
