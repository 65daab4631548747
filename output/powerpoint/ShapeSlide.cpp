#include "output/powerpoint/ShapeSlide.h"

#include "diagram/model/Surface.h"
#include "diagram/render/Paint.h"
#include "diagram/scene/Scene.h"
#include "output/powerpoint/CalendarShapes.h"
#include "output/powerpoint/LinkShapes.h"
#include "output/powerpoint/NodeShapes.h"

namespace powerpoint {

namespace {

using diagram::Item;
using diagram::ItemKind;
using diagram::Link;
using diagram::Node;

// Fills context.ends with the ends of the links that are seen.
void FindEnds(ShapeContext &context, const std::vector<Item *> &items) {
    for (Item *item : items) {
        if (item->Kind() != ItemKind::Link) continue;
        const auto &link = static_cast<const Link &>(*item);
        const auto &route = link.Route();
        if (route.size() < 2 || link.DrawStyle() == diagram::kTransparentLine) continue;
        context.ends[&link.Source()].push_back(diagram::ToQPointF(route.front()));
        context.ends[&link.Destination()].push_back(diagram::ToQPointF(route.back()));
    }
}

} // namespace

void WriteBlip(package::Xml &xml, const PictureIds &ids) {
    constexpr char kSvgExtension[] = "{96DAC541-7B7A-43D3-8B79-37D633B846F1}";
    xml.Open("a:blip", {{"r:embed", ids.picture}});
    if (!ids.svg.isEmpty()) {
        xml.Open("a:extLst").Open("a:ext", {{"uri", kSvgExtension}});
        xml.Empty("asvg:svgBlip",
                  {{"xmlns:asvg", "http://schemas.microsoft.com/office/drawing/2016/SVG/main"},
                   {"r:embed", ids.svg}});
        xml.Close(2);
    }
    xml.Close();
}

void WriteShapes(package::Xml &xml, const Slide &slide, int nextId, const AddPicture &addPicture) {
    diagram::Scene scene(*slide.slice->surface);
    const QRectF area = diagram::PictureArea(scene);
    ShapeContext context{xml, scene, SlideFrame(area, slide.place), addPicture, nextId};
    std::vector<Item *> items;
    scene.ItemsIn(area, items);
    WriteBackground(context, area);
    const diagram::Calendar &calendar = scene.TheCalendar();
    WriteCalendar(context, calendar, area);
    FindEnds(context, items);
    for (Item *item : items) // all nodes first: a link may lie below the nodes at which it ends
        if (item->Kind() == ItemKind::Node)
            context.nodes[static_cast<const Node *>(item)] = PlanNode(context, static_cast<Node &>(*item));
    for (Item *item : items) {
        const diagram::Calendar::Fold *fold = calendar.FoldWith(item->Id());
        if (fold && fold->months.front() == item->Id())
            WriteFold(context, calendar, *fold, static_cast<const Node &>(*item));
        else if (fold)
            continue;
        else if (item->Kind() == ItemKind::Node)
            WriteNode(context, static_cast<const Node &>(*item));
        else
            WriteLink(context, static_cast<const Link &>(*item));
    }
}

} // namespace powerpoint
