#include "diagram/render/Renderer.h"

#include "diagram/geometry/Units.h"
#include "diagram/model/Sights.h"
#include "diagram/model/Stacking.h"
#include "diagram/render/Backdrop.h"
#include "diagram/render/CalendarPainter.h"
#include "diagram/render/CoarsePainter.h"
#include "diagram/render/LayoutMeasure.h"
#include "diagram/render/LinkPainter.h"
#include "diagram/render/NodeContent.h"
#include "diagram/render/NodePainter.h"
#include "diagram/render/Overlays.h"
#include "diagram/scene/Scene.h"
#include "diagram/shapes/Measures.h"

#include <algorithm>
#include <QPaintEngine>
#include <QTransform>

namespace diagram {

namespace {

bool IsUpright(const QTransform &transform) {
    return transform.type() <= QTransform::TxScale && transform.m11() > 0 && transform.m22() > 0;
}

// On a raster device that isn't turned, the painter is set to whole device pixels. For a vector target it is
// set to twips, so that all numbers written are plain.
Frame SetUp(QPainter &painter, const QRectF &area, const RenderOptions &options) {
    Frame frame;
    frame.origin = area.topLeft();
    if (options.vector) {
        painter.scale(options.xScale, options.yScale);
        return frame;
    }
    frame.xScale = options.xScale, frame.yScale = options.yScale;
    const QTransform device = painter.deviceTransform();
    const QPaintEngine *engine = painter.paintEngine();
    if (!engine || engine->type() != QPaintEngine::Raster || !IsUpright(device)) return frame;
    frame.snap = true;
    frame.xScale *= device.m11(), frame.yScale *= device.m22();
    frame.dot = std::max(1.0, std::round(std::min(device.m11(), device.m22())));
    const QTransform rest = painter.worldTransform().inverted() * device;
    const QTransform shift = QTransform::fromTranslate(std::round(device.dx()), std::round(device.dy()));
    painter.setWorldTransform(shift * rest.inverted());
    return frame;
}

// A mark on what can't be selected, such as the months and the links of dates, is the program's own.
template <typename Marked>
void PaintMarked(Paint &paint, const Marked &item) {
    if (paint.options.marks && item.Marked() && item.Selectable()) PaintMark(paint, item);
}

// Whether the node is a month of a fold and so is done with. The first month paints the fold, the others
// nothing.
bool PaintsFold(Paint &paint, const Node &node) {
    if (node.Selectable()) return false;
    const Calendar::Fold *fold = paint.scene.TheCalendar().FoldWith(node.Id());
    if (!fold) return false;
    if (fold->months.front() != node.Id()) return true;
    PaintNodeForm(paint, node);
    CalendarPainter(paint).PaintFold(*fold, node);
    return true;
}

void PaintItem(Paint &paint, Item &item) {
    if (const Node *node = item.AsNode()) {
        if (PaintsFold(paint, *node)) return;
        PaintMarked(paint, *node);
        PaintNode(paint, *node);
    } else {
        PaintMarked(paint, *item.AsLink());
        PaintLink(paint, *item.AsLink());
    }
}

bool IsLegible(const Paint &paint, const Font &font) {
    return font.Size() * kTwipsPerPoint * paint.frame.Scale() >= kLegiblePixels;
}

void PaintItemCoarsely(Paint &paint, CoarsePainter &coarse, Item &item) {
    if (const Node *node = item.AsNode()) {
        if (PaintsFold(paint, *node)) return;
        PaintMarked(paint, *node);
        if (!coarse.Takes(*node)) return PaintNode(paint, *node);
        coarse.PaintForm(*node);
        if (IsLegible(paint, node->Font())) PaintNodeText(paint, *node);
        return;
    }
    const Link &link = *item.AsLink();
    PaintMarked(paint, link);
    if (!link.Text().isEmpty() && IsLegible(paint, link.Font())) return PaintLink(paint, link);
    coarse.PaintLine(link);
}

// Whether so much of the diagram is in sight that going through all items costs less than finding those
// there.
bool SeesMost(Paint &paint) {
    constexpr double kMost = 0.5; // of its area
    const QRectF extent = paint.scene.Extent(), seen = extent & paint.area;
    return seen.width() * seen.height() >= kMost * extent.width() * extent.height();
}

bool Hides(const RenderOptions &options, const Item &item) {
    return options.sights ? options.sights->Hides(item) : IsHidden(item);
}

Item *ItemOf(Surface &surface, ItemId id) {
    if (Node *node = surface.FindNode(id)) return node;
    return surface.FindLink(id);
}

// Items that are hidden and yet to be shown: no index of the scene has them.
void AddBroughtBack(Paint &paint, const Sights &sights, std::vector<Item *> &items) {
    const auto known = items.size();
    for (const ItemId id : sights.BroughtBack()) {
        Item *item = ItemOf(paint.scene.Model(), id);
        if (item && IsHidden(*item) && paint.scene.Bounds(*item).intersects(paint.area))
            items.push_back(item);
    }
    if (items.size() == known) return;
    std::ranges::sort(items, LiesBelow);
    items.erase(std::unique(items.begin(), items.end()), items.end());
}

void FindItems(Paint &paint, std::vector<Item *> &items) {
    paint.scene.ItemsIn(paint.area, items);
    if (paint.options.sights) AddBroughtBack(paint, *paint.options.sights, items);
}

// Calls `visit` with each item that isn't hidden, as long as the painting is wanted.
template <typename Visit>
void ForShown(const RenderOptions &options, const std::vector<Item *> &items, Visit visit) {
    constexpr int kBetweenQuestions = 64;
    int untilQuestion = kBetweenQuestions;
    for (Item *item : items) {
        if (Hides(options, *item)) continue;
        visit(*item);
        if (!options.goOn || --untilQuestion > 0) continue;
        if (!options.goOn()) return;
        untilQuestion = kBetweenQuestions;
    }
}

} // namespace

struct Renderer::State {
    Caches caches;
    LayoutMeasure measure{caches.texts};
    std::vector<Item *> items; // scratch
};

Renderer::Renderer() : state_(std::make_unique<State>()) {}
Renderer::~Renderer() = default;

void Renderer::Paint(QPainter &painter, Scene &scene, const QRectF &area, const RenderOptions &options) {
    painter.save();
    const Frame frame = SetUp(painter, area, options);
    const QRgb paper = options.paper.value_or(ToRgb(scene.Model().BackColor()));
    diagram::Paint paint{Pencil(painter), frame, options, scene, state_->caches, paper, area};
    PaintBackdrop(paint);
    const CalendarPainter calendar(paint);
    calendar.PaintBelow();
    std::vector<Item *> &items = state_->items;
    items.clear();
    if (frame.snap && frame.Scale() * kTwipsPerPixel < kCoarseZoom) {
        CoarsePainter coarse(paint);
        paint.pencil.Smooth(false);
        const bool all = SeesMost(paint);
        if (!all) FindItems(paint, items);
        ForShown(options, all ? scene.Model().Stacking().Order() : items,
                 [&](Item &item) { PaintItemCoarsely(paint, coarse, item); });
    } else {
        const bool all = options.vector && SeesMost(paint);
        if (!all) FindItems(paint, items);
        ForShown(options, all ? scene.Model().Stacking().Order() : items,
                 [&](Item &item) { PaintItem(paint, item); });
    }
    calendar.PaintAbove();
    if (options.selection) PaintHandles(paint);
    painter.restore();
}

TextMeasure &Renderer::Measure() { return state_->measure; }

bool Renderer::TextFits(const Node &node) {
    const QString text = node.ShownText();
    if (text.isEmpty()) return true;
    const QRectF room = TextRoom(node);
    const QSizeF size = state_->measure.Measure(text, node.Font(), room.width());
    constexpr double kSlack = 2; // twips
    return size.width() <= room.width() + kSlack && size.height() <= room.height() + kSlack;
}

bool Renderer::TextIsCut(const Node &node) { return IsTextCut(state_->caches.texts, node); }

void Renderer::Clear() {
    state_->caches.texts.Clear();
    state_->caches.pictures.Clear();
    state_->caches.forms.Clear();
    state_->caches.faces.Clear();
}

} // namespace diagram
