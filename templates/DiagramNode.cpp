#include "templates/DiagramNode.h"

#include "diagram/model/Surface.h"
#include "support/clsGUID.h"
#include "timeline/PrepFileForImport.h"
#include "timeline/TimelineNodes.h"

namespace templates {

diagram::Node &PutDiagramNode(diagram::Surface &flow) {
    diagram::Node &node = *timeline::LocateTimelineNode(flow, timeline::kDiagramDate, true);
    node.SetHidden(true);
    node.SetPicture(flow.Picture());
    node.SetFillColor(flow.BackColor());
    return node;
}

void TakeDiagramNode(diagram::Surface &flow) {
    diagram::Node *node = timeline::LocateTimelineNode(flow, timeline::kDiagramDate, false);
    if (!node) return;
    flow.SetPicture(node->Picture());
    flow.SetBackColor(node->FillColor());
    node->SetKey(support::GetGUID());
    flow.Remove(*node);
}

} // namespace templates
