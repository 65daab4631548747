#include "diagram/view/Tips.h"

#include "diagram/geometry/Units.h"
#include "diagram/hit/HitTest.h"
#include "diagram/interaction/Press.h"
#include "diagram/model/DayStrip.h"
#include "diagram/render/Renderer.h"
#include "diagram/scene/Scene.h"
#include "diagram/view/Viewport.h"

#include <QStringList>

namespace diagram {

namespace {

constexpr int kLongestTip = 2000; // characters
constexpr double kReadable = 5;   // pixels of a font's height

bool IsLegible(const Font &font, double scale) { return font.Size() * kTwipsPerPoint * scale >= kReadable; }

} // namespace

QString TipAt(Scene &scene, Renderer &renderer, const Viewport &viewport, const DayStrip &days,
              const QPointF &at) {
    const double scale = std::min(viewport.xScale(), viewport.yScale());
    if (const Node *node = NodeAtPoint(scene, float(at.x()), float(at.y()))) {
        const bool read = !renderer.TextIsCut(*node) && IsLegible(node->Font(), scale);
        const QString dates = days.DatesOf(*node);
        QStringList lines;
        if (!read && !node->ShownText().isEmpty()) lines << node->ShownText().left(kLongestTip);
        if (!dates.isEmpty()) lines << dates;
        return lines.join(QLatin1Char('\n'));
    }
    const Hit hit = HitTest(scene, at, OptionsFor({at, viewport.FromSurface(at), viewport.Pixel(), {}}));
    if (!hit.link || hit.link->Text().isEmpty()) return {};
    const bool whole = viewport.Seen().contains(scene.LabelBounds(*hit.link));
    return whole && IsLegible(hit.link->Font(), scale) ? QString() : hit.link->Text().left(kLongestTip);
}

} // namespace diagram
