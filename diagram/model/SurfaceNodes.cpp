#include "diagram/model/Ranges.h"
#include "diagram/model/Surface.h"

namespace diagram {

Node &SurfaceNodes::Add(float left, float top, float width, float height) {
    NodeData data;
    static_cast<NodeLook &>(data) = surface_->Defaults();
    data.left = Checked(IsCoordinate, left, "Nodes");
    data.top = Checked(IsCoordinate, top, "Nodes");
    data.width = Checked(IsSize, width, "Nodes");
    data.height = Checked(IsSize, height, "Nodes");
    return surface_->AddNode(std::move(data));
}

Node &SurfaceNodes::Item(const QString &key) const {
    if (Node *node = Find(key)) return *node;
    support::Raise(support::kErrInvalidProcedureCall, QStringLiteral("Nodes"));
}

Node &SurfaceNodes::Item(int position) const {
    if (position >= 1 && position <= Count()) return *surface_->AllNodes()[std::size_t(position) - 1];
    support::Raise(support::kErrSubscriptOutOfRange, QStringLiteral("Nodes"));
}

Node *SurfaceNodes::Find(const QString &key) const { return surface_->FindNode(key); }
int SurfaceNodes::Count() const { return int(surface_->AllNodes().size()); }

void SurfaceNodes::Clear() {
    std::vector<Node *> nodes;
    nodes.reserve(surface_->AllNodes().size());
    for (const auto &node : surface_->AllNodes()) nodes.push_back(node.get());
    surface_->Remove(nodes, {});
}

SurfaceNodes::Iterator SurfaceNodes::begin() const { return Iterator(surface_->AllNodes().begin()); }
SurfaceNodes::Iterator SurfaceNodes::end() const { return Iterator(surface_->AllNodes().end()); }

} // namespace diagram
