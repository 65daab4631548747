#include "mainwindow/look/CopiedLook.h"

#include "diagram/model/Actions.h"
#include "diagram/model/Revision.h"
#include "mainwindow/edits/HandlerStep.h"
#include "timeline/AdjustLinks.h"

namespace mainwindow {

namespace {

using diagram::LinkData;
using diagram::NodeLook;

// What a node keeps of its own.
NodeLook WithOwnForm(NodeLook look, const NodeLook &own) {
    look.shape = own.shape;
    look.shapeOrientation = own.shapeOrientation;
    look.picturePos = own.picturePos;
    look.autoSize = own.autoSize;
    return look;
}

NodeLook WithSharedOf(NodeLook look, const LinkData &link) {
    look.font = link.font;
    look.drawWidth = link.drawWidth;
    look.borderColor = link.lineColor;
    look.foreColor = link.foreColor;
    look.drawStyle = link.drawStyle;
    return look;
}

LinkData WithSharedOf(LinkData link, const NodeLook &look) {
    link.font = look.font;
    link.drawWidth = look.drawWidth;
    link.lineColor = look.borderColor;
    link.foreColor = look.foreColor;
    link.drawStyle = look.drawStyle;
    return link;
}

void WriteLook(diagram::Link &link, const LinkData &values) {
    link.SetFont(values.font);
    link.SetForeColor(values.foreColor);
    link.SetLineColor(values.lineColor);
    link.SetDrawWidth(values.drawWidth);
    link.SetDrawStyle(values.drawStyle);
    link.SetStyle(values.style);
    link.SetArrowSource(values.arrowSource);
    link.SetArrowMiddle(values.arrowMiddle);
    link.SetArrowDest(values.arrowDest);
    link.SetArrowSizeSource(values.arrowSizeSource);
    link.SetArrowSizeMiddle(values.arrowSizeMiddle);
    link.SetArrowSizeDest(values.arrowSizeDest);
    link.SetJumpStyle(values.jumpStyle);
    link.SetOriented(values.oriented);
}

} // namespace

void CopiedLook::Copy(const diagram::Surface &surface) {
    const diagram::Node *node = surface.SelectedNode();
    const diagram::Link *link = surface.SelectedLink();
    if (!node && !link) return;
    node_.reset();
    link_.reset();
    if (node) node_.emplace(NodeValues{node->Look(), node->Transparent()});
    if (link) link_.emplace(link->Data());
}

bool CopiedLook::Paste(diagram::Surface &surface) const {
    if (IsEmpty()) return false;
    const std::vector<diagram::Node *> nodes = surface.SelectedNodes();
    const std::vector<diagram::Link *> links = surface.SelectedLinks();
    const diagram::Revision before = surface.Actions().Revision();
    {
        const HandlerStep step(surface);
        for (diagram::Node *node : nodes) Give(*node);
        for (diagram::Link *link : links) Give(*link);
    }
    return !(surface.Actions().Revision() == before);
}

// A dated node may have another size by its font, and takes its link to its day along.
void CopiedLook::Give(diagram::Node &node) const {
    const QRectF box = node.Bounds();
    node.SetLook(node_ ? WithOwnForm(node_->look, node.Look()) : WithSharedOf(node.Look(), *link_));
    if (node_) node.SetTransparent(node_->transparent);
    if (node.Bounds() != box) timeline::AdjustLinksOf({&node});
}

void CopiedLook::Give(diagram::Link &link) const {
    WriteLook(link, link_ ? *link_ : WithSharedOf(link.Data(), node_->look));
}

} // namespace mainwindow
