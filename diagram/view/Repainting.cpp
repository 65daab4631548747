#include "diagram/view/Repainting.h"

#include "diagram/interaction/Gesture.h"
#include "diagram/model/DayStrip.h"
#include "diagram/render/Renderer.h"
#include "diagram/view/PageMarks.h"
#include "diagram/view/StripMarks.h"
#include "diagram/view/Viewport.h"

#include <cmath>
#include <QElapsedTimer>
#include <QPainter>
#include <QRegion>
#include <QWidget>

namespace diagram {

namespace {

constexpr double kPixelBias = 1e-5; // pixels
constexpr int kMovingBudget = 4;    // milliseconds of a frame for painting what has come into sight
constexpr int kRestingBudget = 12;  // the same when nothing moves
constexpr int kBandItems = 150;     // about as many are painted between two looks at the clock
constexpr int kLeastBandRows = 12;
constexpr size_t kManyTouched = 500; // beyond it the whole viewport is copied again

} // namespace

Repainting::Repainting(QObject &host, QWidget &canvas, Scene &scene, Renderer &renderer,
                       const Viewport &viewport)
    : host_(host),
      canvas_(canvas),
      scene_(scene),
      surface_(scene.Model()),
      renderer_(renderer),
      viewport_(viewport) {}

void Repainting::RepaintAll() {
    screen_.InvalidateAll();
    canvas_.update();
}

void Repainting::PaintOn() {
    slices_.stop();
    resting_ = true;
    canvas_.update();
}

// The pixels that an area covers, and what handles cover around it.
void Repainting::Update(const QRectF &pixels) {
    const QRectF reached =
        pixels.adjusted(-kHandleReach, -kHandleReach, kHandleReach, kHandleReach) & QRectF(canvas_.rect());
    if (!reached.isEmpty()) canvas_.update(reached.toAlignedRect());
}

void Repainting::NoteSelected(const Item &item) {
    if (selectionTouched_.size() <= kManyTouched) selectionTouched_.emplace_back(item.Kind(), item.Id());
}

// What an item shows of its selection also depends on how much is selected and on where the focus is.
void Repainting::NoteSelectionForm() {
    const SelectionForm now = FormOf(surface_), former = std::exchange(selectionForm_, now);
    if (now.nodeHandles != former.nodeHandles || now.linkHandles != former.linkHandles) canvas_.update();
    if (now.focus == former.focus) return;
    selectionTouched_.emplace_back(ItemKind::Node, former.focus);
    selectionTouched_.emplace_back(ItemKind::Node, now.focus);
}

void Repainting::NoteDamage() {
    const Scene::Damage damage = scene_.TakeDamage();
    NoteSelectionForm();
    const bool manyTouched = selectionTouched_.size() > kManyTouched;
    if (damage.everything) RepaintAll();
    if (manyTouched) canvas_.update();
    RectList areas;
    if (!damage.everything) AddDamage(damage, areas);
    if (!manyTouched) AddTouched(areas);
    selectionTouched_.clear();
    for (const QRect &area : areas.Rects()) Update(area);
}

// What lies beyond the canvas may have handles on it.
void Repainting::AddDamage(const Scene::Damage &damage, RectList &areas) {
    const QRectF near = canvas_.rect().adjusted(-kHandleReach, -kHandleReach, kHandleReach, kHandleReach);
    for (const QRectF &area : damage.areas) {
        screen_.Invalidate(ToDevice(area));
        areas.Add((viewport_.FromSurface(area) & near).toAlignedRect());
    }
}

void Repainting::AddTouched(RectList &areas) {
    for (const auto &[kind, id] : selectionTouched_) {
        const Item *item = kind == ItemKind::Node ? static_cast<Item *>(surface_.FindNode(id))
                                                  : static_cast<Item *>(surface_.FindLink(id));
        if (item) areas.Add(viewport_.FromSurface(scene_.Bounds(*item)).toAlignedRect());
        if (item && item->AsNode()) AddQuietLinks(*item->AsNode(), areas);
    }
}

void Repainting::AddQuietLinks(const Node &node, RectList &areas) {
    for (const Link *link : QuietLinksOf(node))
        areas.Add(viewport_.FromSurface(scene_.Bounds(*link)).toAlignedRect());
}

void Repainting::SetPointed(const Node *node) {
    const std::optional<ItemId> now = node ? std::optional(node->Id()) : std::nullopt;
    const std::optional<ItemId> former = std::exchange(pointed_, now);
    if (former == now) return;
    RectList areas;
    for (const std::optional<ItemId> &id : {former, now})
        if (const Node *each = id ? surface_.FindNode(*id) : nullptr) AddQuietLinks(*each, areas);
    for (const QRect &area : areas.Rects()) Update(area);
}

void Repainting::NoteToday(const DayStrip &days) {
    if (!std::exchange(todayOutdated_, false)) return;
    if (std::vector<QLineF> breaks = days.Breaks(surface_); breaks != breaks_) {
        breaks_ = std::move(breaks);
        canvas_.update();
    }
    const std::optional<QLineF> former = std::exchange(today_, days.Today(surface_));
    if (former != today_) canvas_.update(); // it runs over the whole page
}

void Repainting::SetSights(Sights sights) {
    if (sights.IsEmpty() && sights_.IsEmpty()) return;
    sights_ = std::move(sights);
    RepaintAll();
}

void Repainting::SetPageBreaks(std::vector<QLineF> breaks) {
    if (breaks == pageBreaks_) return;
    pageBreaks_ = std::move(breaks);
    canvas_.update();
}

void Repainting::NoteOverlay(const Overlay &overlay) {
    const OverlayPlace now = PlaceOf(overlay, viewport_);
    const QRegion changed = ChangedArea(std::exchange(overlayPlace_, now), now);
    if (!changed.isEmpty()) canvas_.update(changed);
}

QRect Repainting::DevicePixelsSeen() const {
    const double ratio = canvas_.devicePixelRatioF();
    const QSize size = canvas_.size();
    const QPoint scroll = viewport_.Scroll();
    return {qRound(scroll.x() * ratio), qRound(scroll.y() * ratio), int(std::ceil(size.width() * ratio)),
            int(std::ceil(size.height() * ratio))};
}

QRect Repainting::ToDevice(const QRectF &twips) const {
    const double ratio = canvas_.devicePixelRatioF();
    const QRectF seen = DevicePixelsSeen().adjusted(-2, -2, 2, 2);
    const double xScale = viewport_.xScale() * ratio, yScale = viewport_.yScale() * ratio;
    const QRectF area(twips.left() * xScale, twips.top() * yScale, twips.width() * xScale,
                      twips.height() * yScale);
    return (area & seen).toAlignedRect().adjusted(-1, -1, 1, 1);
}

void Repainting::PaintArea(QPainter &painter, const QRect &devicePixels) {
    const double ratio = canvas_.devicePixelRatioF();
    RenderOptions options;
    options.xScale = viewport_.xScale() * ratio;
    options.yScale = viewport_.yScale() * ratio;
    options.grid = true;
    options.marks = true;
    options.screen = true;
    if (!sights_.IsEmpty()) options.sights = &sights_;
    // Edges are painted on whole pixels: without the bias a node that lies just on one would fall to either
    // side of it, another one for each strip.
    const QRectF area((devicePixels.left() - kPixelBias) / options.xScale,
                      (devicePixels.top() - kPixelBias) / options.yScale,
                      devicePixels.width() / options.xScale, devicePixels.height() / options.yScale);
    renderer_.Paint(painter, scene_, area, options);
}

// So many rows that a band holds about kBandItems items: the clock is looked at between two bands.
int Repainting::BandRows(const QRect &seen) {
    std::vector<Item *> items;
    scene_.ItemsIn(viewport_.Seen(), items);
    const auto bands = std::ssize(items) / kBandItems + 1;
    return std::max(kLeastBandRows, int(seen.height() / bands));
}

void Repainting::PaintPicture() {
    const double ratio = canvas_.devicePixelRatioF();
    const QRect seen = DevicePixelsSeen();
    const int budget = budget_.value_or(resting_ ? kRestingBudget : kMovingBudget);
    QElapsedTimer timer;
    timer.start();
    if (screen_.Show({seen, viewport_.xScale() * ratio, viewport_.yScale() * ratio}))
        bandRows_ = BandRows(seen);
    screen_.Update([this](QPainter &painter, const QRect &area) { PaintArea(painter, area); },
                   {bandRows_, [&] { return timer.elapsed() < budget; }});
    resting_ = false;
    if (screen_.IsExact())
        slices_.stop();
    else
        slices_.start(0, &host_);
}

void Repainting::CopyPicture(QPainter &painter, const QRegion &region) {
    const double ratio = canvas_.devicePixelRatioF();
    const QPoint corner = DevicePixelsSeen().topLeft();
    painter.save();
    painter.scale(1 / ratio, 1 / ratio);
    const QColor paper = support::ToQColor(surface_.BackColor());
    for (const QRect &rect : region) {
        const QRectF device(rect.x() * ratio, rect.y() * ratio, rect.width() * ratio, rect.height() * ratio);
        screen_.CopyTo(painter, device.toAlignedRect().translated(corner), paper);
    }
    painter.restore();
}

// The links of very many selected nodes aren't looked for: they stand back.
void Repainting::PaintStripMarks(QPainter &painter) {
    if (today_) PaintToday(painter, *today_, surface_, viewport_, canvas_.rect());
    std::vector<const Node *> asked;
    if (surface_.SelectedNodes().size() <= kManyTouched)
        asked.assign(surface_.SelectedNodes().begin(), surface_.SelectedNodes().end());
    if (const Node *pointed = pointed_ ? surface_.FindNode(*pointed_) : nullptr) asked.push_back(pointed);
    for (const Node *node : asked) PaintDateLinks(painter, QuietLinksOf(*node), viewport_);
    PaintSlimStrip(painter, scene_.TheCalendar(), surface_, viewport_, canvas_.rect(), today_);
}

void Repainting::Paint(const QRegion &region, const Overlay &overlay, FocusRing ring) {
    PaintPicture();
    QPainter painter(&canvas_);
    CopyPicture(painter, region);
    painter.setClipRegion(region);
    PaintBeyondTheOrigin(painter, surface_, viewport_, region.boundingRect());
    PaintPageBreaks(painter, pageBreaks_, surface_, viewport_);
    PaintBreaks(painter, breaks_, surface_, viewport_);
    PaintStripMarks(painter);
    PaintSelection(painter, scene_, viewport_, region, ring, overlay.loose, sights_);
    PaintOverlay(painter, overlay, surface_, viewport_);
}

} // namespace diagram
