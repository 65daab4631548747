#include "dialogs/NodeSample.h"

namespace dialogs {

namespace {

constexpr QSize kHint(220, 200);         // pixels
constexpr qsizetype kLongestText = 1000; // of what a sample can show

} // namespace

NodeSample::NodeSample(const diagram::Node &oNode, QWidget *parent)
    : Sample("NodeSample", oNode.Owner(), kHint, parent),
      node_(&OwnSurface().Nodes().Add(0, 0, oNode.Width(), oNode.Height())),
      box_(node_->Bounds()) {
    node_->SetTransparent(oNode.Transparent());
}

void NodeSample::Show(const NodeEdit &edit, const QString &text) {
    node_->SetAutoSize(0);
    node_->SetBounds(0, 0, float(box_.width()), float(box_.height()));
    node_->SetText(text.left(kLongestText));
    WriteLook(*node_, edit);
    update();
}

} // namespace dialogs
