#include "timeline/DateIndex.h"

#include "diagram/model/Surface.h"
#include "document/Tags.h"
#include "timeline/TimelineNodes.h"

namespace timeline {

namespace {
QString DateOf(const diagram::Node &node) { return document::GetTag(node, document::tags::kTheDate); }
} // namespace

DateIndex::DateIndex(const diagram::Surface &flow) {
    for (diagram::Node &node : flow.Nodes())
        if (IsTimelineMaterial(node)) Add(node);
}

diagram::Node *DateIndex::Find(const QString &date) const {
    const auto found = nodes_.constFind(date);
    return found == nodes_.constEnd() || found->empty() ? nullptr : found->front();
}

void DateIndex::Add(diagram::Node &node) { nodes_[DateOf(node)].push_back(&node); }

void DateIndex::Remove(const diagram::Node &node) { std::erase(nodes_[DateOf(node)], &node); }

} // namespace timeline
